// Problems for users and programs: facts of a run with the host's reasons, findings of the command itself,
// and errors that end a command before it has a result. Main thread only.
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

// Kinds that only the command has; `name_of` returns the kinds of facts. The texts are part of the JSON
// output, so they never change; docs/commands.md describes each.
namespace own_kind {
inline constexpr const char* outside = "outside"; // a copy is outside the new project's folder
inline constexpr const char* refused = "refused"; // an action that the command refuses; `reason` says why
inline constexpr const char* not_loaded = "not_loaded";
inline constexpr const char* not_created = "not_created"; // a text file, or the folder of the new project
inline constexpr const char* not_entered = "not_entered"; // a folder that must exist
inline constexpr const char* too_little_space = "too_little_space";
inline constexpr const char* not_writable = "not_writable";       // the new project's folder
inline constexpr const char* name_too_long = "name_too_long";     // on the disk of the new project
inline constexpr const char* unportable_name = "unportable_name"; // a copy whose name Windows does not accept
inline constexpr const char* interrupted = "interrupted";
// Fates of files of an earlier resave.
inline constexpr const char* unreferenced = "unreferenced"; // nothing refers to it any more
inline constexpr const char* stale = "stale";   // the same, and it is next to a copy that is read with it
inline constexpr const char* pruned = "pruned"; // the same, and it was removed
inline constexpr const char* changed_since = "changed_since";
inline constexpr const char* found = "found";               // a lost file was found elsewhere
inline constexpr const char* not_searched = "not_searched"; // a folder could not be searched
// Shortfalls of a resave.
inline constexpr const char* left_behind = "left_behind"; // a file next to one that was copied
inline constexpr const char* dropped = "dropped";         // an element that is missing in the new project
inline constexpr const char* left_alone = "left_alone";   // an element whose file no rule copies
// Findings of a verification.
inline constexpr const char* reference_outside = "reference_outside";
inline constexpr const char* reference_missing = "reference_missing";
inline constexpr const char* reference_outside_and_missing = "reference_outside_and_missing";
inline constexpr const char* reference_empty = "reference_empty"; // an empty file or folder
inline constexpr const char* unreadable = "unreadable";
inline constexpr const char* copy_missing = "copy_missing";
inline constexpr const char* copy_size_differs = "copy_size_differs";
inline constexpr const char* copy_content_differs = "copy_content_differs";
inline constexpr const char* copy_unreadable = "copy_unreadable";
inline constexpr const char* source_unreadable = "source_unreadable";
inline constexpr const char* archive_entry = "archive_entry";   // one that is not read from its archive
inline constexpr const char* manifest_lacks = "manifest_lacks"; // the project itself
inline constexpr const char* manifest_outside = "manifest_outside";
inline constexpr const char* manifest_missing = "manifest_missing";
inline constexpr const char* manifest_size_differs = "manifest_size_differs";
inline constexpr const char* manifest_content_differs = "manifest_content_differs";
} // namespace own_kind

// Something that went wrong, or that a user may want to know (is_notice).
struct problem {
    std::string kind;                         // the name of a fact_kind or one of the kinds above
    vs::project_resave::element_name element; // all empty if it belongs to no element
    wide_string path;                         // both as the project stores them; can be empty
    wide_string new_path;
    // The text of the operating system, the layer type, or where an exception was caught; can be empty.
    wide_string reason = {};
    // Only for findings of a verification: the kind of the element that holds the reference, and the file
    // that the reference is in.
    std::string holder = {};
    wide_string file = {};
    std::vector<wide_string> candidates = {}; // possible files for a lost source, also listed in `reason`
};

// An error that ends a command before it has a result.
struct refusal {
    int exit = wrong_use;
    std::vector<problem> problems;
};

// Returns the path in the form of the operating system; empty if it is not a path, such as a reference to a
// service.
std::string native_form(const wide_string& path);
// Returns the same for output, on one line. A leading mark stays, and a text without a native form is
// returned as it is.
std::string printed(const wide_string& path);
// Returns the path with each existing name spelled as its folder lists it; names that do not exist keep their
// spelling.
wide_string as_on_disk(const wide_string& path);
// Returns an error with exit status 2 and one reason, about a path or, if it is empty, about the usage.
// `reason` is in the user's language.
refusal refused(const wide_string& path, const std::string& reason);
// Prints a line for each problem on standard error and, with --json, an object on standard output. Returns
// the exit status.
int end_with(const refusal& early, const common_options& options);

// Returns the name of a kind in JSON.
const char* name_of(vs::project_resave::fact_kind kind);
// Returns the fact as a problem. `reason` gets what is most useful for the kind: the layer type, the other
// file that a copy reads, or the place and text of an exception.
problem problem_of(const vs::project_resave::fact& fact);
// Returns the operating system's reason why `path` could not be created, with the file that exists in place
// of one of its folders.
wide_string reason_of(const wide_string& reason, const wide_string& path);
// Returns why the host could not read this file, without its path: "line 3: unknown element <x>"; empty if it
// could.
wide_string read_error_of(const wide_string& path);
// Returns the facts of the load and of the run after it, each once; those about files that the host could not
// read or write have its reason if it is still known.
std::vector<problem> problems_of(const vs::project_resave::run_state& run);
// Returns a key that is equal for problems with the same kind, element and source file; reason and new path
// do not count.
wide_string key_of(const problem& found);
// Adds files that the run registered as made but that do not exist, and files outside the new project's
// folder. Adds nothing after a stop, because files may have been erased.
void add_misplaced(const vs::project_resave::run_state& run, std::vector<problem>& all);
// Returns the path keys of files that could not be written, although an older file with this name may exist.
std::unordered_set<wide_string> unwritten_keys(const std::vector<problem>& all);
// True for an expected effect of the options: a renamed copy, an overwritten scene file, a search result.
bool is_notice(const problem& found);

// Returns {kind, element: {uuid, caption, list}, path, native_path, new_path, new_native_path, reason}; for
// findings of a verification also {holder, file, native_file}, for a lost source with candidates also
// {candidates: [{path, native_path}]}.
nlohmann::ordered_json json_of(const problem& found);
// Returns an array of all problems except notices.
nlohmann::ordered_json json_of(const std::vector<problem>& all);
// Returns an array of the problems of one kind.
nlohmann::ordered_json json_of(const std::vector<problem>& all, std::string_view kind);
// Returns for each file found {element, path, native_path, found_at, native_found_at}.
nlohmann::ordered_json json_of_found(const std::vector<problem>& all);
// Prints each problem as a line on standard error, in order. Of more than twenty problems of one kind and
// reason only ten are printed, and only one of all caused by a full disk; the next line gives the number of
// the others.
void print(const std::vector<problem>& all);
// Returns what failed, as printed after the path: "could not be copied to N:\a.shp".
std::string what_of(const problem& found);
// The parts of the text about a problem; each can be empty.
struct problem_words {
    std::string about; // the path
    std::string what;  // as `what_of`
    std::string reason;
    std::string element; // with the list that contains it and the file with the reference
};
problem_words words_of(const problem& found);
// Returns one line without the program name: "C:\a.shp: could not be copied to N:\a.shp: No space left".
std::string line_of(const problem& found);

} // namespace vestra::command
