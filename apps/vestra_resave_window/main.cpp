// The entry point of the window: parses the options, maps the drives and starts Qt.
#include <CLI/CLI.hpp>
#include <QApplication>
#include <cstdlib>
#include <iostream>

#include "apps/vestra_resave/command_pages.h"
#include "apps/vestra_resave/words.h"
#include "apps/vestra_resave_window/main_window.h"
#include "platform/terminal.h"
#include "platform/volumes.h"
#include "reference_host/model/counted.h"
#include "reference_host/shell/front_end.h"

namespace {

using namespace vestra;
namespace platform = vs::project_resave::platform;

struct command_line {
    std::string project, language;
    std::vector<std::string> drives, bundles;
};

// Ends the program at once. Qt may be in the middle of its start, so nothing can be cleaned up; nothing has
// been made yet, either.
[[noreturn]] void end_without_display() {
    std::cerr << "vestra-resave-window: no display: set DISPLAY or WAYLAND_DISPLAY; without a screen use "
                 "vestra-resave "
                 "or vestra-resave panel\n";
    std::_Exit(2);
}

// Qt aborts the program if it finds no display. It logs a message first, and this handler
// then ends the program with an exit status and a line that a user understands. Warnings of Qt are for
// developers and are dropped.
void on_message(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type == QtFatalMsg) {
        if (!QCoreApplication::instance() || QCoreApplication::startingUp()) end_without_display();
        std::cerr << "vestra-resave-window: " << text.toStdString() << '\n';
    } else if (type == QtCriticalMsg) {
        std::cerr << text.toStdString() << '\n';
    }
}

// Checked before Qt starts, because that is faster and catches the usual case. QT_QPA_PLATFORM can name a
// platform that needs no display.
bool has_display() {
    const auto is_set = [](const char* name) {
        const char* const value = std::getenv(name);
        return value && *value;
    };
    return is_set("QT_QPA_PLATFORM") || is_set("DISPLAY") || is_set("WAYLAND_DISPLAY");
}

std::optional<int> parse(int argc, char** argv, command_line& line) {
    CLI::App app("Copy mapping projects with all their files to a new place, in a window",
                 "vestra-resave-window");
    command::add_pages(app);
    app.add_option("PROJECT", line.project, "Project file to open, as a native path or as C:\\...");
    app.add_option("--drive", line.drives, "Map a drive letter to a folder, such as C=/data/c (repeatable)")
        ->type_name("X=FOLDER")
        ->allow_extra_args(false);
    app.add_option("--bundle", line.bundles, "Load an additional bundle (repeatable)")
        ->type_name("FILE")
        ->allow_extra_args(false);
    app.add_option("--language", line.language, "Set the language of the window, now and for later runs")
        ->check(CLI::IsMember({"ru", "en"}));
    std::vector<std::string> arguments = platform::program_arguments(argc, argv);
    try {
        std::ranges::reverse(arguments); // the parser takes them from the end
        app.parse(std::move(arguments));
    } catch (const CLI::ParseError& error) {
        return error.get_exit_code() == 0 ? app.exit(error) : (app.exit(error), 2);
    }
    return std::nullopt;
}

// Maps the stored drives and then those of the command line. Returns an error if one of the command line is
// invalid.
std::optional<std::string> map_all_drives(const window::stored_settings& stored,
                                          const std::vector<std::string>& drives) {
    window::map_drives(stored.drives()); // a stored folder that no longer exists is ignored
    std::string reason;
    for (const std::string& each : drives)
        // Mapped last, so that the command line overrides what is stored.
        if (!platform::add_drive(each, reason)) return command::say_known(reason);
    return std::nullopt;
}

int show_window(const command_line& line) {
    window::stored_settings stored;
    if (!line.language.empty()) stored.set_language(QString::fromStdString(line.language));
    shell::settings().language_offset = stored.language() == "ru" ? 0 : 50000;
    if (const auto wrong = map_all_drives(stored, line.drives)) {
        std::cerr << "vestra-resave-window: " << *wrong << '\n';
        return 2;
    }
    std::vector<wide_string> bundles;
    for (const std::string& each : line.bundles) bundles.push_back(platform::drive_path(each));
    try {
        window::main_window window(stored, std::move(bundles));
        window.show();
        if (!line.project.empty()) window.open_project(platform::drive_path(line.project));
        return QApplication::exec();
    } catch (const window::no_tool& failure) {
        std::cerr << "vestra-resave-window: " << failure.reason << '\n';
        return 2;
    }
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    command_line line;
    // Parsed before the check for a display: the build prints the manual page without one.
    if (const auto end = parse(argc, argv, line)) return *end;
    if (!has_display()) end_without_display();
    qInstallMessageHandler(&on_message);
    int qt_argc = 1; // the arguments are not for Qt
    const QApplication application(qt_argc, argv);
    QGuiApplication::setDesktopFileName("vestra-resave-window"); // the desktop finds the name and icon by it
    QGuiApplication::setWindowIcon(QIcon::fromTheme("vestra-resave-window"));
    const int end = show_window(line);
    if (const std::size_t left = living_objects()) {
        std::cerr << "vestra-resave-window: internal error: " << left << " objects were left\n";
        return 3;
    }
    return end;
}
