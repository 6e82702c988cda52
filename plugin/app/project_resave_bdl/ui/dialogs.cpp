#include "ui/dialogs.h"

#include "ui/dialog_factories.h"

namespace vs::project_resave {

using detail::extended_message_dialog;
using dialog::unique_name_dialog;

unique_name_answer show_unique_name_dialog(const wide_string& source, const wide_string& proposed) {
    const auto* service = modal_dialog_service<unique_name_dialog::id>::slot;
    if (!service) return {};
    unique_name_dialog shown(source, proposed);
    dialog_docker content(unique_name_dialog::title, shown);
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
