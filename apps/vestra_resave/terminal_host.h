// The host of this program: its services, bundles and terminal.
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

// Options of all commands.
struct common_options {
    std::vector<std::string> drives;  // "C=/folder"
    std::vector<std::string> bundles; // libraries, as native or drive paths
    std::string language;             // "ru", "en", or empty for the language of the environment
    bool quiet = false;
    bool json = false;
};

enum exit_code : int { done = 0, problems = 1, wrong_use = 2, not_saved = 3, stopped = 130 };

// Thrown if the host cannot start, because a bundle could not be loaded.
struct bundle_not_loaded {
    wide_string path;
    wide_string reason;
};

// Only one object can exist at a time. The destructor unloads all bundles.
class terminal_host {
public:
    // The terminal must outlive the host.
    terminal_host(vs::project_resave::platform::terminal& terminal, const common_options& options);
    ~terminal_host();

    // Start the linked-in bundle, load those of the options, or load one by its drive path.
    void start_own_bundle();
    void load_bundles();
    void load(const wide_string& path);
    // Connects dialogs; call it after bundles were added.
    void connect();
    // Throws if a bundle has nothing for a resave: its data would be left out without a word.
    void check_services();
    // Returns the front end of the terminal.
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

// Shows the progress of copying or reading `total` bytes until the destructor. Opens its own window if there
// is a caption, otherwise uses the open one.
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
// Captions for such windows.
wide_view comparing_caption();
wide_view summing_caption();
wide_view packing_caption();
wide_view reading_caption();

// Sets the language: "ru" or "en", or that of the environment if empty.
void speak(const std::string& language);
// Maps the drives and sets the language. Returns an error if a drive is wrong.
std::optional<std::string> apply(const common_options& options);

// Prints one line with the program name on standard error.
void complain(const std::string& reason);

} // namespace vestra::command
