// Fills the HTML template with texts, figures, problems, folder trees and data.
#include "apps/vestra_resave/report/page_html.h"

#include <algorithm>
#include <array>
#include <ctime>
#include <map>

#include "apps/vestra_resave/file_content.h"
#include "apps/vestra_resave/report/escaping.h"
#include "apps/vestra_resave/report/page_data.h"
#include "apps/vestra_resave/report/page_texts.h"
#include "platform/path_text.h"
#include "platform/text.h"
#include "reference_host/shell/front_end.h"

namespace vestra::command {

using namespace vs::project_resave;

namespace {

// A group with more problems is shown collapsed.
constexpr size_t most_open = 25;

using fragments = std::map<std::string, std::string, std::less<>>; // HTML by its name in the template

std::string filled(std::string_view text, const fragments& parts) {
    std::string page;
    // Filled in one pass over the template, so that a text of the project that contains "{{" stays a text.
    for (size_t begin; (begin = text.find("{{")) != std::string_view::npos;) {
        const size_t end = text.find("}}", begin);
        page += text.substr(0, begin);
        // The template is a part of this program, so all its fragments are known here.
        page += parts.find(text.substr(begin + 2, end - begin - 2))->second;
        text.remove_prefix(end + 2);
    }
    return page.append(text);
}

struct named_text {
    const char* name;
    sentence text;
};

// Returns the texts of the template.
fragments said() {
    static constexpr named_text rows[] = {
        {"skip", "Go to the table of all files"},
        {"summary_title", "Summary"},
        {"choices_title", "Options"},
        {"problems_title", "Problems"},
        {"sizes_title", "Sizes"},
        {"folders_title", "Folders"},
        {"folders_hint",
         "Choose a folder to see its files in the table; marked folders have them on the other side."},
        {"files_title", "All files"},
        {"table_title", "Table of files"},
        {"no_script", "The table of all files needs JavaScript."},
        {"search", "Search"},
        {"search_hint", "part of a name, folder or element"},
        {"state", "State"},
        {"every_state", "all"},
        {"column_name", "File"},
        {"column_before", "Source folder"},
        {"column_after", "New folder"},
        {"column_type", "Type"},
        {"column_size", "Size"},
        {"column_element", "Element"},
        {"keys", "Choose a row with the mouse or the arrow keys to see its whole paths."}};
    fragments parts;
    for (const auto& [key, text] : rows) parts[key] = escaped(say(text));
    return parts;
}

// The groups of problems, most important first.
constexpr named_text group_titles[] = {{"failed", "What failed"},
                                       {"lost", "Lost files"},
                                       {"astray", "Broken references"},
                                       {"differing", "Files that differ from the manifest"},
                                       {"dropped", "Elements that are not in the new project"},
                                       {"left_behind", "Files left behind"},
                                       {"not_resaved", "Layers of an unknown type"},
                                       {"left_alone", "Elements whose file is not resaved"},
                                       {own_kind::interrupted, "Interrupted"},
                                       {own_kind::found, "Lost files that were found"},
                                       {own_kind::not_searched, "Folders that could not be searched"},
                                       {"renamed", "Renamed copies"},
                                       {"written_over", "Overwritten files"},
                                       {"pruned", "Files that were removed"},
                                       {"unreferenced", "Files that are no longer referred to"},
                                       {"changed_since", "Files changed since the earlier resave"}};

std::string html_of(const problem& found) {
    const problem_words words = words_of(found);
    std::string text = "<li class=\"found\">";
    if (!words.about.empty()) text += "<p class=\"path\">" + escaped(words.about) + "</p>";
    text += "<p class=\"why\">" + escaped(words.what);
    if (!words.reason.empty()) text += (words.what.empty() ? "" : ": ") + escaped(words.reason);
    text += "</p>";
    if (!words.element.empty()) text += "<p class=\"element\">" + escaped(words.element) + "</p>";
    return text + "</li>\n";
}

using problem_group = std::vector<const problem*>;

std::string list_of(const problem_group& group) {
    std::string text = "<ul>\n";
    for (size_t index = 0; index < group.size(); ++index) {
        if (index == most_open)
            text += "</ul>\n<details class=\"rest\"><summary>" +
                    escaped(say("and %1 more", {std::to_string(group.size() - index)})) + "</summary><ul>\n";
        text += html_of(*group[index]);
    }
    return text + (group.size() > most_open ? "</ul></details>\n" : "</ul>\n");
}

std::string html_of(const named_text& title, const problem_group& group) {
    const std::string head =
        escaped(say(title.text)) + " <span class=\"number\">" + std::to_string(group.size()) + "</span>";
    const std::string id = std::string(" id=\"group-") + title.name + "\">";
    // All problems of a group are notices, or none is.
    if (is_notice(*group.front()))
        return "<details class=\"group notice\"" + id + "<summary>" + head + "</summary>\n" + list_of(group) +
               "</details>\n";
    return "<div class=\"group\"" + id + "<h3>" + head + "</h3>\n" + list_of(group) + "</div>\n";
}

// Returns problems in groups, followed by notices, which are collapsed.
std::string html_of(const std::vector<problem>& problems) {
    std::map<std::string, problem_group, std::less<>> groups;
    for (const problem& each : problems) groups[group_of(each)].push_back(&each);
    std::string text, notices;
    for (const named_text& title : group_titles) {
        const auto group = groups.find(title.name);
        if (group == groups.end()) continue;
        (is_notice(*group->second.front()) ? notices : text) += html_of(title, group->second);
    }
    if (text.empty()) text = "<p class=\"none\">" + escaped(say("No problems.")) + "</p>\n";
    if (!notices.empty())
        text += "<h3 class=\"notices\">" + escaped(say("Worth knowing")) + "</h3>\n" + notices;
    return text;
}

std::string html_of(const std::vector<page_figure>& figures, const std::vector<problem>& problems) {
    std::string text;
    for (const page_figure& each : figures) {
        const auto is_of = [&](const problem& found) { return group_of(found) == each.group; };
        const auto found = std::ranges::find_if(problems, is_of);
        const bool is_all = each.group == "problems";
        const bool is_wrong = is_all ? each.value != "0" : found != problems.end() && !is_notice(*found);
        const std::string inside =
            "<b>" + escaped(each.value) + "</b> <span>" + escaped(each.label) + "</span>";
        text += is_wrong ? "<li class=\"wrong\">" : "<li>";
        if (is_all || found != problems.end())
            text += "<a href=\"#" + (is_all ? "problems" : "group-" + escaped(each.group)) + "\">" + inside +
                    "</a>";
        else
            text += inside;
        text += "</li>\n";
    }
    return text;
}

std::string place(sentence label, const wide_string& path) {
    return path.empty() ? "" : "<dt>" + escaped(say(label)) + "</dt><dd>" + escaped(printed(path)) + "</dd>";
}

std::string html_of_choices(const page_facts& facts) {
    std::string text;
    for (const auto& [name, value] : facts.choices)
        text += "<div><dt>" + escaped(name) + "</dt><dd>" + escaped(value) + "</dd></div>\n";
    return text;
}

std::string panel(sentence title, const std::string& inside, const std::string& attributes) {
    return "<div class=\"panel" + attributes + "><h3>" + escaped(say(title)) + "</h3>\n" + inside +
           "</div>\n";
}

std::string trees_of(const page_data& data, bool is_copy) {
    std::string text;
    if (data.before.nodes().front().files != 0)
        text += panel(is_copy ? sentence("Before") : sentence("Sources"), data.before.html(data.before_root),
                      " scrolled\" data-side=\"before\"");
    if (data.after.nodes().front().files != 0)
        text += panel(is_copy ? sentence("After") : sentence("Project"), data.after.html(data.after_root),
                      " scrolled\" data-side=\"after\"");
    return text;
}

std::string charts_of(const page_data& data) {
    return panel("By type: size, number of files", bars_of(data.types, "data-type"), "\"") +
           panel("By folder: size, number of files", bars_of(data.folders, "data-folder"), "\"");
}

// Returns the hash of the script for the page's policy, so that no other script runs.
std::string script_hash() {
    sha256 digest;
    digest.add(page_script.data(), page_script.size());
    // A policy has the digest in base64, six bits for each letter, padded to a multiple of four.
    const std::string digits = digest.text();
    std::string bits;
    for (const char digit : digits) {
        const int value = digit <= '9' ? digit - '0' : digit - 'a' + 10;
        for (int bit = 8; bit != 0; bit /= 2) bits += (value & bit) != 0 ? '1' : '0';
    }
    constexpr std::string_view letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    bits.append((6 - bits.size() % 6) % 6, '0');
    std::string text = "sha256-";
    for (size_t at = 0; at < bits.size(); at += 6)
        text += letters[std::stoul(bits.substr(at, 6), nullptr, 2)];
    return text.append((4 - (text.size() - 7) % 4) % 4, '=');
}

std::string now(const char* form) {
    std::array<char, 40> text{};
    const std::time_t time = std::time(nullptr);
    // In UTC, so that the page says the same on every computer.
    return std::string(text.data(), std::strftime(text.data(), text.size(), form, std::gmtime(&time)));
}

} // namespace

std::string html_of(const page_facts& facts) {
    const page_data data = data_of(facts);
    fragments parts = said();
    const bool is_copy = !facts.new_project.empty();
    parts["lang"] = shell::settings().language_offset == 0 ? "ru" : "en";
    parts["script_hash"] = script_hash();
    parts["title"] = escaped(say(facts.title));
    parts["name"] = escaped(one_line(path_file_name(is_copy ? facts.new_project : facts.project)));
    parts["tone"] = facts.tone == page_tone::good      ? "good"
                    : facts.tone == page_tone::warning ? "warning"
                                                       : "bad";
    parts["time"] = now("%Y-%m-%dT%H:%MZ");
    parts["time_shown"] = now("%Y-%m-%d %H:%M UTC");
    parts["outcome"] = escaped(facts.outcome);
    parts["places"] = is_copy ? place("From", facts.project) + place("To", facts.new_project)
                              : place("Project", facts.project);
    parts["figures"] = html_of(facts.figures, facts.problems);
    parts["choices"] = html_of_choices(facts);
    parts["problems"] = html_of(facts.problems);
    parts["charts"] = charts_of(data);
    parts["trees"] = trees_of(data, is_copy);
    if (!is_copy) parts["column_after"] = escaped(say("Folder"));
    parts["data"] = escaped_json(data.json);
    parts["css"] = page_style;
    parts["js"] = page_script;
    return filled(page_template, parts);
}

} // namespace vestra::command
