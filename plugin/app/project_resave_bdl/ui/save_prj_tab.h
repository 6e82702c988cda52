// The tab that resaves the project: the new path and the options. Main thread only.
#pragma once

#include <array>
#include <functional>

#include "operations/run/resave_options.h"
#include "ui/toolkit/buttons.h"
#include "ui/toolkit/element_base.h"
#include "ui/toolkit/fields.h"
#include "ui/toolkit/layouts.h"
#include "ui/toolkit/texts.h"

namespace vs::project_resave {

// Warns the user that a project cannot be resaved under its own name.
void warn_same_name();

// The options are read when a run starts, so changing them during a run has no effect on it. Only `take_path`
// talks to the user.
class save_prj_tab final : public toolkit::docker_base {
public:
    // Both texts belong to the panel: the path of the loaded project, and the new path that the user enters
    // in this tab.
    save_prj_tab(const wide_string& source_path, wide_string& new_path);

    element main_element() override { return content_; }

    // Fills in the settings; `output_path` points to the panel's text.
    void get_settings(resave_settings& settings) const;
    // Sets the controls, except for the path, the lower case and the log of a load. An unknown structure
    // counts as `by_type`.
    void apply_settings(const resave_settings& settings);
    // Returns the structure whose button is checked.
    structure structure_variant() const;
    // Called after each change of a radio button: twice when the user presses one, since another is
    // unchecked. The structure is already the new one in the second call only.
    void set_on_structure_variant_changed(std::function<void()> handler) { changed_ = std::move(handler); }
    // True if a load is to write its log.
    bool open_log_checked() const { return load_log_.checked(); }

private:
    // One button for each structure, by its value.
    using variant_buttons = std::array<toolkit::radiobutton, 5>;

    // Validates a new path: returns false, after a warning, for the path of the source.
    bool take_path(const wide_string& entered);
    // Places all controls.
    void lay_out();

    // Of the panel, which outlives its tabs.
    const wide_string& source_path_;
    wide_string& new_path_;
    std::function<void()> changed_;
    toolkit::label path_label_;
    toolkit::file_input path_;
    // Before its buttons, which it must outlive.
    toolkit::radio_group variants_;
    variant_buttons variant_buttons_;
    toolkit::label indent_; // never visible: keeps space before the next check box
    // Whether the source project counts in the common top folder; only for that structure.
    toolkit::checkbox use_project_file_;
    toolkit::groupbox_span structure_box_;
    toolkit::checkbox rename_;
    toolkit::checkbox delete_lost_;
    toolkit::checkbox scene_files_;
    toolkit::checkbox layer_files_;
    toolkit::checkbox resave_log_;
    // For loads, not for runs; read by the panel when it loads a project.
    toolkit::checkbox load_log_;
    toolkit::checkbox lower_case_;
    toolkit::groupbox options_box_;
    toolkit::grid_layout content_;
};

} // namespace vs::project_resave
