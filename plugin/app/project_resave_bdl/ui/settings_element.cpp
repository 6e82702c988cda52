#include "ui/settings_element.h"

#include "framework/border/string_adapter.h"
#include "framework/resources/strings.h"
#include "host/vsk_prj.h"
#include "operations/project_context.h"
#include "platform/path_text.h"
#include "platform/text.h"

namespace vs::project_resave {

namespace {

// Pages of the tab layout, in their order.
constexpr uint32_t resave_page = 0;
constexpr uint32_t structure_page = 1;
constexpr uint32_t scene_files_page = 2;

} // namespace

settings_element::settings_element(const resave_services* services)
    : owned_context(std::make_unique<project_context>(services, questions)), context(*owned_context),
      host_project_path(host_string(&vs_prj_get_filename, vs_prj_get_instance())),
      source_label(load_string(text::select_source_project)),
      source_field(file_input_mode::source_project, load_string(text::project_file_mask),
                   load_string(text::choose_source_project)),
      load_button(load_string(text::load_current_project), {}, [this] { load_current(); }),
      save_button(load_string(text::save_settings), load_string(text::save_settings), [] {}), header(2, 3),
      prj_tab(source_path, new_path), left_column(2, 1), selection(context), main_layout(1, 2) {
    source_field.set_validator([this](const wide_string& text) { return load_from_field(text); });
    load_button.set_enabled(!path_is_relative(host_project_path));
    tabs.add(u"project_resave_tab_save_prj", load_string(text::resave_tab), prj_tab);
    tabs.add(u"project_resave_tab_save_struct", load_string(text::structure_tab), struct_tab);
    tabs.add(u"project_resave_tab_save_scns_xml", load_string(text::scene_files_tab), scns_xml_tab);
    lay_out();
    tabs.set_on_page_changed([this] { on_active_tab_changed(); });
    prj_tab.set_on_structure_variant_changed([this] { on_active_tab_changed(); });
    project_connection = context.project_changed_event().connect([this] { on_project_changed(); });
    reset_to_defaults();
}

settings_element::~settings_element() = default;

void settings_element::lay_out() {
    header.place_over(0, 0, 3, source_label);
    header.place_over(1, 0, 2, source_field);
    header.place(1, 2, load_button);
    left_column.place(0, 0, header);
    left_column.place(1, 0, tabs);
    left_column.set_spare_row(1);
    main_layout.place(0, 0, left_column);
    main_layout.place(0, 1, selection);
}

void settings_element::reset_to_defaults() {
    prj_tab.apply_settings({});
    struct_tab.apply_settings({});
    scns_xml_tab.select_radio(0);
}

void settings_element::work(int32_t failure, const std::function<void()>& operation) {
    if (running) return;
    running = true;
    bool is_whole = true;
    try {
        operation();
    } catch (...) { // out of memory
        record_caught("panel");
        is_whole = false;
    }
    running = false;
    if (!is_whole || close_after_work) context.close_project();
    close_after_work = false;
    if (!is_whole) show_error(failure);
}

bool settings_element::load_from_field(const wide_string& text) {
    bool is_taken = false;
    work(text::failed_to_load_project, [&] {
        if (!new_path.empty() && platform::compare_no_case(new_path, text) == 0) {
            warn_same_name();
            return;
        }
        is_taken = context.load_project(text, true, prj_tab.open_log_checked());
        if (is_taken) source_path = text;
    });
    return is_taken && context.project_handle();
}

void settings_element::load_current() {
    work(text::failed_to_load_project, [this] {
        source_field.set_text(host_project_path);
        if (context.load_project(host_project_path, true, prj_tab.open_log_checked()))
            source_path = host_project_path;
    });
}

void settings_element::on_project_changed() {
    vs_prj* const project = context.project_handle();
    if (!project) {
        source_field.set_text({});
        source_path = source_field.text();
    }
    // Nothing of the project before may show while the new one is read in.
    selection.set_project(nullptr);
    if (project) selection.set_project(project);
}

void settings_element::on_active_tab_changed() {
    if (tabs.active() == scene_files_page)
        enable_only({views::scenes_2d});
    else if (tabs.active() == resave_page && prj_tab.structure_variant() == folder_per_scene)
        enable_only({views::scenes_2d, views::scenes_3d, views::layers_2d, views::layers_3d});
    else
        selection.model.set_view_enabled(views::everything, true);
    selection.model.fire_changed(views::everything);
}

void settings_element::enable_only(std::initializer_list<uint32_t> views) {
    selection.model.set_view_enabled(views::everything, false);
    for (const uint32_t view : views) selection.model.set_view_enabled(view, true);
}

bool settings_element::run_active_tab() {
    work(text::project_not_saved, [this] { run_tab(tabs.active()); });
    return false;
}

void settings_element::run_tab(uint32_t index) {
    if (index == resave_page) {
        resave();
    } else if (index == structure_page) {
        structure_settings settings;
        struct_tab.get_settings(settings);
        if (*settings.output_path) context.save_structure(settings);
    } else if (index == scene_files_page) {
        scene_file_settings settings;
        scns_xml_tab.get_settings(settings);
        if (*settings.folder) context.create_scene_files(settings);
    } else if (!path_register_tab.get_path().empty()) {
        context.check_path_case(path_register_tab.get_path());
    }
}

void settings_element::resave() {
    resave_settings settings;
    prj_tab.get_settings(settings);
    if (settings.output_path->empty()) return;
    // The field's own test knows one spelling of the source only, and not what was loaded after it.
    if (context.project_handle() && path_same(*settings.output_path, context.placement.source_project_path))
        warn_same_name();
    else
        context.resave_project(settings);
}

void settings_element::close_project() {
    if (running)
        close_after_work = true;
    else
        context.close_project();
}

void settings_element::leave_services() {
    close_project();
    context.services = nullptr;
}

} // namespace vs::project_resave
