// Prints a window as text, and gives its elements the names that commands use.
#include "reference_host/toolkit/element_description.h"

#include <algorithm>
#include <map>

#include "platform/text.h"
#include "reference_host/shell/front_end.h"
#include "reference_host/shell/terminal_front_end.h"

namespace vestra::toolkit {

using shell::one_line;
using vs::project_resave::platform::compare_no_case;
using vs::project_resave::platform::from_utf8;

namespace {

// Name stems of the kinds that take events.
const std::map<wide_string, std::string> stems{
    {u"file_input", "field"}, {u"button", "button"},     {u"checkbox", "check"}, {u"radiobutton", "radio"},
    {u"outline", "list"},     {u"dropdownex", "choice"}, {u"tool", "tool"}};

const std::map<std::string_view, const char*> russian_words{{"docker", "панель"},
                                                            {"grid_layout", "сетка"},
                                                            {"grid_span_layout", "ячейки"},
                                                            {"stack_layout", "столбец"},
                                                            {"split_layout", "части"},
                                                            {"tab_layout", "вкладки"},
                                                            {"groupbox", "группа"},
                                                            {"groupbox_span", "группа"},
                                                            {"label", "надпись"},
                                                            {"label_ex", "надпись"},
                                                            {"output", "надпись"},
                                                            {"multiline_output", "текст"},
                                                            {"file_input", "путь"},
                                                            {"button", "кнопка"},
                                                            {"button_box", "кнопки"},
                                                            {"checkbox", "флажок"},
                                                            {"radiobutton", "переключатель"},
                                                            {"dropdownex", "список"},
                                                            {"outline", "дерево"},
                                                            {"toolbar", "инструменты"},
                                                            {"tool", "инструмент"},
                                                            {"source project", "исходный проект"},
                                                            {"text file", "текстовый файл"},
                                                            {"new file", "новый файл"},
                                                            {"folder", "папка"},
                                                            {"unknown mode", "неизвестно что"},
                                                            {"shown", "показано"},
                                                            {"disabled", "недоступно"},
                                                            {"invalid", "неверно"},
                                                            {"highlighted", "выделено"},
                                                            {"collapsed", "свернуто"}};

// Returns the length of the common start of all ids up to its last underscore, so that equal first letters of
// the words after it stay.
std::size_t common_start(const std::vector<element_view>& pages) {
    if (pages.empty()) return 0;
    wide_view common = pages.front().id;
    for (const element_view& page : pages)
        while (!wide_view(page.id).starts_with(common)) common.remove_suffix(1);
    return common.rfind(u'_') + 1; // 0 if there is none
}

// Names the elements of one page, without those of pages inside it. Kinds are counted for each page, so an
// element added to one page renames no other.
class naming {
public:
    explicit naming(std::string page) : page_(std::move(page)) {}

    void name(element_view& view) {
        if (const auto stem = stems.find(view.kind); stem != stems.end())
            view.name = page_ + stem->second + std::to_string(++counts_[view.kind]);
        const bool holds_pages = view.kind == u"tab_layout";
        const std::size_t start = holds_pages ? common_start(view.children) : 0;
        for (element_view& child : view.children) {
            if (!holds_pages) {
                name(child);
                continue;
            }
            child.name = one_line(wide_view(child.id).substr(start));
            naming inside(child.name + '/');
            for (element_view& content : child.children) inside.name(content);
        }
    }

private:
    const std::string page_;
    std::map<wide_string, unsigned> counts_;
};

template <class Wanted>
void collect(const element_view& view, const Wanted& is_wanted, std::vector<const element_view*>& found) {
    if (is_wanted(view)) found.push_back(&view);
    for (const element_view& child : view.children) collect(child, is_wanted, found);
}

// A number comes first: rows may have equal texts, or a text that is a number.
const row_view* row_of(const std::vector<row_view>& rows, const std::string& word) {
    for (std::size_t index = 0; index < rows.size(); ++index)
        if (std::to_string(index + 1) == word) return &rows[index];
    const wide_string text = from_utf8(word);
    const auto row = std::ranges::find_if(
        rows, [&](const row_view& each) { return compare_no_case(each.text, text) == 0; });
    return row == rows.end() ? nullptr : &*row;
}

const char* sign_of(mark check) {
    switch (check) {
    case mark::on:
        return "[x] ";
    case mark::off:
        return "[ ] ";
    case mark::mixed:
        return "[-] ";
    default:
        return "";
    }
}

// A text of one line follows on the same line; the lines of a longer one are printed below, each indented.
void describe_text(std::string& out, const wide_string& text, const std::string& inner) {
    const std::string before_line = text.find(u'\n') == wide_string::npos ? " " : "\n" + inner;
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find(u'\n', begin), text.size());
        out += before_line + shell::printable(wide_view(text).substr(begin, end - begin));
        begin = end + 1;
    }
}

