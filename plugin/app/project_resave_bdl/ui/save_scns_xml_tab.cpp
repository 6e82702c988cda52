#include "ui/save_scns_xml_tab.h"

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

} // namespace vs::project_resave
