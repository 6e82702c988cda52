// The controls of the tab that resaves, and the settings that they represent.

#include "ui/save_prj_tab.h"

#include "framework/resources/strings.h"
#include "host/vsk_msgs.h"
#include "platform/text.h"

namespace vs::project_resave {

void warn_same_name() { vs_show_wwarning(load_string(text::same_project_name).c_str()); }

save_prj_tab::save_prj_tab(const wide_string& source_path, wide_string& new_path)
    : docker_base(load_string(text::resave_tab)), source_path_(source_path), new_path_(new_path),
      path_label_(load_string(text::new_project_path)),
      path_(file_input_mode::new_file, load_string(text::project_file_mask),
            load_string(text::choose_new_project)),
      variant_buttons_{toolkit::radiobutton(variants_, load_string(text::folders_by_type)),
                       toolkit::radiobutton(variants_, load_string(text::folders_from_project_file)),
                       toolkit::radiobutton(variants_, load_string(text::folders_below_project_only)),
                       toolkit::radiobutton(variants_, load_string(text::folders_from_common_top)),
                       toolkit::radiobutton(variants_, load_string(text::folder_for_each_scene))},
      use_project_file_(load_string(text::use_project_file), true),
      structure_box_(6, 2, load_string(text::folder_options)),
      rename_(load_string(text::rename_on_conflict), true),
      delete_lost_(load_string(text::delete_lost_elements)),
      scene_files_(load_string(text::save_scene_files)), layer_files_(load_string(text::save_layer_files)),
      resave_log_(load_string(text::write_resave_log)), load_log_(load_string(text::write_load_log)),
      lower_case_(load_string(text::lower_case_paths)), options_box_(8, 1, load_string(text::resave_options)),
      content_(3, 1) {
    path_.set_validator([this](const wide_string& entered) { return take_path(entered); });
    variant_buttons_[by_type].set_checked(true);
    indent_.set_visible(false);
    // It only matters for the structure from the common top folder.
    use_project_file_.set_enabled(false);
    for (toolkit::radiobutton& button : variant_buttons_)
        // Called for the button that is unchecked and for the one that is checked.
        button.set_on_changed([this, &button] {
            if (&button == &variant_buttons_[from_common_top])
                use_project_file_.set_enabled(button.is_checked());
            if (changed_) changed_();
        });
    lay_out();
}

void save_prj_tab::lay_out() {
    // The order on the screen is not that of the numbers, since the option of the common top folder is below
    // its button.
    structure_box_.place_over(0, 0, 2, variant_buttons_[by_type]);
    structure_box_.place_over(1, 0, 2, variant_buttons_[from_project_folder]);
    structure_box_.place_over(2, 0, 2, variant_buttons_[from_common_top]);
    structure_box_.place(3, 0, indent_);
    structure_box_.place(3, 1, use_project_file_);
    structure_box_.place_over(4, 0, 2, variant_buttons_[project_tree_else_type]);
    structure_box_.place_over(5, 0, 2, variant_buttons_[folder_per_scene]);

    uint32_t row = 0;
    for (const element& option :
         std::initializer_list<element>{structure_box_, rename_, delete_lost_, scene_files_, layer_files_,
                                        resave_log_, load_log_, lower_case_})
        options_box_.place(row++, 0, option);

    content_.place(0, 0, path_label_);
    content_.place(1, 0, path_);
    content_.place(2, 0, options_box_);
}

bool save_prj_tab::take_path(const wide_string& entered) {
    // Only one spelling is compared here; the panel compares again when the run starts.
    if (!source_path_.empty() && platform::compare_no_case(source_path_, entered) == 0) {
        warn_same_name();
        return false;
    }
    new_path_ = entered;
    return true;
}

void save_prj_tab::get_settings(resave_settings& settings) const {
    settings.output_path = &new_path_;
    settings.rename_on_conflict = rename_.checked();
    settings.structure_variant = structure_variant();
    settings.delete_lost_sources = delete_lost_.checked();
    // Kept as users know it: there is no control for this, and no run reads it.
    settings.only_selected = true;
    settings.write_log = resave_log_.checked();
    settings.save_scene_files = scene_files_.checked();
    settings.save_layer_files = layer_files_.checked();
    settings.consider_project_file = use_project_file_.checked(); // even if the box is disabled
    settings.lower_case = lower_case_.checked();
}

void save_prj_tab::apply_settings(const resave_settings& settings) {
    rename_.set_checked(settings.rename_on_conflict);
    delete_lost_.set_checked(settings.delete_lost_sources);
    const uint32_t variant = settings.structure_variant;
    variant_buttons_[variant < variant_buttons_.size() ? variant : by_type].set_checked(true);
    use_project_file_.set_checked(settings.consider_project_file);
    scene_files_.set_checked(settings.save_scene_files);
    layer_files_.set_checked(settings.save_layer_files);
    resave_log_.set_checked(settings.write_log);
}

structure save_prj_tab::structure_variant() const {
    for (uint32_t variant = 0; variant < variant_buttons_.size(); ++variant)
        if (variant_buttons_[variant].is_checked()) return static_cast<structure>(variant);
    return by_type;
}

} // namespace vs::project_resave
