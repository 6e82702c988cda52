// One run of the command: the host with the bundle in it, on this terminal.
#pragma once

#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "operations/project_context.h"
#include "platform/terminal.h"
#include "reference_host/shell/bundle_loader.h"
#include "reference_host/shell/terminal_front_end.h"
#include "reference_host/toolkit/dialog_connections.h"
#include "reference_host/toolkit/terminal_dialog_runner.h"

namespace vestra::command {

using vs::project_resave::wide_string;
using vs::project_resave::wide_view;

// What all commands share.
struct common_options {
    std::vector<std::string> drives;  // "C=/folder"
    std::vector<std::string> bundles; // libraries, by their native or their drive paths
    std::string language;             // "ru", "en", or empty for the one of the environment
    bool quiet = false;
    bool json = false;
};

enum exit_code : int { done = 0, problems = 1, wrong_use = 2, not_saved = 3, stopped = 130 };

// What a session throws that cannot begin: which bundle could not be loaded, and why.
struct bundle_not_loaded : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// Starts the host in its constructor and takes it down in its destructor. One at a time.
class session {
public:
    // Loads the bundles of the options beside the one that is linked in. `front` tells how questions are
    // answered; its `quiet` is taken from the options.
    session(const common_options& options, shell::terminal_options front);
    ~session();

    // Loads a project, by its native or its drive path. On failure the reason is on the error output, in one
    // line.
    bool load(const std::string& project);

    vs::project_resave::project_context& context() { return *context_; }

private:
    vs::project_resave::platform::process_terminal terminal_;
    shell::terminal_front_end front_end_;
    shell::front_end_override front_end_in_force_;
    shell::service_registry registry_;
    shell::bundle_loader bundles_;
    toolkit::terminal_dialog_runner dialog_runner_;
    std::optional<toolkit::dialog_connections> dialogs_;
    vs::project_resave::resave_services services_;
    std::optional<vs::project_resave::project_context> context_;
};

// Maps the drives and sets the language; the answer is what is wrong with them, or nothing.
std::optional<std::string> apply(const common_options& options);

// One line on the error output, with the program's name in front.
void complain(const std::string& reason);

} // namespace vestra::command
