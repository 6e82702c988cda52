// The commands of `panel`: finds elements by name and sends them events.
#include "apps/vestra_resave/panel_commands.h"

#include <algorithm>
#include <charconv>

#include "apps/vestra_resave/panel_words.h"
#include "apps/vestra_resave/words.h"
#include "platform/text.h"
#include "platform/volumes.h"
#include "reference_host/toolkit/element_description.h"

namespace vestra::command {

using namespace toolkit;
namespace platform = vs::project_resave::platform;

struct panel_commands::verb {
    const char* word;
    sentence arguments, what;
    void (panel_commands::*act)(const std::string& arguments);
};

const panel_commands::verb panel_commands::verbs[] = {
    {"show", "[ELEMENT]", "print the window, or a part of it", &panel_commands::show_part},
    {"set", "ELEMENT TEXT", "fill a field or choose a row of a drop-down list", &panel_commands::set},
    {"check", "ELEMENT [on|off]", "check a box, a radio button or a row", &panel_commands::check},
    {"press", "ELEMENT", "press a button, a tool, or the window's button of this number",
     &panel_commands::press},
    {"tab", "NAME", "switch to a page", &panel_commands::tab},
    {"highlight", "ROW [on|off]", "go to a row and highlight it", &panel_commands::highlight},
    {"run", {}, "press the window's first button", &panel_commands::run},
    {"help", {}, "print this help", &panel_commands::help},
    {"quit", {}, "close the window", &panel_commands::quit}};

namespace {

bool takes_text(const element_view& view) { return view.kind == u"file_input" || view.kind == u"dropdownex"; }
bool is_box(const element_view& view) { return view.kind == u"checkbox" || view.kind == u"radiobutton"; }
bool is_pressed(const element_view& view) { return view.kind == u"button" || view.kind == u"tool"; }
bool has_rows(const element_view& view) { return view.kind == u"outline"; }
bool is_page(const element_view& view) { return view.kind == u"docker"; }
bool is_any(const element_view&) { return true; }

std::string names_of(const element_view& view, bool (*is_meant)(const element_view&)) {
    std::string names = !view.name.empty() && is_meant(view) ? ' ' + view.name : std::string();
    for (const element_view& child : view.children) names += names_of(child, is_meant);
    return names;
}

// True if a user could reach the element: every element around it is enabled and visible.
bool is_within_reach(const element_view& around, const element_view& wanted) {
    if (!around.enabled || !around.visible) return false;
    if (&around == &wanted) return true;
    return std::ranges::any_of(around.children,
                               [&](const element_view& child) { return is_within_reach(child, wanted); });
}

const element_view* layout_of(const element_view& root, const element_view& page, std::uint32_t& index) {
    for (const element_view& child : root.children) {
        if (&child == &page) {
            index = static_cast<std::uint32_t>(&child - root.children.data());
            return &root;
        }
        if (const element_view* layout = layout_of(child, page, index)) return layout;
    }
    return nullptr;
}

} // namespace

panel_commands::panel_commands(shown_window& window, std::function<void(const std::string&)> print)
    : window_(window), print_(std::move(print)) {
    look();
}

void panel_commands::look() { view_ = window_.look(); }

void panel_commands::refuse(const std::string& reason) {
    was_refused_ = true;
    print_(reason + '\n');
}

void panel_commands::obey(std::string_view line) {
    std::string rest(line);
    // Scripts that were written on Windows end their lines with a carriage return.
    while (rest.ends_with(' ') || rest.ends_with('\r')) rest.pop_back();
    const std::string word = take_word(rest);
    if (word.empty()) return;
    const auto known = std::ranges::find_if(verbs, [&](const verb& each) { return word == each.word; });
    if (known != std::end(verbs)) return (this->*known->act)(rest);
    std::string words;
    for (const verb& each : verbs) words += std::string(" ") + each.word;
    refuse(say("unknown command \"%1\"; commands:%2", {word, words}));
}

void panel_commands::help(const std::string&) {
    for (const verb& each : verbs) {
        std::string line = std::string("  ") + each.word + ' ' + say(each.arguments);
        // Pads by characters, because some of them are two bytes.
        const std::size_t length = platform::from_utf8(line).size();
        line.append(length < 25 ? 26 - length : 1, ' ');
        print_(line + say(each.what) + '\n');
    }
}

void panel_commands::show() { print_(described(view_)); }

void panel_commands::show_part(const std::string& name) {
    if (name.empty()) return show();
    if (const element_view* part = wanted(unquoted(name), &is_any)) print_(described(*part));
}

const element_view* panel_commands::wanted(const std::string& name, bool (*is_meant)(const element_view&)) {
    auto found = all_named(view_, name);
    std::erase_if(found, [&](const element_view* each) { return !is_meant(*each); });
    if (found.empty()) {
        refuse(say("no such element: \"%1\"; elements:%2", {name, names_of(view_, is_meant)}));
    } else if (found.size() > 1) {
        std::string names;
        for (const element_view* each : found) names += ' ' + each->name;
        refuse(say("the name is ambiguous: \"%1\"; elements:%2", {name, names}));
        // Only `show` may look at what a user cannot reach.
    } else if (is_meant != &is_any && !is_within_reach(view_, *found.front())) {
        refuse(say("%1 is disabled", {found.front()->name}));
    } else {
        return found.front();
    }
    return nullptr;
}

void panel_commands::print_changes(const std::string& before) {
    look();
    print_(new_lines(before, described(view_)));
}

void panel_commands::set(const std::string& words) {
    std::string text = words;
    const element_view* element = wanted(take_word(text), &takes_text);
    if (!element) return;
    text = unquoted(text);
    const std::string before = described(view_);
    bool is_taken = false;
    if (element->kind == u"file_input") {
        is_taken = window_.enter_text(*element, platform::drive_path(text));
    } else {
        const wide_string choice = platform::from_utf8(text);
        const auto& rows = element->choices;
        const auto row = std::ranges::find_if(
            rows, [&](const wide_string& each) { return platform::compare_no_case(each, choice) == 0; });
        is_taken =
            row != rows.end() && window_.choose(*element, static_cast<std::uint32_t>(row - rows.begin()));
    }
    // Composed before the window is read again, which invalidates `element`.
    const std::string refusal = element->choices.empty() ? say("%1 rejected this value", {element->name})
                                                         : say("%1 rejected this value; accepted: %2",
                                                               {element->name, choices_of(*element)});
    print_changes(before);
    if (!is_taken) refuse(refusal);
}

bool panel_commands::set_first_field(const std::string& path) {
    const element_view* field = find(view_, u"file_input");
    const bool is_taken = field && window_.enter_text(*field, platform::drive_path(path));
    look();
    return is_taken;
}

void panel_commands::check(const std::string& words) {
    std::string name = words;
    const bool on = take_switch(name);
    const std::string before = described(view_);
    const element_view* outline = nullptr;
    if (const row_view* row = find_row(view_, unquoted(name), outline)) {
        if (!is_within_reach(view_, *outline)) return refuse(say("%1 is disabled", {outline->name}));
        window_.check_row(*outline, *row, on);
        return print_changes(before);
    }
    const element_view* box =
        wanted(unquoted(name), [](const element_view& view) { return is_box(view) || has_rows(view); });
    if (!box) return;
    if (has_rows(*box)) return refuse(say("a row is expected, such as %1/1", {box->name}));
    // A radio button goes off only when another one of its group goes on.
    if (!window_.set_check(*box, on))
        return refuse(say("%1 cannot be switched off; select another radio button instead", {box->name}));
    print_changes(before);
}

void panel_commands::press(const std::string& name) {
    std::int32_t code = 0;
    const char* const end = name.data() + name.size();
    // Only a window button can be named by a whole number.
    if (std::from_chars(name.data(), end, code).ptr == end && code != 0) return press_window_button(code);
    const element_view* button = wanted(unquoted(name), &is_pressed);
    if (!button) return;
    const std::string before = described(view_);
    if (button->kind == u"tool")
        window_.click_tool(*button);
    else
        window_.click(*button);
    print_changes(before);
}

void panel_commands::press_window_button(std::int32_t code) {
    const element_view* box = find(view_, u"button_box");
    const auto has_code = [code](const button_view& button) { return button.code == code; };
    if (!box || std::ranges::none_of(box->buttons, has_code))
        return refuse(say("the window has no button %1", {std::to_string(code)}));
    const std::string before = described(view_);
    // The window reports whether the button is to close it; a run keeps it open.
    is_over_ = window_.press(*box, code);
    print_changes(before);
}

void panel_commands::tab(const std::string& name) {
    const element_view* page = wanted(unquoted(name), &is_page);
    if (!page) return;
    std::uint32_t index = 0;
    const element_view* layout = layout_of(view_, *page, index);
    const std::string before = described(view_);
    window_.choose(*layout, index);
    print_changes(before);
}

void panel_commands::highlight(const std::string& words) {
    std::string path = words;
    const bool on = take_switch(path);
    const element_view* outline = nullptr;
    const row_view* row = find_row(view_, unquoted(path), outline);
    if (!row) return refuse(say("no such row: \"%1\"; rows are in:%2", {path, names_of(view_, &has_rows)}));
    if (!is_within_reach(view_, *outline)) return refuse(say("%1 is disabled", {outline->name}));
    const std::string before = described(view_);
    window_.highlight_row(*outline, *row, on);
    print_changes(before);
}

void panel_commands::run(const std::string&) {
    const element_view* box = find(view_, u"button_box");
    if (!box || box->buttons.empty()) return refuse(say("the window has no buttons"));
    press_window_button(box->buttons.front().code);
}

void panel_commands::quit(const std::string&) { is_over_ = true; }

} // namespace vestra::command
