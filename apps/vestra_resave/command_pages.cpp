// Lists the commands and options of a program in the order of its help, for the manual page and the
// completion.
#include "apps/vestra_resave/command_pages.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <sstream>
#include <utility>

namespace vestra::command {

options shown_options(const CLI::App& app, bool positional) {
    return app.get_options([positional](const CLI::Option* option) {
        // An option without a group is hidden.
        return option->get_positional() == positional && !option->get_group().empty();
    });
}

commands commands_of(const CLI::App& app) {
    return app.get_subcommands([](const CLI::App*) { return true; });
}

std::string names_of(const CLI::Option& option) {
    std::string names;
    for (const std::string& each : option.get_snames()) names += ", -" + each;
    for (const std::string& each : option.get_lnames()) names += ", --" + each;
    // Without the first separator; a positional argument has no names.
    return names.substr(std::min<std::size_t>(2, names.size()));
}

bool takes_value(const CLI::Option& option) { return option.get_items_expected_max() != 0; }

std::string accepted_words(const CLI::Option& option, const std::string& separator) {
    const std::string type = option.get_type_name(); // TEXT:{rename,ask}
    const std::size_t first = type.find('{'), end = type.rfind('}');
    if (first == std::string::npos || end == std::string::npos) return {};
    std::string words;
    for (const char each : type.substr(first + 1, end - first - 1)) {
        if (each == ',')
            words += separator;
        else
            words += each;
    }
    return words;
}

std::string value_name(const CLI::Option& option) {
    const std::string type = option.get_type_name();
    return type.substr(0, type.find(':'));
}

void add_pages(CLI::App& app) {
    app.set_version_flag("--version", app.get_name() + " " VS_VERSION);
    const auto add = [&app](const char* flag, std::string (*page)(const CLI::App&)) {
        // The library prints the text of this "error" and exits with status 0, as it does for --version.
        app.add_flag_callback(flag, [&app, page] { throw CLI::CallForVersion(page(app), 0); })->group("");
    };
    add("--man-page", &man_page);
    add("--bash-completion", &bash_completion);
}

namespace {

// Returns the possible completions of a value: the accepted words, or the kind of value in angle brackets.
std::string completed_by(const CLI::Option& option) {
    if (std::string words = accepted_words(option, " "); !words.empty()) return words;
    const std::string name = option.get_positional() ? option.get_name() : value_name(option);
    // The first part that occurs decides; the names of values are part of the help, so they say what is
    // expected.
    for (const auto& [part, kind] :
         {std::pair{"FOLDER", "<folder>"}, {"PROJECT", "<project>"}, {"FILE", "<file>"}})
        if (name.find(part) != std::string::npos) return kind;
    return option.get_positional() ? "<file>" : "<text>";
}

// Prints the rows of a command. A key is the command name followed by "--" for its options, by the number of
// a positional argument, or by the names of an option that takes a value.
void print_rows(std::ostream& out, const CLI::App& app, const std::string& command) {
    const auto row = [&](const std::string& key, const std::string& value) {
        out << "    '" << command << ' ' << key << "') echo '" << value << "' ;;\n";
    };
    std::string names;
    for (const CLI::Option* option : shown_options(app, false))
        for (const std::string& each : option->get_lnames()) {
            names += (names.empty() ? "--" : " --") + each;
            if (takes_value(*option)) row("--" + each, completed_by(*option));
        }
    row("--", names);
    int place = 0;
    for (const CLI::Option* option : shown_options(app, true))
        row(std::to_string(++place), completed_by(*option));
    std::string below;
    for (const CLI::App* each : commands_of(app)) below += (below.empty() ? "" : " ") + each->get_name();
    if (!below.empty()) row("1", below);
}

// The part of the script that is the same for every program. FUNCTION is replaced by a function name, PROGRAM
// by the name of the program. Each program has its own functions, because bash has one name space for those
// of all completions.
constexpr const char* completion_script = R"(
FUNCTION()
{
    local -a words=()
    local at glued= command= key= place=1 choices
    # Bash takes a word apart at "=" and ":", and the last part is the one to be completed.
    for ((at = 1; at <= COMP_CWORD; ++at)); do
        if [[ ${#words[@]} -gt 0 && ( -n $glued || ${COMP_WORDS[at]} == [=:] ) ]]; then
            words[-1]+=${COMP_WORDS[at]}
        else
            words+=("${COMP_WORDS[at]}")
        fi
        glued=
        [[ ${COMP_WORDS[at]} == [=:] ]] && glued=yes
    done
    local last=${words[-1]} part=${COMP_WORDS[COMP_CWORD]}
    [[ $part == [=:] ]] && part=

    for ((at = 0; at < ${#words[@]} - 1; ++at)); do
        if [[ -n $key ]]; then
            key=
        elif [[ ${words[at]} == -* ]]; then
            [[ ${words[at]} != *=* && -n $(FUNCTION_words "$command ${words[at]}") ]] && key="$command ${words[at]}"
        elif [[ -z $command && -n $(FUNCTION_words "${words[at]} --") ]]; then
            command=${words[at]}
        else
            ((++place))
        fi
    done
    [[ -z $key && $last == --*=* ]] && key="$command ${last%%=*}"
    [[ -z $key && $last == -* ]] && key="$command --"
    choices=$(FUNCTION_words "${key:-$command $place}")

    COMPREPLY=()
    case $choices in
    '<text>' | '') ;;
    '<folder>') compopt -o dirnames ;;
    '<file>') compopt -o default ;;
    '<project>')
        compopt -o filenames -o plusdirs -o default
        mapfile -t COMPREPLY < <(compgen -f -X '!*._[vV][pP]' -- "$part")
        ;;
    *) mapfile -t COMPREPLY < <(compgen -W "$choices" -- "$part") ;;
    esac
}

complete -F FUNCTION PROGRAM
)";

} // namespace

std::string bash_completion(const CLI::App& app) {
    std::string function = '_' + app.get_name();
    std::ranges::replace(function, '-', '_');
    std::ostringstream out;
    out << "# bash completion for " << app.get_name() << ", written by " << app.get_name()
        << " --bash-completion\n\n"
        << "# Prints what may be given for an option or at a place, by command; nothing for an option "
           "without a value.\n"
        << function << "_words()\n{\n    case $1 in\n";
    print_rows(out, app, "");
    for (const CLI::App* command : commands_of(app)) print_rows(out, *command, command->get_name());
    std::string script = completion_script;
    for (const auto& [word, meaning] :
         {std::pair{std::string("FUNCTION"), function}, {"PROGRAM", app.get_name()}})
        // Goes on after the inserted name, which may contain the word.
        for (std::size_t at = 0; (at = script.find(word, at)) != std::string::npos; at += meaning.size())
            script.replace(at, word.size(), meaning);
    out << "    esac\n}\n" << script;
    return out.str();
}

} // namespace vestra::command
