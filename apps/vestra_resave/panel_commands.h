// Executes text commands on an open window, one line at a time. docs/panel.md describes the commands.
// Commands act as the user would: an element that is disabled or hidden cannot be used. User-interface thread
// only.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "reference_host/toolkit/shown_window.h"

namespace vestra::command {

// The commands and the state of one session with an open window.
class panel_commands {
public:
    // `print` is called with complete lines in UTF-8, also for errors. The window must outlive this object.
    panel_commands(toolkit::shown_window& window, std::function<void(const std::string& lines)> print);

    // Executes a command and prints the lines of the window that it changed. Prints an error for an invalid
    // command, with the possible names. An empty line does nothing. Blocks until the window has handled the
    // event, for `run` until the run has ended.
    void obey(std::string_view line);
    // Prints the whole window.
    void show();
    // Enters the path into the first field of the window, as a user would, in its native or drive form.
    // Returns false if it was rejected or there is no field; nothing is printed.
    bool set_first_field(const std::string& path);

    // True after `quit` or once the window is to be closed.
    bool is_over() const { return is_over_; }
    // True if any command was invalid or failed since the object was created.
    bool was_refused() const { return was_refused_; }

private:
    struct verb;
    static const verb verbs[];

    void help(const std::string& word);
    void show_part(const std::string& name);
    void set(const std::string& words);
    void check(const std::string& words);
    void press(const std::string& name);
    void tab(const std::string& name);
    void highlight(const std::string& words);
    void run(const std::string& word);
    void quit(const std::string& word);

    void look();
    // Prints an error and remembers that there was one.
    void refuse(const std::string& reason);
    // Returns the element with this name, or with this caption and a suitable kind. Otherwise prints an error
    // that lists the names of the elements for which `is_meant` returns true, and returns null.
    const toolkit::element_view* wanted(const std::string& name,
                                        bool (*is_meant)(const toolkit::element_view& view));
    void press_window_button(std::int32_t code);
    void print_changes(const std::string& before);

    toolkit::shown_window& window_;
    const std::function<void(const std::string&)> print_;
    // The window after the last event. Pointers into it become invalid with the next `look`.
    toolkit::element_view view_;
    bool is_over_ = false;
    bool was_refused_ = false;
};

} // namespace vestra::command
