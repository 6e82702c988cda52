// Shows a report that is too long for a message box.
#pragma once

#include "framework/resources/text_rows.h"
#include "ui/toolkit/button_box.h"
#include "ui/toolkit/grid_layout.h"
#include "ui/toolkit/texts.h"

namespace vs::project_resave::detail {

class extended_message_dialog {
public:
    struct id {
        static constexpr const char16_t* name = u"vs_project_resave_extended_message_dialog_dialog";
    };
    static constexpr int32_t title = text::warning_title;

    explicit extended_message_dialog(const wide_string& message);

    toolkit::label heading;
    toolkit::button_box buttons; // one OK, which closes
    toolkit::multiline_output text;
    toolkit::grid_layout content;
};

} // namespace vs::project_resave::detail
