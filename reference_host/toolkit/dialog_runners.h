// Runners for modal dialogs: a script, or a user at a terminal.
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

// Connects the modal dialogs of all bundles to a dialog runner for the lifetime of this object.
class dialog_connections final
    : private vs::project_resave::polymorphic<
          vs::project_resave::modal_dialog_service_visitor_impl,
          vs::project_resave::polymorphic<vs::project_resave::service_visitor_impl>> {
public:
    // Connects every modal dialog that the current registry finds, so create it after the bundles are loaded.
    // The runner must outlive this object; the dialogs need not.
    explicit dialog_connections(vs::project_resave::dialog_runner_impl& runner);
    ~dialog_connections();
    dialog_connections(const dialog_connections&) = delete;
    dialog_connections& operator=(const dialog_connections&) = delete;

private:
    void visit(vs::project_resave::modal_dialog_service_pointer service) override;

    const vs::project_resave::dialog_runner runner_;
    // Weak, since a bundle may be unloaded before this object is destroyed.
    std::vector<vs::project_resave::weak_ref<vs::project_resave::modal_dialog_service_impl>> services_;
};

// A dialog runner that calls a function: for tests and for programs without a user.
class scripted_dialog_runner final : public vs::project_resave::dialog_runner_impl {
public:
    // Gets the elements of the dialog, may send events to them, and returns the code that the user closed it
    // with; 0 is cancel. The view is valid during the call.
    using script = std::function<std::int32_t(const element_view& dialog)>;

    explicit scripted_dialog_runner(script plays) : script_(std::move(plays)) {}

    std::int32_t run(vs::project_resave::docker content) override {
        return script_(look_at(vs::project_resave::cast_to<vs::project_resave::element_impl>(content)));
    }

private:
    const script script_;
};

// Shows dialogs on a terminal. Prints the texts of the dialog, with paths in the form of the operating
// system, and reads commands line by line. An empty line accepts the dialog (presses its first button).
// "cancel", Ctrl-C and the end of the input cancel it. Any other line is entered as the path in its field,
// and the dialog is printed again. Without a terminal to ask at, the dialog is printed and counts as
// cancelled.
class terminal_dialog_runner final : public vs::project_resave::dialog_runner_impl {
public:
    // The terminal must outlive the runner. If `quiet`, dialogs without a field are accepted without printing
    // them.
    explicit terminal_dialog_runner(vs::project_resave::platform::terminal& terminal, bool quiet = false)
        : terminal_(terminal), quiet_(quiet) {}

    // Blocks until the dialog is closed. Returns the code of its first button if it is accepted, or 1 if it
    // has no buttons or was not printed; 0 if it is cancelled. A dialog whose button does not close it is
    // printed again.
    std::int32_t run(vs::project_resave::docker content) override;

private:
    // Runs a typed line. Returns the code that closes the dialog after it; nothing if the dialog stays open.
    static std::optional<std::int32_t> obey(const element_view& dialog, const std::string& line);

    vs::project_resave::platform::terminal& terminal_;
    bool quiet_;
};

} // namespace vestra::toolkit
