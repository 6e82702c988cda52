// The tab that checks the letter case of paths. It has no place in the window: the panel keeps it for the day
// it gets one.
#pragma once

#include "framework/resources/strings.h"
#include "ui/toolkit/docker_base.h"
#include "ui/toolkit/file_input.h"
#include "ui/toolkit/grid_layout.h"
#include "ui/toolkit/texts.h"

namespace vs::project_resave {

class checked_path_register_tab final : public toolkit::docker_base {
public:
    checked_path_register_tab()
        : docker_base(wide_string()), label_(load_string(text::structure_file_path)),
          path_(file_input_mode::text_file, load_string(text::text_file_mask)), content_(2, 1) {
        content_.place(0, 0, label_);
        content_.place(1, 0, path_);
    }

    element main_element() override { return content_; }

    const wide_string& get_path() const { return path_.text(); }

private:
    toolkit::label label_;
    toolkit::file_input path_;
    toolkit::grid_layout content_;
};

} // namespace vs::project_resave
