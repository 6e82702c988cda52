// Converts the facts of a page to JSON for its script and to SVG bars.
#include "apps/vestra_resave/report/page_data.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <nlohmann/json.hpp>
#include <unordered_map>

#include "apps/vestra_resave/report/escaping.h"
#include "platform/path_text.h"
#include "platform/text.h"

namespace vestra::command {

using namespace vs::project_resave;
using nlohmann::ordered_json;

namespace {

// A list of distinct texts, which are referred to by index.
class numbered_texts {
public:
    // Returns -1 for an empty text.
    int64_t add(const std::string& text) {
        if (text.empty()) return -1;
        const auto [row, is_new] = numbers_.try_emplace(text, texts_.size());
        if (is_new) texts_.push_back(text);
        return static_cast<int64_t>(row->second);
    }
    const std::vector<std::string>& texts() const { return texts_; }

private:
    std::unordered_map<std::string, size_t> numbers_;
    std::vector<std::string> texts_;
};

std::string type_of(const wide_string& path) {
    wide_string extension = path_extension(path);
    platform::lower_in_place(extension);
    return extension.empty() ? say("(none)") : one_line(extension);
}

std::string name_of(const element_name& element) {
    const std::string caption = one_line(element.caption), list = one_line(element.list);
    return list.empty() || caption.empty() ? caption + list : caption + " – " + list;
}

void add_to(std::vector<sized_group>& groups, size_t number, const std::string& name, uint64_t bytes) {
    if (number >= groups.size()) groups.resize(number + 1);
    sized_group& group = groups[number];
    group.name = name, group.number = number, group.bytes += bytes, ++group.files;
}

void put_largest_first(std::vector<sized_group>& groups) {
    std::erase_if(groups, [](const sized_group& each) { return each.files == 0; });
    std::ranges::stable_sort(groups, std::ranges::greater(), &sized_group::bytes);
}

// The texts that the script shows.
ordered_json texts_of_script() {
    static constexpr struct {
        const char* key;
        sentence text;
    } rows[] = {{"found", "%1 of %2 files, %3"},  {"source", "Source"},
                {"target", "New place"},          {"state", "State"},
                {"element", "Element"},           {"problem", "Problem"},
                {"remove", "Show all again: %1"}, {"toggle", "Open or close %1"}};
    ordered_json texts;
    // Each placeholder is replaced by itself, since the script fills it.
    for (const auto& [key, text] : rows) texts[key] = say(text, {"%1", "%2", "%3"});
    return texts;
}

ordered_json units() {
    ordered_json all = ordered_json::array();
    for (const sentence unit : {sentence("%1 B"), sentence("%1.%2 KB"), sentence("%1.%2 MB"),
                                sentence("%1.%2 GB"), sentence("%1.%2 TB"), sentence("%1.%2 PB")})
        all.push_back(say(unit, {"%1", "%2"}));
    return all;
}

// Fills the lists that the rows of the table refer to.
class data_writer {
public:
    explicit data_writer(const page_facts& facts) : facts_(facts) {
        for (const page_file& each : facts.files) {
            if (!each.source.empty()) before_.add(each.source);
            if (!each.target.empty()) after_.add(each.target);
        }
        // Sources can be anywhere, so their root is what they share; copies have that of the project, so that
        // a copy outside it is visible as such.
        data.before_root = before_.common_root();
        data.after_root = folder_of(facts.new_project.empty() ? facts.project : facts.new_project);
        before_names_ = before_.below(data.before_root);
        after_names_ = after_.below(data.after_root);
    }

    void write() {
        for (const page_file& each : facts_.files) rows_.push_back(row_of(each));
        const ordered_json all{{"texts", texts_of_script()},
                               {"units", units()},
                               {"before", {{"root", data.before_root}, {"folders", before_names_}}},
                               {"after", {{"root", data.after_root}, {"folders", after_names_}}},
                               {"types", types_.texts()},
                               {"states", states_.texts()},
                               {"elements", elements_.texts()},
                               {"notes", notes_.texts()},
                               {"files", std::move(rows_)}};
        data.json = all.dump();
        put_largest_first(data.types);
        put_largest_first(data.folders);
    }

    page_data data;

private:
    static std::string folder_of(const wide_string& path) {
        folder_list list;
        list.add(path);
        return list.common_root();
    }

