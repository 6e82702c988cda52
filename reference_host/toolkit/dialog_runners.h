// Who runs a dialog: a script, or a person at a terminal.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "framework/border/ref.h"
#include "host/interfaces/service_visitor.h"
#include "host/toolkit/modal_dialog.h"
#include "platform/terminal.h"
#include "reference_host/toolkit/element_view.h"

namespace vestra::toolkit {

// Lets the modal dialogs of all bundles reach one of the host's dialog runners, for the connection's own
// life.
class dialog_connections final
    : private vs::project_resave::polymorphic<
          vs::project_resave::modal_dialog_service_visitor_impl,
          vs::project_resave::polymorphic<vs::project_resave::service_visitor_impl>> {
public:
    // Connects every modal dialog that the registry in force finds, so to be made when the bundles are
    // loaded. The runner must outlive the connections; the dialogs need not.
    explicit dialog_connections(vs::project_resave::dialog_runner_impl& runner);
    ~dialog_connections();
    dialog_connections(const dialog_connections&) = delete;
    dialog_connections& operator=(const dialog_connections&) = delete;

private:
    void visit(vs::project_resave::modal_dialog_service_pointer service) override;

    const vs::project_resave::dialog_runner runner_;
    std::vector<vs::project_resave::weak_ref<vs::project_resave::modal_dialog_service_impl>> services_;
};

// A dialog runner that does what a function says: for tests and for programs without a person.
class scripted_dialog_runner final : public vs::project_resave::dialog_runner_impl {
public:
    // Gets the walked dialog, may send events through it, and answers what the user closed it with; 0 is
    // cancel. The view is good for the call.
    using script = std::function<std::int32_t(const element_view& dialog)>;

    explicit scripted_dialog_runner(script plays) : script_(std::move(plays)) {}

    std::int32_t run(vs::project_resave::docker content) override {
        return script_(look_at(vs::project_resave::cast_to<vs::project_resave::element_impl>(content)));
    }

private:
    const script script_;
};

// Shows dialogs on a terminal.
// Writes out what the dialog says, line by line, with paths as the operating system names them, and reads
// what to do with it, line by line: an empty line accepts it (presses its first button), "cancel", Ctrl-C and
// the end of the input cancel it, anything else is the new path in its field, as a person types paths, and
// writes the dialog out again. Where nobody can be asked a dialog is written out and counts as cancelled.
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
