// Sets up the host for a command: language, drives, front end, bundles and dialogs.
#include "apps/vestra_resave/terminal_host.h"

#include <cctype>
#include <cstdlib>
#include <iostream>
#include <set>

#include "apps/vestra_resave/words.h"
#include "framework/bundle_entry.h"
#include "platform/volumes.h"
#include "reference_host/shell/front_end.h"

namespace vestra::command {

using namespace vs::project_resave;

namespace {

bool is_russian(const std::string& language) {
    if (!language.empty()) return language == "ru";
    // The order in which POSIX programs look for the language of messages; the first that is set decides.
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"})
        if (const char* value = std::getenv(name); value && *value)
            return std::string_view(value).starts_with("ru");
    return false;
}

} // namespace

void complain(const std::string& reason) {
    std::cerr << "vestra-resave: " << shell::one_line(platform::from_utf8(reason)) << '\n';
}

shown_transfer::shown_transfer(shell::front_end& screen, uint64_t total, wide_view caption)
    : screen_(screen), has_window_(!caption.empty()),
      watch_([&screen](uint64_t bytes) { screen.bytes_moved(bytes); }) {
    screen_.expect_bytes(total);
    if (!has_window_) return;
    screen_.progress_opened(false);
    screen_.progress_caption(caption);
}

shown_transfer::~shown_transfer() {
    screen_.expect_bytes(0);
    if (has_window_) screen_.progress_closed();
}

wide_view comparing_caption() {
    return shell::settings().language_offset == 0 ? u"Сравнение копий" : u"Comparing copies";
}

wide_view summing_caption() {
    return shell::settings().language_offset == 0 ? u"Контрольные суммы" : u"Computing checksums";
}

wide_view packing_caption() {
    return shell::settings().language_offset == 0 ? u"Запись архива" : u"Writing the archive";
}

wide_view reading_caption() {
    return shell::settings().language_offset == 0 ? u"Чтение архива" : u"Reading the archive";
}

void speak(const std::string& language) {
    shell::settings().language_offset = is_russian(language) ? 0 : 50000;
}

std::optional<std::string> apply(const common_options& options) {
    // First, so that the errors below are in this language.
    speak(options.language);
    std::string reason;
    if (!platform::check_drive_variable(reason)) return reason;
    std::set<int> letters;
    for (const std::string& drive : options.drives) {
        if (!platform::add_drive(drive, reason)) return reason;
        // `add_drive` would silently replace the first one.
        if (!letters.insert(std::toupper(static_cast<unsigned char>(drive.front()))).second)
            return say("--drive: a drive is mapped twice: \"%1\"", {drive});
    }
    return std::nullopt;
}

terminal_host::terminal_host(platform::terminal& terminal, const common_options& options)
    : options_(options), front_end_(terminal, options.quiet), front_end_in_force_(front_end_),
      bundles_(registry_), dialog_runner_(terminal, options.quiet) {}

terminal_host::~terminal_host() {
    // Dialogs call into bundles, so they go first.
    dialogs_.reset();
    bundles_.unload_all();
}

void terminal_host::start_own_bundle() { bundles_.start(&vs_bundle_interface_to_custom_pointer); }

void terminal_host::load_bundles() {
    for (const std::string& file : options_.bundles) load(platform::drive_path(file));
}

void terminal_host::load(const wide_string& path) {
    if (const auto error = bundles_.load(path)) throw bundle_not_loaded{error->path, error->reason};
}

void terminal_host::connect() {
    registry_.start_clients();
    // Made anew each time, since a connection knows only the bundles of that moment.
    dialogs_.emplace(dialog_runner_);
}

void terminal_host::check_services(bool must_have_one) {
    if (const auto error = bundles_.find_fault(u"vestra/resave_project", must_have_one))
        throw bundle_not_loaded{error->path, error->reason};
}

} // namespace vestra::command
