// Parses the command line: the commands with their options, and the resulting request.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "apps/vestra_resave/commands.h"

namespace vestra::command {

// The parsed command line: the common options, and one request for each command.
struct command_line {
    common_options options;
    std::string project; // of `list` and `check-case`; other commands have their own
    std::string report;  // of `check-case`
    list_request list;
    resave_request resave;
    verify_request verify;
    structure_request structure;
    scenes_request scenes;
    panel_request panel;
    std::function<int()> run; // runs the requested command and returns the exit status; refers to this object
};

// Fills `line`. Returns an exit status if there is nothing to run, because help was requested or the usage is
// wrong; the text has been printed then.
std::optional<int> parse(int argc, char** argv, command_line& line);

} // namespace vestra::command