    ordered_json row_of(const page_file& file) {
        const uint64_t bytes = file.bytes.value_or(0);
        const bool is_problem = !file.note.empty();
        const std::string source = one_line(path_file_name(file.source)),
                          target = one_line(path_file_name(file.target));
        const std::string type = type_of(file.target.empty() ? file.source : file.target);
        const auto type_number = types_.add(type);
        int64_t before = -1, after = -1;
        if (!file.source.empty()) {
            before = static_cast<int64_t>(before_.add(file.source));
            data.before.add(before_names_[static_cast<size_t>(before)], bytes, is_problem);
        }
        if (!file.target.empty()) {
            const size_t number = after_.add(file.target);
            after = static_cast<int64_t>(number);
            data.after.add(after_names_[number], bytes, is_problem);
            add_to(data.types, static_cast<size_t>(type_number), type, bytes);
            add_to(data.folders, number, after_names_[number], bytes);
        }
        // A renamed copy has a second name. 0 in place of an equal name keeps the data of 100,000 files
        // small.
        const std::string& name = source.empty() ? target : source;
        const bool is_renamed = !target.empty() && target != name;
        return {before,
                name,
                after,
                is_renamed ? ordered_json(target) : ordered_json(0),
                file.bytes ? static_cast<int64_t>(bytes) : -1,
                type_number,
                states_.add(say(file.state)),
                elements_.add(name_of(file.element)),
                notes_.add(file.note)};
    }

    const page_facts& facts_;
    folder_list before_, after_;
    std::vector<std::string> before_names_, after_names_;
    numbered_texts types_, states_, elements_, notes_;
    ordered_json rows_ = ordered_json::array();
};

// The end of a path is more informative than its beginning.
std::string shortened(const std::string& text, size_t most) {
    const wide_string wide = platform::from_utf8(text);
    return wide.size() <= most ? text : "…" + platform::to_utf8(wide.substr(wide.size() - most + 1));
}

std::string percent(uint64_t part, uint64_t whole) {
    std::array<char, 16> text{};
    // At least a visible line: a bar of no width looks like a missing one.
    const double share = whole == 0 ? 0 : 100 * static_cast<double>(part) / static_cast<double>(whole);
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg): a number with one decimal
    std::snprintf(text.data(), text.size(), "%.1f%%", std::max(share, 0.4));
    return text.data();
}

// Returns the largest groups and combines the others into one.
std::vector<sized_group> largest_of(const std::vector<sized_group>& groups) {
    constexpr size_t most = 10;
    if (groups.size() <= most) return groups;
    const auto first_left = groups.begin() + most - 1;
    std::vector<sized_group> shown(groups.begin(), first_left);
    // One bar for all others, so that the sums of the picture are those of the list.
    shown.push_back({.name = say("%1 others", {std::to_string(groups.end() - first_left)}), .is_rest = true});
    for (auto each = first_left; each != groups.end(); ++each)
        shown.back().bytes += each->bytes, shown.back().files += each->files;
    return shown;
}

std::string bar_of(const sized_group& group, uint64_t largest, size_t top, const std::string& attribute) {
    const std::string name = group.name.empty() ? "./" : group.name;
    const std::string mark = attribute == "data-type" ? std::to_string(group.number) : group.name;
    const std::string link = "<a href=\"#files\" " + attribute + "=\"" + escaped(mark) + "\">";
    return "<svg y=\"" + std::to_string(top) + "\" class=\"" + (group.is_rest ? "rest\">" : "one\">" + link) +
           "<title>" + escaped(name) +
           "</title><rect class=\"row\" width=\"100%\" height=\"34\"/><text y=\"14\">" +
           escaped(shortened(name, 34)) + "</text><text class=\"value\" x=\"100%\" y=\"14\">" +
           escaped(size_text(group.bytes)) + " · " + std::to_string(group.files) +
           "</text><rect class=\"track\" y=\"21\" width=\"100%\" height=\"7\" rx=\"3.5\"/>"
           "<rect class=\"bar\" y=\"21\" width=\"" +
           percent(group.bytes, largest) + "\" height=\"7\" rx=\"3.5\"/>" +
           (group.is_rest ? "</svg>\n" : "</a></svg>\n");
}

} // namespace

page_data data_of(const page_facts& facts) {
    data_writer writer(facts);
    writer.write();
    return std::move(writer.data);
}

std::string bars_of(const std::vector<sized_group>& groups, const std::string& attribute) {
    constexpr size_t row_height = 36;
    const std::vector<sized_group> shown = largest_of(groups);
    uint64_t largest = 0;
    for (const sized_group& each : shown) largest = std::max(largest, each.bytes);
    std::string text =
        "<svg class=\"bars\" height=\"" + std::to_string(shown.size() * row_height) + "\" role=\"group\">\n";
    for (size_t index = 0; index < shown.size(); ++index)
        text += bar_of(shown[index], largest, index * row_height, attribute);
    return text + "</svg>\n";
}

} // namespace vestra::command
