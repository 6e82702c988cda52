// Parses the command line: the commands with their options, and the resulting request. Main thread only.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "apps/vestra_resave/commands.h"

namespace vestra::command {

// The parsed command line: the common options, and one request for each command, of which only the requested
// one is filled. Must not be copied or moved after `parse`, because `run` refers to it.
struct command_line {
    common_options options;
    // The PROJECT of `list` and `check-case`; the other commands have it in their requests.
    std::string project;
    // The REPORT of `check-case`: a path, or "-" for standard output.
    std::string report;
    list_request list;
    resave_request resave;
    verify_request verify;
    structure_request structure;
    scenes_request scenes;
    panel_request panel;
    // Runs the requested command and returns its exit status. Empty if `parse` returned one. Throws
    // bundle_not_loaded, and what the command throws, such as std::bad_alloc.
    std::function<int()> run;
};

// Fills `line` from the arguments of `main`; the host need not be running. Returns an exit status if there is
// nothing to run, because help was requested or the usage is wrong; the text has been printed then. An error
// is printed as an object, too, if --json is among the arguments, also after the wrong one. Paths are only
// checked for being given, not for existing.
std::optional<int> parse(int argc, char** argv, command_line& line);

} // namespace vestra::command
