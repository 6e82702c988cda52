// The controls of the tabs that write text and scene files, and their settings.

#include "ui/text_tabs.h"

#include "framework/resources/strings.h"

namespace vs::project_resave {

save_scns_xml_tab::save_scns_xml_tab()
    : docker_base(load_string(text::scene_files_tab)), folder_label_(load_string(text::scene_files_folder)),
      folder_(file_input_mode::folder), exists_label_(load_string(text::if_file_exists)),
      new_name_(if_exists_, load_string(text::generate_new_name)),
      rewrite_(if_exists_, load_string(text::rewrite_file)), if_exists_row_({new_name_, rewrite_}),
      options_box_(2, 1, load_string(text::scene_files_options)), content_(3, 1) {
    new_name_.set_checked(true);
    options_box_.place(0, 0, exists_label_);
    options_box_.place(1, 0, if_exists_row_);
    content_.place(0, 0, folder_label_);
    content_.place(1, 0, folder_);
    content_.place(2, 0, options_box_);
}

void save_scns_xml_tab::get_settings(scene_file_settings& settings) const {
    settings.folder = folder_.text().c_str();
    settings.on_exists = new_name_.is_checked() ? on_existing_file::new_name : on_existing_file::rewrite;
}

void save_scns_xml_tab::select_radio(uint32_t index) {
    if (index == 0) new_name_.set_checked(true);
    if (index == 1) rewrite_.set_checked(true);
}

namespace {

constexpr uint32_t tab_row = 1;

std::vector<toolkit::dropdownex::row> indents() {
    return {{load_string(text::indent_none), u""},
            {load_string(text::indent_tab), u"\t"},
            {load_string(text::indent_space), u" "},
            {load_string(text::indent_four_spaces), u"    "}};
}

} // namespace

save_struct_tab::save_struct_tab()
    : docker_base(load_string(text::structure_tab)), path_label_(load_string(text::structure_file_path)),
      path_(file_input_mode::text_file, load_string(text::text_file_mask)),
      layer_names_(load_string(text::write_layer_names)), table_names_(load_string(text::write_table_names)),
      table_columns_(load_string(text::write_table_columns)),
      layout_layers_(load_string(text::write_layout_layers)),
      legend_content_(load_string(text::write_legend_content)),
      legend_columns_(load_string(text::write_legend_columns)),
      file_paths_(load_string(text::write_file_paths)), indent_(load_string(text::indent_unit), indents()),
      options_box_(8, 1, load_string(text::structure_options)), content_(3, 1) {
    // A tab is the default indent.
    indent_.set_current(tab_row);
    connect();
    lay_out();
}

// An option that requires another one is checked and unchecked together with it.
void save_struct_tab::connect() {
    table_columns_.set_on_changed([this] {
        // Columns are written below the lines of layers and tables, so both are needed.
        if (!table_columns_.checked()) return;
        layer_names_.set_checked(true);
        table_names_.set_checked(true);
    });
    layout_layers_.set_on_changed([this] {
        if (layout_layers_.checked()) return;
        legend_content_.set_checked(false);
        legend_columns_.set_checked(false);
    });
    legend_content_.set_on_changed([this] {
        if (legend_content_.checked())
            layout_layers_.set_checked(true);
        else
            legend_columns_.set_checked(false);
    });
    legend_columns_.set_on_changed([this] {
        if (!legend_columns_.checked()) return;
        layout_layers_.set_checked(true);
        legend_content_.set_checked(true);
    });
}

void save_struct_tab::lay_out() {
    uint32_t row = 0;
    for (const element& option :
         std::initializer_list<element>{layer_names_, table_names_, table_columns_, layout_layers_,
                                        legend_content_, legend_columns_, file_paths_, indent_})
        options_box_.place(row++, 0, option);
    content_.place(0, 0, path_label_);
    content_.place(1, 0, path_);
    content_.place(2, 0, options_box_);
}

void save_struct_tab::get_settings(structure_settings& settings) const {
    settings.output_path = path_.text().c_str();
    settings.write_layer_names = layer_names_.checked();
    settings.write_table_names = table_names_.checked();
    settings.write_table_columns = table_columns_.checked();
    settings.write_layout_layers = layout_layers_.checked();
    settings.write_legend_content = legend_content_.checked();
    settings.write_legend_columns = legend_columns_.checked();
    settings.write_file_paths = file_paths_.checked();
    settings.indent_text = indent_.value();
    // The rows of the list are whole units already.
    settings.indent_repeat = 1;
}

void save_struct_tab::apply_settings(const structure_settings& settings) {
    layer_names_.set_checked(settings.write_layer_names);
    table_names_.set_checked(settings.write_table_names);
    table_columns_.set_checked(settings.write_table_columns);
    layout_layers_.set_checked(settings.write_layout_layers);
    legend_content_.set_checked(settings.write_legend_content);
    legend_columns_.set_checked(settings.write_legend_columns);
    file_paths_.set_checked(settings.write_file_paths);
}

} // namespace vs::project_resave
