// Shows dialogs on a terminal.
#pragma once

#include <optional>
#include <string>

#include "host/toolkit/modal_dialog.h"
#include "platform/terminal.h"
#include "reference_host/toolkit/element_view.h"

namespace vestra::toolkit {

// Writes the dialog out and reads what to do with it, line by line: an empty line accepts it (presses its
// first button), "cancel", Ctrl-C and the end of the input cancel it, anything else is the new path in its
// field, as a person types paths, and writes the dialog out again. Where nobody can be asked a dialog is
// written out and counts as cancelled.
class terminal_dialog_runner final : public vs::project_resave::dialog_runner_impl {
public:
    // The terminal must outlive the runner. A quiet one lets dialogs that only tell something pass unseen.
    explicit terminal_dialog_runner(vs::project_resave::platform::terminal& terminal, bool quiet = false)
        : terminal_(terminal), quiet_(quiet) {}

    std::int32_t run(vs::project_resave::docker content) override;

private:
    // What the line closes the dialog with; nothing if it stays open.
    static std::optional<std::int32_t> obey(const element_view& dialog, const std::string& line);

    vs::project_resave::platform::terminal& terminal_;
    bool quiet_;
};

} // namespace vestra::toolkit
