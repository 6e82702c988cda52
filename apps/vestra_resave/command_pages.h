// The manual page and the bash completion of a program. Both are generated from the options that its command
// line declares, so that neither can miss one; the build writes them together with the program.
#pragma once

#include <CLI/App.hpp>
#include <string>
#include <vector>

namespace vestra::command {

// Adds the flag --version to `app`, and --man-page and --bash-completion, which are for the build and hidden
// in the help. Each prints its text and exits with status 0. `app` must exist until it has parsed; commands
// can be added later.
void add_pages(CLI::App& app);

// Returns the manual page for section 1 as source for man(1). Options that all commands of `app` share are in
// one section and not repeated for each command.
std::string man_page(const CLI::App& app);

// Returns a bash script that completes commands, options, accepted words, projects, files and folders. It
// only needs bash.
std::string bash_completion(const CLI::App& app);

// Information about the options that both of them use.

using options = std::vector<const CLI::Option*>;
using commands = std::vector<const CLI::App*>;

// Returns the positional arguments or the options that the help of `app` shows, in its order.
options shown_options(const CLI::App& app, bool positional);

// Returns the commands of `app` in the order of its help.
commands commands_of(const CLI::App& app);

// Returns the names of an option as typed, such as "-h, --help"; empty for a positional argument.
std::string names_of(const CLI::Option& option);

// True if the option takes a value; false for a flag.
bool takes_value(const CLI::Option& option);

// Returns the name of the option's value in the help, such as "FOLDER".
std::string value_name(const CLI::Option& option);

// Returns the only words that an option accepts, joined by `separator`; empty if it accepts any.
std::string accepted_words(const CLI::Option& option, const std::string& separator);

} // namespace vestra::command
