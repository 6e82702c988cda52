// Connects dialogs of bundles to a runner, and runs them by typed answers on a terminal.
#include "reference_host/toolkit/dialog_runners.h"

#include "platform/path_text.h"
#include "platform/text.h"
#include "platform/volumes.h"
#include "reference_host/shell/front_end.h"
#include "reference_host/shell/service_registry.h"
#include "reference_host/shell/terminal_front_end.h"

namespace vestra::toolkit {

using namespace vs::project_resave;

namespace {

void install(const modal_dialog_service_pointer& service, const dialog_runner& runner) {
    call<&modal_dialog_impl::set_runner>(call<&modal_dialog_service_impl::dialog>(service), runner);
}

} // namespace

dialog_connections::dialog_connections(dialog_runner_impl& runner)
    : runner_(pointer_to<dialog_runner_impl>(runner)) {
    shell::visit_services(u"vestra/modal_dialog",
                          identity_of(static_cast<modal_dialog_service_visitor_impl&>(*this)));
}

// A dialog holds its runner weakly, so it must not keep one that is about to be destroyed.
dialog_connections::~dialog_connections() {
    for (const auto& service : services_) install(service.get(), {});
}

void dialog_connections::visit(modal_dialog_service_pointer service) {
    install(service, runner_);
    services_.emplace_back(service);
}

using namespace vs::project_resave;

namespace {

constexpr std::int32_t cancelled = 0;
constexpr std::int32_t accepted = 1;

const char* prompt(bool takes_path) {
    if (shell::settings().language_offset != 0)
        return takes_path ? "Enter: OK, or a new path, or \"cancel\": " : "Enter: OK, or \"cancel\": ";
    return takes_path ? "Enter: OK, либо новый путь, либо \"отмена\": " : "Enter: OK, либо \"отмена\": ";
}

// Appends the texts of the visible elements of a dialog, without its buttons.
void add_words(std::string& out, const element_view& view) {
    if (!view.visible || view.kind == u"button_box") return;
    if (!view.caption.empty()) out += shell::printable(view.caption) + '\n';
    // A single line that begins with a drive is a path, and is printed as the user would type it.
    const bool is_path = path_root(view.text).size() == 2 && view.text.find(u'\n') == wide_string::npos;
    if (!view.text.empty() && view.text != view.caption)
        out += (is_path ? shell::one_line(platform::from_utf8(platform::native_text(view.text)))
                        : shell::printable(view.text)) +
               '\n';
    for (const element_view& child : view.children) add_words(out, child);
}

std::string words_of(const element_view& dialog) {
    std::string out;
    add_words(out, dialog);
    return out;
}

} // namespace

std::int32_t terminal_dialog_runner::run(docker content) {
    const element root = cast_to<element_impl>(content);
    for (;;) {
        // Read again each time: a refused path can have changed the texts.
        const element_view dialog = look_at(root);
        // Without a field the dialog only shows a text, which `quiet` suppresses.
        if (quiet_ && !find(dialog, u"file_input")) return accepted;
        // The current line may hold a progress bar.
        terminal_.write("\n" + words_of(dialog));
        // Printed even though nobody can answer, so that a log shows what was asked.
        if (!terminal_.asks()) return cancelled;
        terminal_.write(prompt(find(dialog, u"file_input") != nullptr));
        std::string line;
        if (terminal_.read_line(line) != platform::line_result::read) return cancelled;
        if (const auto answer = obey(dialog, line)) return *answer;
    }
}

std::optional<std::int32_t> terminal_dialog_runner::obey(const element_view& dialog,
                                                         const std::string& line) {
    if (line == "cancel" || line == "отмена") return cancelled;
    if (line.empty()) {
        const element_view* box = find(dialog, u"button_box");
        if (!box || box->buttons.empty()) return accepted;
        // The first button of a dialog accepts it. A dialog that this button does not close is shown again.
        const std::int32_t code = box->buttons.front().code;
        return press(*box, code) ? std::optional(code) : std::nullopt;
    }
    if (const element_view* field = find(dialog, u"file_input"))
        enter_text(*field, platform::drive_path(line));
    return std::nullopt;
}

} // namespace vestra::toolkit
