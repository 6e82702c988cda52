// The manual page and the bash completion of a program. Both are composed from the options that its command
// line declares, so that neither can lack one; the build writes them with the program itself.
#pragma once

#include <CLI/App.hpp>
#include <string>
#include <vector>

namespace vestra::command {

// Gives `app` the flag --version and, for the build alone and therefore not shown in its help, --man-page and
// --bash-completion. Each prints its text and ends the program with 0.
// `app` must live until it has parsed; commands may be added later.
void add_pages(CLI::App& app);

// Returns the manual page, for section 1, as source for man(1). Options that every command of `app` has are
// in a section of their own and not repeated for each command.
std::string man_page(const CLI::App& app);

// Returns the bash script that completes commands, options, the words that an option accepts, projects, files
// and folders. It needs nothing but bash.
std::string bash_completion(const CLI::App& app);

// What both of them ask of the options.

using options = std::vector<const CLI::Option*>;
using commands = std::vector<const CLI::App*>;

// Returns what the help of `app` shows, in its order: the positional arguments or the options.
options shown_options(const CLI::App& app, bool positional);

commands commands_of(const CLI::App& app);

// Returns the names of an option as the command line takes them, such as "-h, --help"; empty for a positional
// argument.
std::string names_of(const CLI::Option& option);

// True if a value follows the option; false for a flag.
bool takes_value(const CLI::Option& option);

// Returns the word by which the help names the value of an option, such as "FOLDER".
std::string value_name(const CLI::Option& option);

// Returns the words that are the only ones an option accepts, with `separator` between them; empty if it
// accepts any.
std::string accepted_words(const CLI::Option& option, const std::string& separator);

} // namespace vestra::command
