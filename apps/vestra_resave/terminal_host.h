// The host of this program: its services and bundles, and a person at a terminal.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/system.h"
#include "platform/terminal.h"
#include "reference_host/shell/bundle_loader.h"
#include "reference_host/shell/terminal_front_end.h"
#include "reference_host/toolkit/dialog_runners.h"

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

// What a host throws that cannot begin: which bundle could not be loaded, and why.
struct bundle_not_loaded {
    wide_string path;
    wide_string reason;
};

// One at a time. Its end takes all bundles out.
class terminal_host {
public:
    // The terminal must outlive the host.
    terminal_host(vs::project_resave::platform::terminal& terminal, const common_options& options);
    ~terminal_host();

    // The bundle that is linked in, those of the options, and one more, by its drive path.
    void start_own_bundle();
    void load_bundles();
    void load(const wide_string& path);
    // To be called when bundles were added.
    void connect();
    // The person at the terminal.
    shell::terminal_front_end& front_end() { return front_end_; }

private:
    const common_options& options_;
    shell::terminal_front_end front_end_;
    shell::front_end_override front_end_in_force_;
    shell::service_registry registry_;
    shell::bundle_loader bundles_;
    toolkit::terminal_dialog_runner dialog_runner_;
    std::optional<toolkit::dialog_connections> dialogs_;
};

// Shows how far the copying or reading of so many bytes has come, as long as it exists; in a window of its
// own if there is a caption, else in the one that is open.
class shown_transfer {
public:
    shown_transfer(shell::front_end& screen, uint64_t total, wide_view caption = {});
    ~shown_transfer();
    shown_transfer(const shown_transfer&) = delete;
    shown_transfer& operator=(const shown_transfer&) = delete;

private:
    shell::front_end& screen_;
    const bool has_window_;
    vs::project_resave::platform::transfer_watch watch_;
};
// Captions of such windows.
wide_view comparing_caption();
wide_view summing_caption();
wide_view packing_caption();
wide_view reading_caption();

// Sets the language, "ru" or "en", or that of the environment if it is empty.
void speak(const std::string& language);
// Maps the drives and sets the language; the answer is what is wrong with them, or nothing.
std::optional<std::string> apply(const common_options& options);

// One line on the error output, with the program's name in front.
void complain(const std::string& reason);

} // namespace vestra::command
