// What a finished resave did, for a person or a program.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <vector>

#include "apps/vestra_resave/session.h"
#include "apps/vestra_resave/verification.h"

namespace vestra::command {

struct copied_file {
    wide_string source;
    wide_string target;
    uint64_t bytes = 0;
};

struct resave_report {
    int exit = done;
    std::string outcome; // "saved", "saved with problems", "not saved", "stopped"
    std::vector<copied_file> files;
    // Each with the list it stands in. Those of lists without a caption come first: so many of them the
    // host's own message leaves out.
    std::vector<wide_string> lost_sources, copy_errors;
    size_t untold_losses = 0, untold_errors = 0;
    std::vector<wide_string> types_not_resaved;
    // What the run itself does not tell: files that could not be made, those whose place it found outside the
    // new project's folder, those that could not be read, joined tables that stay at their source, and what a
    // stop was to erase and still stands.
    std::vector<wide_string> not_written, outside, not_read, kept_joins, not_erased;
    bool depth_exceeded = false;
};

// Reads what the run left in the context.
resave_report report_of(const vs::project_resave::project_context& context);
nlohmann::ordered_json json_of(const resave_report& report);
// With what a verification found, if there was one.
void print_json(const resave_report& report, const std::optional<verification>& found);
// Each problem, a line on the error output. The first leaves out what the host's own message tells if
// `is_told`.
void complain_of_problems(const resave_report& report, bool is_told);
void complain_of_files(const resave_report& report);
// A line of summary and, if wanted, each file.
void print_text(const resave_report& report, const wide_string& new_project, bool list_files);

} // namespace vestra::command
