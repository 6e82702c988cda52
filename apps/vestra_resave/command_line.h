// What the program understands: its commands with their options, and what was asked of it.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "apps/vestra_resave/commands.h"

namespace vestra::command {

struct command_line {
    common_options options;
    std::string project; // of `list` and `check-case`; the other commands have their own
    std::string report;  // of `check-case`
    list_request list;
    resave_request resave;
    verify_request verify;
    structure_request structure;
    scenes_request scenes;
    panel_request panel;
    std::function<int()> run; // the command asked for, with the exit code as answer; reads this object
};

// Fills `line`. Where there is nothing to run, because help was asked for or the use is wrong, the person has
// been told and the exit code is answered.
std::optional<int> parse(int argc, char** argv, command_line& line);

} // namespace vestra::command
