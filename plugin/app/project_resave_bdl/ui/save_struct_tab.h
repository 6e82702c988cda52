// The tab that writes the structure of the project to a text file.
#pragma once

#include "operations/run_settings.h"
#include "ui/toolkit/checkbox.h"
#include "ui/toolkit/docker_base.h"
#include "ui/toolkit/dropdownex.h"
#include "ui/toolkit/file_input.h"
#include "ui/toolkit/grid_layout.h"
#include "ui/toolkit/texts.h"

namespace vs::project_resave {

class save_struct_tab final : public toolkit::docker_base {
public:
    save_struct_tab();

    element main_element() override { return content_; }

    // `output_path` points to the tab's text.
    void get_settings(structure_settings& settings) const;
    // Sets the check boxes, which act on each other as they do for the user; nothing else.
    void apply_settings(const structure_settings& settings);

private:
    void connect();
    void lay_out();

    toolkit::label path_label_;
    toolkit::file_input path_;
    toolkit::checkbox layer_names_;
    toolkit::checkbox table_names_;
    toolkit::checkbox table_columns_;
    toolkit::checkbox layout_layers_;
    toolkit::checkbox legend_content_;
    toolkit::checkbox legend_columns_;
    toolkit::checkbox file_paths_;
    toolkit::dropdownex indent_;
    toolkit::groupbox options_box_;
    toolkit::grid_layout content_;
};

} // namespace vs::project_resave
