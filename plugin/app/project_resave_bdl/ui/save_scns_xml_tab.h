// The tab that writes scene files.
#pragma once

#include "operations/run_settings.h"
#include "ui/toolkit/docker_base.h"
#include "ui/toolkit/file_input.h"
#include "ui/toolkit/grid_layout.h"
#include "ui/toolkit/radiobutton.h"
#include "ui/toolkit/stack_layout.h"
#include "ui/toolkit/texts.h"

namespace vs::project_resave {

class save_scns_xml_tab final : public toolkit::docker_base {
public:
    save_scns_xml_tab();

    element main_element() override { return content_; }

    // `folder` points to the tab's text.
    void get_settings(scene_file_settings& settings) const;
    // 0: a scene file that exists stays, and the new one gets another name; 1: it is rewritten. Nothing for
    // any other.
    void select_radio(uint32_t index);

private:
    toolkit::label folder_label_;
    toolkit::file_input folder_;
    toolkit::label exists_label_;
    toolkit::radio_group if_exists_;
    toolkit::radiobutton new_name_;
    toolkit::radiobutton rewrite_;
    toolkit::stack_layout if_exists_row_;
    toolkit::groupbox options_box_;
    toolkit::grid_layout content_;
};

} // namespace vs::project_resave
