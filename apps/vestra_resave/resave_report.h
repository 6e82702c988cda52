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

// Figures and names as a person reads them.
// "0 B", "512 B", "1.5 KB", "12.3 MB", in steps of 1024.
std::string size_text(uint64_t bytes);

using shell::one_line;

// What a finished resave did, for a person or a program.
struct copied_file {
    wide_string source;
    wide_string target;
    uint64_t bytes = 0;
};

struct resave_report {
    int exit = done;
    std::string outcome;             // "saved", "saved with problems", "not saved", "stopped"
    std::vector<copied_file> files;  // a folder that was copied whole is one of them
    std::vector<copied_file> copies; // each single file, those in folders too
    // Copies that an earlier run made: whole ones of a run that is resumed, and with an update those that are
    // as their source; then those in whose place a new one is.
    std::vector<copied_file> taken_over, unchanged, replaced;
    bool resumable = false;        // the journal stays, and --resume goes on from it
    std::vector<problem> problems; // notices among them; none but notices exactly if it is saved
    verification found;            // what the new project was found to lack; empty if it was not looked at
};

// The closing summary. Every problem but a stop counts once, in one of the last seven.
struct resave_summary {
    size_t files = 0; // copied
    uint64_t bytes = 0;
    size_t taken_over = 0, unchanged = 0, replaced = 0;
    size_t unreferenced = 0, pruned = 0, changed_since = 0;
    size_t renamed = 0;
    size_t lost = 0, failed = 0, not_resaved = 0, astray = 0, left_behind = 0, dropped = 0, left_alone = 0;
};
resave_summary summary_of(const resave_report& report);
// A count of the summary that is not zero: its key in JSON, its number, and the text of the closing line.
struct summary_part {
    const char* name;
    size_t count;
    std::string text;  // "3 left alone"
    std::string label; // the same without the number
};
std::vector<summary_part> parts_of(const resave_summary& summary);
// The key of the count in which a problem is; null for a notice that is not counted, and for a stop.
const char* counted_as(const problem& found);

// Reads what the run left in the context. `problems` are those that the session knows.
resave_report report_of(const vs::project_resave::run_state& run,
                        const vs::project_resave::run_result& result, std::vector<problem> problems);
// Adds what came up after the run: a project that was saved is saved with problems then, but for notices.
void add(resave_report& report, problem found);
nlohmann::ordered_json json_of(const resave_report& report);
// Each problem, and each notice but renamed copies, a line on the error output.
void print_problems(const resave_report& report);
// The last line of a resave: outcome, new project, and the summary without what is zero.
std::string closing_line(const resave_report& report, const wide_string& new_project);
// If wanted each file and each copy that got another name, then the closing line.
void print_text(const resave_report& report, const wide_string& new_project, bool list_files);

} // namespace vestra::command
