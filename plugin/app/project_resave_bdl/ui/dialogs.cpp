// The dialogs' elements, and how they are shown: the dialog is built, handed to the host's runner, and read
// after the user has closed it.

#include "ui/dialogs.h"

#include "framework/resources/strings.h"
#include "operations/run/path_files.h"

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

namespace vs::dialog {

using project_resave::load_string;
using project_resave::path_exists;
using project_resave::wide_string;
namespace text = project_resave::text;

unique_name_dialog::unique_name_dialog(const wide_string& source_path, const wide_string& proposed_path)
    : groupbox(4, 1), explanation_(load_string(text::file_name_exists)), source_(source_path),
      request_(load_string(text::set_file_path)), path_(project_resave::file_input_mode::new_file) {
    path_.set_text(proposed_path);
    path_.set_validator([this](const wide_string& entered) { return take(entered); });
    place(0, 0, explanation_);
    place(1, 0, source_);
    place(2, 0, request_);
    place(3, 0, path_);
    set_spare_row(3);
}

// Checked again, since the untouched proposal exists and a file may have been created meanwhile.
wide_string unique_name_dialog::free_path() const {
    return path_exists(path_.text()) ? wide_string() : path_.text();
}

bool unique_name_dialog::take(const wide_string& entered) {
    // Kept as users know it: refusing empties the field instead of keeping what the user typed.
    if (!path_exists(entered)) return true;
    project_resave::show_error(text::file_name_exists);
    path_.set_text({});
    return false;
}

} // namespace vs::dialog

namespace vs::project_resave {

using detail::extended_message_dialog;
using dialog::unique_name_dialog;

unique_name_answer show_unique_name_dialog(const wide_string& source, const wide_string& proposed) {
    const auto* service = modal_dialog_service<unique_name_dialog::id>::slot;
    if (!service) return {};
    unique_name_dialog shown(source, proposed);
    dialog_docker content(unique_name_dialog::title, shown);
    // A dialog without a runner counts as cancelled, too.
    if (service->own_dialog.run(content) == 0) return {};
    return {true, shown.free_path()};
}

void show_extended_message_dialog(const wide_string& text) {
    const auto* service = modal_dialog_service<extended_message_dialog::id>::slot;
    if (!service) return;
    extended_message_dialog shown(text);
    dialog_docker content(extended_message_dialog::title, shown.content, shown.buttons);
    service->own_dialog.run(content);
}

} // namespace vs::project_resave
