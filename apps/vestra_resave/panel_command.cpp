// The command `panel`: opens the bundle's window and drives it with commands from standard input.
#include "apps/vestra_resave/commands.h"

#include <iostream>
#include <memory>
#include <optional>

#include "apps/vestra_resave/panel_commands.h"
#include "apps/vestra_resave/problems.h"
#include "apps/vestra_resave/words.h"
#include "platform/library.h"
#include "platform/volumes.h"
#include "reference_host/files/files.h"
#include "reference_host/model/project.h"
#include "reference_host/shell/front_end.h"
#include "reference_host/toolkit/app_window.h"

namespace vestra::command {

namespace platform = vs::project_resave::platform;

namespace {

constexpr const char16_t* tool = u"vestra/app/project_resave_app";
constexpr const char16_t* tool_library = u"vsk_project_resave_bdl";

// Flushed at once, since another program may be waiting for these lines before it sends the next command.
void print(const std::string& lines) { std::cout << lines << std::flush; }

// Always asks questions: if the input is not a terminal, the lines of the script are the answers and are
// printed. So the output of a script reads like a session at a keyboard.
class panel_terminal final : public platform::terminal {
public:
    bool shows() override { return process_.shows(); }
    bool asks() override { return true; }
    unsigned width() override { return process_.width(); }
    void write(std::string_view text) override { process_.write(text); }
    platform::line_result read_line(std::string& line) override {
        const platform::line_result result = process_.read_line(line);
        if (result == platform::line_result::read && !process_.asks()) print(line + '\n');
        return result;
    }
    bool interrupted() override { return process_.interrupted(); }
    void forget_interrupt() override { process_.forget_interrupt(); }

private:
    platform::process_terminal process_;
};

// The project that is open in the host while the window is used.
class open_project {
public:
    // Returns why the project could not be read.
    std::optional<refusal> read(const std::string& path) {
        const wide_string file = platform::drive_path(path);
        if (const auto error = files::read_project(file, project_))
            return refusal{wrong_use, {{own_kind::not_loaded, {}, file, {}, error->why()}}};
        // Set only now, so that after a failure no project is open.
        shell::settings().open_project = &project_;
        return std::nullopt;
    }
    ~open_project() { shell::settings().open_project = nullptr; }

private:
    vestra::project project_;
};

// Opens the tool of a bundle given by --bundle, otherwise of the bundle installed with this program. The
// installed bundle is loaded as a library, as in any host, although it is linked into this program as well.
std::unique_ptr<toolkit::app_window> open_window(terminal_host& host) {
    host.load_bundles();
    host.connect();
    auto window = std::make_unique<toolkit::app_window>(tool);
    if (!window->is_open()) {
        host.load(platform::installed_library(tool_library));
        host.connect();
        window = std::make_unique<toolkit::app_window>(tool);
    }
    host.check_services(false); // a bundle may only have the tool
    return window;
}

int drive(toolkit::app_window& window, platform::terminal& terminal, const std::string& project) {
    panel_commands commands(window, &print);
    if (!project.empty() && !commands.set_first_field(project)) {
        const wide_string path = platform::drive_path(project);
        complain(line_of({own_kind::not_loaded, {}, path, {}, read_error_of(path)}));
        return wrong_use;
    }
    commands.show();
    while (!commands.is_over()) {
        print("> ");
        std::string line;
        if (terminal.read_line(line) != platform::line_result::read) {
            // Ends the line of the prompt.
            print("\n");
            break;
        }
        commands.obey(line);
    }
    return commands.was_refused() ? problems : done;
}

} // namespace

int drive_panel(const panel_request& request, const common_options& options) {
    int end = done;
    {
        panel_terminal terminal;
        std::optional<open_project> opened;
        if (!request.open_project.empty())
            if (const auto early = opened.emplace().read(request.open_project))
                return end_with(*early, options);
        terminal_host host(terminal, options);
        end = drive(*open_window(host), terminal, request.project);
    }
    // Counted when window, host and project are gone, hence the block above.
    if (const std::size_t left = living_objects()) {
        complain(say("internal error: %1 objects still alive after the window was closed",
                     {std::to_string(left)}));
        return not_saved;
    }
    print(say("closed, no objects left") + '\n');
    return end;
}

} // namespace vestra::command
