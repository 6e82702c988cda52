// What a person or a script says to a window that stands open, a line at a time.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "reference_host/toolkit/shown_window.h"

namespace vestra::command {

class panel_commands {
public:
    // `print` gets whole lines, in UTF-8. The window must outlive this.
    panel_commands(toolkit::shown_window& window, std::function<void(const std::string& lines)> print);

    // Does what the line says, and prints the lines of the window that are new by it; or what is wrong with
    // the line, and what there is instead.
    void obey(std::string_view line);
    // Prints all of the window.
    void show();
    // Enters the path into the window's first field, as its user would. False if it was not taken.
    bool set_first_field(const std::string& path);

    // The window is to be closed.
    bool is_over() const { return is_over_; }
    // A line was not understood, or could not be done.
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
    void refuse(const std::string& reason);
    // The one of this name, or of this caption and kind; or a refusal that names those for which `is_meant`
    // holds.
    const toolkit::element_view* wanted(const std::string& name,
                                        bool (*is_meant)(const toolkit::element_view& view));
    void press_window_button(std::int32_t code);
    void print_changes(const std::string& before);

    toolkit::shown_window& window_;
    const std::function<void(const std::string&)> print_;
    toolkit::element_view view_; // as it is after the last event
    bool is_over_ = false;
    bool was_refused_ = false;
};

} // namespace vestra::command
