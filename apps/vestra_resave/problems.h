// What went wrong, for a person or a program: the facts of a run with the reasons of the host, what the
// command finds out itself, and why a command ended before it had a result.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <unordered_set>
#include <vector>

#include "apps/vestra_resave/terminal_host.h"
#include "operations/run/run_report.h"

namespace vs::project_resave {
struct run_state;
}

namespace vestra::command {

// The kinds that only the command knows; for those of facts see `name_of`.
namespace own_kind {
inline constexpr const char* outside = "outside"; // a copy has its place outside the new project's folder
inline constexpr const char* refused = "refused"; // the command does not do that; `reason` says why
inline constexpr const char* not_loaded = "not_loaded";
inline constexpr const char* not_created = "not_created"; // a text file, or the folder of the new project
inline constexpr const char* not_entered = "not_entered"; // a folder that must exist
inline constexpr const char* too_little_space = "too_little_space";
inline constexpr const char* not_writable = "not_writable";       // the new project's folder
inline constexpr const char* name_too_long = "name_too_long";     // for the disk of the new project
inline constexpr const char* unportable_name = "unportable_name"; // a copy that Windows cannot have
inline constexpr const char* interrupted = "interrupted";
// What became of files of an earlier resave.
inline constexpr const char* unreferenced = "unreferenced"; // nothing refers to it any more
inline constexpr const char* stale = "stale";   // the same, but it lies beside a copy that is read with it
inline constexpr const char* pruned = "pruned"; // the same, and it was removed
inline constexpr const char* changed_since = "changed_since";
inline constexpr const char* found = "found";               // a lost file, somewhere else
inline constexpr const char* not_searched = "not_searched"; // a folder below one to be searched
// What a resave leaves wanting.
inline constexpr const char* left_behind = "left_behind"; // a file beside one that was copied
inline constexpr const char* dropped = "dropped";         // an element that the new project does not have
inline constexpr const char* left_alone = "left_alone";   // an element whose file no rule copies
// What a verification finds.
inline constexpr const char* reference_outside = "reference_outside";
inline constexpr const char* reference_missing = "reference_missing";
inline constexpr const char* reference_outside_and_missing = "reference_outside_and_missing";
inline constexpr const char* reference_empty = "reference_empty"; // a file or folder that holds nothing
inline constexpr const char* unreadable = "unreadable";
inline constexpr const char* copy_missing = "copy_missing";
inline constexpr const char* copy_size_differs = "copy_size_differs";
inline constexpr const char* copy_content_differs = "copy_content_differs";
inline constexpr const char* copy_unreadable = "copy_unreadable";
inline constexpr const char* source_unreadable = "source_unreadable";
inline constexpr const char* archive_entry = "archive_entry"; // one that is not read from its archive
inline constexpr const char* manifest_missing = "manifest_missing";
inline constexpr const char* manifest_size_differs = "manifest_size_differs";
inline constexpr const char* manifest_content_differs = "manifest_content_differs";
} // namespace own_kind

struct problem {
    std::string kind;                         // the name of a fact_kind, or one of the above
    vs::project_resave::element_name element; // all empty where it belongs to no element
    wide_string path;                         // both as the project stores them; may be empty
    wide_string new_path;
    // In the operating system's words, or the layer type, or where an exception was caught; may be empty.
    wide_string reason = {};
    // Of what a verification finds, else empty: kind of the element that holds the reference, and the file in
    // which the reference is written.
    std::string holder = {};
    wide_string file = {};
    std::vector<wide_string> candidates = {}; // files that a lost source may be; `reason` names them, too
};

// Why a command ended before it had a result.
struct refusal {
    int exit = wrong_use;
    std::vector<problem> problems;
};

// Returns the path as the operating system names it; empty for what is no path, such as a link to a service.
std::string native_form(const wide_string& path);
// The same for a person, on one line. A mark in front stays, and so does what has no native form.
std::string printed(const wide_string& path);
// Returns the path with each name that exists spelled as its folder lists it.
wide_string as_on_disk(const wide_string& path);
// A refusal with exit code 2 for one reason, about a path or, with an empty one, about the use of the
// command.
refusal refused(const wide_string& path, const std::string& reason);
// Prints a line for each problem on the error output and, with --json, an object on the standard output.
// Returns the exit code.
int end_with(const refusal& early, const common_options& options);

// The name of a kind in JSON.
const char* name_of(vs::project_resave::fact_kind kind);
problem problem_of(const vs::project_resave::fact& fact);
// The operating system's reason why `path` could not be made, with the file that is where a folder of it
// goes.
wide_string reason_of(const wide_string& reason, const wide_string& path);
// Returns why the host could not read this file, without its path: "line 3: unknown element <x>"; empty if it
// could.
wide_string read_error_of(const wide_string& path);
// The facts of the last run, what the host could not read or write among them with its reason.
std::vector<problem> problems_of(const vs::project_resave::run_state& run);
// A text that is equal for problems of one kind, of one element, with one source file.
wide_string key_of(const problem& found);
// Adds the files of a resave that are entered as made and do not exist, and those outside the new project's
// folder. After a stop what was made may have been erased again, so nothing is added.
void add_misplaced(const vs::project_resave::run_state& run, std::vector<problem>& all);
// The path keys of what could not be written, though an older file of the name may exist.
std::unordered_set<wide_string> unwritten_keys(const std::vector<problem>& all);
// True for what a run does as it is asked to: a renamed copy, a scene file written over, a search.
bool is_notice(const problem& found);

// {kind, element: {uuid, caption, list}, path, native_path, new_path, new_native_path, reason}; of what a
// verification finds also {holder, file, native_file}, of a lost source {candidates: [{path, native_path}]}
// if there are any.
nlohmann::ordered_json json_of(const problem& found);
// All of them; without notices.
nlohmann::ordered_json json_of(const std::vector<problem>& all);
// Those of one kind.
nlohmann::ordered_json json_of(const std::vector<problem>& all, std::string_view kind);
// Of those that were found {element, path, native_path, found_at, native_found_at}.
nlohmann::ordered_json json_of_found(const std::vector<problem>& all);
// Prints each as a line on the error output, in order. Ten stand for more than twenty problems of one kind
// and one reason, and one for all that a full disk took; what follows them tells how many more there are.
void print(const std::vector<problem>& all);
// What failed, as it follows the path: "could not be copied to N:\a.shp".
std::string what_of(const problem& found);
// The parts of a line about a problem, for a person; each may be empty.
struct problem_words {
    std::string about; // the path
    std::string what;  // as `what_of`
    std::string reason;
    std::string element; // with what it is in, and the file that has the reference
};
problem_words words_of(const problem& found);
// One line without the name of the program: "C:\a.shp: could not be copied to N:\a.shp: No space left".
std::string line_of(const problem& found);

} // namespace vestra::command
