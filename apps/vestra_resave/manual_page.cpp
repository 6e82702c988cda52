// Generates the manual page from the options of a program.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <cctype>
#include <map>
#include <sstream>
#include <utility>

#include "apps/vestra_resave/command_pages.h"

namespace vestra::command {

namespace {

// Returns the options that all of the commands have, sorted by name. An option that one command describes
// differently is not common to all.
std::map<std::string, const CLI::Option*> common_options_of(const commands& all) {
    std::map<std::string, std::pair<std::size_t, const CLI::Option*>> counts;
    for (const CLI::App* command : all)
        for (const CLI::Option* option : shown_options(*command, false)) {
            auto& [count, first] = counts[names_of(*option) + option->get_description()];
            if (count++ == 0) first = option;
        }
    std::map<std::string, const CLI::Option*> common;
    for (const auto& [key, entry] : counts)
        if (all.size() > 1 && entry.first == all.size()) common.emplace(key, entry.second);
    return common;
}

// Escapes text for the formatter, which gives a meaning to "\", to "-", and to "." and "'" at the beginning
// of a line.
std::string escaped(const std::string& text) {
    std::string result;
    bool begins_line = true;
    for (const char each : text) {
        // "\&" prints nothing, so the character no longer begins the line.
        if (begins_line && (each == '.' || each == '\'')) result += "\\&";
        if (each == '\\')
            result += "\\e";
        else if (each == '-')
            result += "\\-";
        else
            result += each;
        begins_line = each == '\n';
    }
    return result;
}

std::string in_upper_case(std::string text) {
    std::ranges::transform(text, text.begin(), [](unsigned char each) { return std::toupper(each); });
    return text;
}

// Returns sentences with the accepted words, the default and the excluded options, which the help shows in
// other columns.
std::string conditions_of(const CLI::Option& option) {
    std::string text;
    if (const std::string words = accepted_words(option, ", "); !words.empty())
        text += " One of: " + words + '.';
    if (const std::string word = option.get_default_str(); !word.empty()) text += " Default: " + word + '.';
    std::vector<std::string> excluded;
    for (const CLI::Option* other : option.get_excludes()) excluded.push_back(other->get_name());
    std::ranges::sort(excluded); // the set is ordered by address
    for (const std::string& name : excluded) text += " Cannot be combined with " + name + '.';
    return text;
}

void print_option(std::ostream& out, const CLI::Option& option) {
    out << ".TP\n\\fB" << escaped(option.get_positional() ? option.get_name() : names_of(option)) << "\\fR";
    if (!option.get_positional() && takes_value(option))
        out << " \\fI" << escaped(value_name(option)) << "\\fR";
    const std::string& text = option.get_description();
    out << '\n'
        << escaped(text) << (text.ends_with('.') ? "" : ".") << escaped(conditions_of(option)) << '\n';
}

void print_synopsis(std::ostream& out, const CLI::App& app, const std::string& name) {
    out << ".B " << escaped(name) << "\n[\\fIOPTIONS\\fR]";
    for (const CLI::Option* each : shown_options(app, true)) {
        const std::string word = "\\fI" + escaped(each->get_name()) + "\\fR";
        out << ' ' << (each->get_required() ? word : '[' + word + ']');
    }
    if (!commands_of(app).empty()) out << " \\fICOMMAND\\fR ...";
    out << '\n';
}

// Prints the text after the options. A paragraph with indented lines is a table and keeps its line breaks.
void print_footer(std::ostream& out, const std::string& text) {
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find("\n\n", at), text.size());
        const std::string paragraph = text.substr(at, end - at);
        // The formatter would otherwise join the lines.
        const bool is_table = paragraph.find("\n ") != std::string::npos;
        out << ".PP\n"
            << (is_table ? ".nf\n" : "") << escaped(paragraph) << '\n'
            << (is_table ? ".fi\n" : "");
        at = end + 2;
    }
}

void print_command(std::ostream& out, const CLI::App& command, const CLI::App& program,
                   const std::map<std::string, const CLI::Option*>& common) {
    out << ".SS " << escaped(command.get_name()) << '\n';
    print_synopsis(out, command, program.get_name() + ' ' + command.get_name());
    out << ".PP\n" << escaped(command.get_description()) << ".\n";
    for (const bool positional : {true, false})
        for (const CLI::Option* option : shown_options(command, positional))
            if (!common.contains(names_of(*option) + option->get_description())) print_option(out, *option);
    print_footer(out, command.get_footer());
}

} // namespace

std::string man_page(const CLI::App& app) {
    const std::string& name = app.get_name();
    std::string summary = app.get_description();
    // The line of NAME is a phrase, which whatis(1) and apropos(1) print as it is.
    summary[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(summary[0])));
    if (summary.ends_with('.')) summary.pop_back();
    std::ostringstream out;
    // Without a date, so that the same sources give the same page.
    out << ".TH " << in_upper_case(escaped(name)) << " 1 \"\" \"" << escaped(name)
        << " " VS_VERSION "\" \"User Commands\"\n"
        << ".SH NAME\n"
        << escaped(name) << " \\- " << escaped(summary) << "\n.SH SYNOPSIS\n";
    print_synopsis(out, app, name);
    const commands all = commands_of(app);
    const auto common = common_options_of(all);
    if (!all.empty()) out << ".SH COMMANDS\n";
    for (const CLI::App* command : all) print_command(out, *command, app, common);
    if (!common.empty()) out << ".SH \"OPTIONS OF EVERY COMMAND\"\n";
    for (const auto& [key, option] : common) print_option(out, *option);
    out << ".SH " << (all.empty() ? "OPTIONS" : "\"OPTIONS WITHOUT A COMMAND\"") << '\n';
    for (const bool positional : {true, false})
        for (const CLI::Option* option : shown_options(app, positional))
            if (all.empty() || !common.contains(names_of(*option) + option->get_description()))
                print_option(out, *option);
    print_footer(out, app.get_footer());
    return out.str();
}

} // namespace vestra::command
