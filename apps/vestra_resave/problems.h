// What went wrong in a run, for a person or a program: the facts of the run, with the reasons of the host and
// with what the command finds out itself.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <vector>

#include "operations/run/run_report.h"

namespace vs::project_resave {
struct run_state;
}

namespace vestra::command {

using vs::project_resave::wide_string;

// `kind` is the name of a fact_kind, or "outside": a copy whose place is outside the new project's folder.
struct problem {
    std::string kind;
    vs::project_resave::element_name element; // all empty where it belongs to no element
    wide_string path;                         // both as the project stores them; may be empty
    wide_string new_path;
    wide_string
        reason; // in the operating system's words, or the layer type, or where an exception was caught
};

// The name of a kind in JSON.
const char* name_of(vs::project_resave::fact_kind kind);
problem problem_of(const vs::project_resave::fact& fact);
// The facts of the last run, what the host could not write among them with its reason.
std::vector<problem> problems_of(const vs::project_resave::run_state& run);
// Adds the files of a resave that are entered as made and do not exist, and those outside the new project's
// folder. After a stop what was made may have been erased again, so nothing is added.
void add_misplaced(const vs::project_resave::run_state& run, std::vector<problem>& all);
// True for what a run does as it is asked to: a renamed copy, a scene file written over.
bool is_notice(const problem& found);

// {kind, element: {uuid, caption, list}, path, native_path, new_path, new_native_path, reason}
nlohmann::ordered_json json_of(const problem& found);
// Those of one kind.
nlohmann::ordered_json json_of(const std::vector<problem>& all, std::string_view kind);
// One line without the name of the program: "C:\a.shp: could not be copied to N:\a.shp: No space left".
std::string line_of(const problem& found);

} // namespace vestra::command
