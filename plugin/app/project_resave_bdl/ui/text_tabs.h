// The tabs that write scene files and the structure as text. Main thread only.
#pragma once

#include "framework/resources/strings.h"
#include "operations/run_settings.h"
#include "ui/toolkit/buttons.h"
#include "ui/toolkit/element_base.h"
#include "ui/toolkit/fields.h"
#include "ui/toolkit/layouts.h"
#include "ui/toolkit/texts.h"

namespace vs::project_resave {

// The tab that checks the letter case of paths. It is not part of the window; the panel keeps it for later
// use, so its path stays empty.
class checked_path_register_tab final : public toolkit::docker_base {
public:
    checked_path_register_tab()
        : docker_base(wide_string()), label_(load_string(text::structure_file_path)),
          path_(file_input_mode::text_file, load_string(text::text_file_mask)), content_(2, 1) {
        content_.place(0, 0, label_);
        content_.place(1, 0, path_);
    }

    element main_element() override { return content_; }

    // Returns the path that the user entered; empty if none.
    const wide_string& get_path() const { return path_.text(); }

private:
    toolkit::label label_;
    toolkit::file_input path_;
    toolkit::grid_layout content_;
};

// The tab that writes scene files: their folder, and what to do about existing files.
class save_scns_xml_tab final : public toolkit::docker_base {
public:
    // Looks up its texts, so the localizer must be connected before, as for every tab.
    save_scns_xml_tab();

    element main_element() override { return content_; }

    // Fills in the settings; `folder` points to the tab's text, so use them before the text changes.
    void get_settings(scene_file_settings& settings) const;
    // 0: keep an existing scene file and give the new one another name; 1: overwrite it. Other numbers are
    // ignored. Initially 0.
    void select_radio(uint32_t index);

private:
    toolkit::label folder_label_;
    toolkit::file_input folder_;
    toolkit::label exists_label_;
    // Before its buttons, which it must outlive.
    toolkit::radio_group if_exists_;
    toolkit::radiobutton new_name_;
    toolkit::radiobutton rewrite_;
    toolkit::stack_layout if_exists_row_;
    toolkit::groupbox options_box_;
    toolkit::grid_layout content_;
};

// The tab that writes the structure of the project to a text file. Checking a box also checks those that it
// needs; unchecking the layers of layouts or the content of legends unchecks what is inside them.
class save_struct_tab final : public toolkit::docker_base {
public:
    save_struct_tab();

    element main_element() override { return content_; }

    // Fills in the settings; `output_path` points to the tab's text, so use them before the text changes.
    void get_settings(structure_settings& settings) const;
    // Sets the check boxes, which affect each other as they do for the user, and nothing else: path and
    // indent stay.
    void apply_settings(const structure_settings& settings);

private:
    // Makes the check boxes change each other. Safe against endless calls, since a box that does not change
    // calls no handler.
    void connect();
    void lay_out();

    toolkit::label path_label_;
    toolkit::file_input path_;
    // In the order in which they are shown.
    toolkit::checkbox layer_names_;
    toolkit::checkbox table_names_;
    toolkit::checkbox table_columns_;
    toolkit::checkbox layout_layers_;
    toolkit::checkbox legend_content_;
    toolkit::checkbox legend_columns_;
    toolkit::checkbox file_paths_;
    // Its row's value is the text of one level.
    toolkit::dropdownex indent_;
    toolkit::groupbox options_box_;
    toolkit::grid_layout content_;
};

} // namespace vs::project_resave
