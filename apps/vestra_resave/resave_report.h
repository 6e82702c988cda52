// The report of a resave: how it ended, its files and its problems, and the same in text and JSON. Files are
// counted by looking at the disk after the run, so a copy that was erased or never made is not counted.
#pragma once

#include <cstdint>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <vector>

#include "apps/vestra_resave/problems.h"
#include "apps/vestra_resave/terminal_host.h"
#include "apps/vestra_resave/verification.h"
#include "operations/run/run_result.h"
#include "reference_host/shell/terminal_front_end.h"

namespace vestra::command {

// Returns "0 B", "512 B", "1.5 KB", "12.3 MB", in steps of 1024.
std::string size_text(uint64_t bytes);

using shell::one_line;

// A file of the new project and what it was copied from.
struct copied_file {
    wide_string source;
    wide_string target;
    uint64_t bytes = 0;
};

// The result of a run: exit status, outcome, files and problems.
struct resave_report {
    int exit = done;
    std::string outcome;             // "saved", "saved with problems", "not saved", "stopped"
    std::vector<copied_file> files;  // a folder that was copied as a whole is one entry
    std::vector<copied_file> copies; // every single file, including those in folders
    // Copies of an earlier run: complete ones in a resumed run, copies equal to their source in an update,
    // and those that were replaced by new copies. All are in `copies`, too.
    std::vector<copied_file> taken_over, unchanged, replaced;
    bool resumable = false;        // the journal was kept, so --resume can continue
    std::vector<problem> problems; // includes notices; only notices if the outcome is "saved"
    // What the new project lacks; empty if it was not checked. Each finding is among the problems, too.
    verification found;
};

// The counts of the closing line. Every problem except a stop is in exactly one of the last seven.
struct resave_summary {
    size_t files = 0; // copied
    uint64_t bytes = 0;
    size_t taken_over = 0, unchanged = 0, replaced = 0;
    size_t unreferenced = 0, pruned = 0, changed_since = 0;
    size_t renamed = 0;
    size_t lost = 0, failed = 0, not_resaved = 0, astray = 0, left_behind = 0, dropped = 0, left_alone = 0;
};
// Counts the files and problems of a report.
resave_summary summary_of(const resave_report& report);
// A count that is not zero: its key in JSON, its number, and its text in the closing line.
struct summary_part {
    const char* name;
    size_t count;
    std::string text;  // "3 left alone"
    std::string label; // the same without the number
};
// Returns the counts that are not zero, in the order of the closing line.
std::vector<summary_part> parts_of(const resave_summary& summary);
// Returns the key of the count that includes a problem; null for a stop and for notices that are not counted.
const char* counted_as(const problem& found);

// Returns the report of a run. Reads what the run left in the context, so call it before another load.
// `problems` are those known to the session; files that were registered but do not exist are added to them.
resave_report report_of(const vs::project_resave::run_state& run,
                        const vs::project_resave::run_result& result, std::vector<problem> problems);
// Adds a problem found after the run; unless it is a notice, it turns "saved" into "saved with problems".
void add(resave_report& report, problem found);
// Returns the report in the form that --json prints. Its keys are an interface: docs/commands.md describes
// them.
nlohmann::ordered_json json_of(const resave_report& report);
// Prints each problem, and each notice except renamed copies, as a line on standard error.
void print_problems(const resave_report& report);
// Returns the last line of a resave: outcome, new project, and all counts that are not zero.
std::string closing_line(const resave_report& report, const wide_string& new_project);
// Prints each file if `list_files`, each renamed copy, and the closing line.
void print_text(const resave_report& report, const wide_string& new_project, bool list_files);

} // namespace vestra::command
