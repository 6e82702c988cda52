// One run of a command on a project: the host with the bundle in it, and the context on which the bundle
// works.
#pragma once

#include <memory>
#include <string>

#include "apps/vestra_resave/command_questions.h"
#include "apps/vestra_resave/terminal_host.h"

#include "services/collect_services.h"

namespace vs::project_resave {
class project_context;
}

namespace vestra::command {

// Starts the host in its constructor and takes it down in its destructor. One at a time.
class session {
public:
    // Loads the bundles of the options beside the one that is linked in.
    session(const common_options& options, const decided_answers& answers);
    ~session();

    // Loads a project, by its native or its drive path. On failure the reason is on the error output, in one
    // line.
    bool load(const std::string& project);
    bool load(const wide_string& path, bool show_wait, bool write_open_log);

    vs::project_resave::project_context& context() { return *context_; }
    // Whether Ctrl-C came since the last run ended.
    bool interrupted() { return terminal_.interrupted(); }

private:
    vs::project_resave::platform::process_terminal terminal_;
    terminal_host host_;
    command_questions questions_;
    vs::project_resave::resave_services services_;
    std::unique_ptr<vs::project_resave::project_context> context_;
};

} // namespace vestra::command