void describe_mode(std::string& out, const element_view& view) {
    constexpr const char* asks_for[] = {"source project", "text file", "new file", "folder"}; // by mode
    if (!view.mode) return;
    const auto mode = static_cast<std::size_t>(*view.mode);
    out += " (" + host_word(mode < std::size(asks_for) ? asks_for[mode] : "unknown mode");
    if (!view.filter.empty()) out += ": " + one_line(view.filter);
    out += ')';
}

void describe(std::string& out, const element_view& view, const std::string& indent, bool is_shown_page) {
    if (!view.visible) return;
    out += indent;
    if (!view.name.empty()) out += view.name + ": ";
    out += sign_of(view.check) + host_word(one_line(view.kind));
    if (!view.caption.empty()) out += " \"" + one_line(view.caption) + '"';
    for (const button_view& button : view.buttons)
        out += " [" + std::to_string(button.code) + ' ' + one_line(button.text) + ']';
    if (view.current < view.choices.size()) out += ' ' + one_line(view.choices[view.current]);
    if (!view.choices.empty()) out += " (" + choices_of(view) + ')';
    describe_mode(out, view);
    if (is_shown_page) out += " (" + host_word("shown") + ')';
    if (!view.enabled) out += " (" + host_word("disabled") + ')';
    const std::string inner = indent + "  ";
    if (view.text != view.caption) describe_text(out, view.text, inner);
    out += '\n';
    describe_rows(out, view.rows, inner, view.name);
    for (std::size_t index = 0; index < view.children.size(); ++index)
        describe(out, view.children[index], inner, view.kind == u"tab_layout" && index == view.current);
}

} // namespace

void name_elements(element_view& root) { naming({}).name(root); }

std::string host_word(std::string_view english) {
    const auto row = russian_words.find(english);
    const bool is_russian = shell::settings().language_offset == 0;
    return is_russian && row != russian_words.end() ? row->second : std::string(english);
}

std::string choices_of(const element_view& dropdown) {
    std::string all;
    for (const wide_string& choice : dropdown.choices) all += (all.empty() ? "" : " | ") + one_line(choice);
    return all;
}

std::vector<const element_view*> all_named(const element_view& root, const std::string& name) {
    std::vector<const element_view*> found;
    collect(
        root, [&](const element_view& view) { return view.name == name && !name.empty(); }, found);
    // A name is looked for first: it is the same in every language, unlike a caption.
    if (!found.empty()) return {found.front()};
    const wide_string caption = from_utf8(name);
    const auto bears_caption = [&](const element_view& view) {
        return !view.name.empty() && compare_no_case(view.caption, caption) == 0;
    };
    collect(root, bears_caption, found);
    return found;
}

const row_view* find_row(const element_view& root, const std::string& path, const element_view*& outline) {
    // Names contain slashes as well, so the path can begin with the names of several outlines.
    std::vector<const element_view*> outlines;
    collect(
        root,
        [&](const element_view& view) { return !view.name.empty() && path.starts_with(view.name + '/'); },
        outlines);
    for (const element_view* candidate : outlines) {
        const std::vector<row_view>* rows = &candidate->rows;
        const row_view* row = nullptr;
        for (std::size_t begin = candidate->name.size() + 1; rows && begin <= path.size();) {
            const std::size_t end = std::min(path.find('/', begin), path.size());
            row = row_of(*rows, path.substr(begin, end - begin));
            rows = row ? &row->rows : nullptr;
            begin = end + 1;
        }
        if (!row) continue;
        outline = candidate;
        return row;
    }
    return nullptr;
}

std::string described(const element_view& root) {
    std::string out;
    describe(out, root, "", false);
    return out;
}

} // namespace vestra::toolkit
