#include "ui/extended_message_dialog.h"

#include "framework/resources/strings.h"

namespace vs::project_resave::detail {

extended_message_dialog::extended_message_dialog(const wide_string& message)
    : heading(load_string(text::resave_errors)),
      buttons({{load_string(text::toolkit_ok), toolkit::ok_code}}, [] { return true; }), text(20, 7),
      content(2, 1) {
    text.set_text(message);
    content.place(0, 0, heading);
    content.place(1, 0, text);
    content.set_spare_row(1);
}

} // namespace vs::project_resave::detail
