// The host of this program: its services, bundles and terminal. Main thread only.
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

// The exit status of every command. `stopped` becomes the status of the signal that ended the program, if it
// was not Ctrl-C.
enum exit_code : int { done = 0, problems = 1, wrong_use = 2, not_saved = 3, stopped = 130 };

// Thrown if the host cannot start, because a bundle could not be loaded.
struct bundle_not_loaded {
    wide_string path;
    wide_string reason;
};

// The services, bundles and dialogs of a program on a terminal. The terminal is the current front end as long
// as this object exists. Only one can exist at a time. The destructor unloads all bundles.
class terminal_host {
public:
    // Both arguments must outlive the host.
    terminal_host(vs::project_resave::platform::terminal& terminal, const common_options& options);
    ~terminal_host();

    // Start the linked-in bundle, load those of the options, or load one by its drive path. The last two
    // throw bundle_not_loaded.
    void start_own_bundle();
    void load_bundles();
    void load(const wide_string& path);
    // Lets bundles without a service get those of others, and shows their dialogs on the terminal. Call it
    // after bundles were added, each time.
    void connect();
    // Throws if a resave cannot use a service of a bundle, or if it has none although it `must_have_one`: its
    // data would be left out without a word.
    void check_services(bool must_have_one);
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

// Shows the progress of copying or reading `total` bytes until the destructor; 0 shows steps instead of
// bytes. Opens its own window if there is a caption, otherwise uses the open one. Only one can exist at a
// time.
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
// Captions for such windows, in the current language.
wide_view comparing_caption();
wide_view summing_caption();
wide_view packing_caption();
wide_view reading_caption();

// Sets the language of the host's settings: "ru" or "en", or that of the environment if empty. Everything
// printed later is in it.
void speak(const std::string& language);
// Sets the language and maps the drives of the options; those of VESTRA_DRIVES exist anyway and are only
// checked. Returns an error if a drive is wrong or mapped twice; those before it stay mapped.
std::optional<std::string> apply(const common_options& options);

// Prints one line with the program name on standard error; control characters in the reason are escaped.
void complain(const std::string& reason);

} // namespace vestra::command
