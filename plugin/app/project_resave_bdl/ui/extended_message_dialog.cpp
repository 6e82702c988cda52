#include "ui/extended_message_dialog.h"

#include "framework/resources/strings.h"

namespace vs::project_resave::detail {

namespace {

constexpr int32_t processing_errors = 517;
constexpr int32_t ok_words = 10001;
constexpr int32_t ok_code = 1;

} // namespace

extended_message_dialog::extended_message_dialog(const wide_string& message)
    : heading(load_string(processing_errors)),
      buttons({{load_string(ok_words), ok_code}}, [] { return true; }), text(20, 7), content(2, 1) {
    text.set_text(message);
    content.place(0, 0, heading);
    content.place(1, 0, text);
    content.set_spare_row(1);
}

} // namespace vs::project_resave::detail
