// The settings and the last run that a tool reports, read through its tables. A tool of another bundle may
// have no run record; then the window shows the tool without results.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "apps/vestra_resave/commands.h"
#include "host/toolkit/custom_app_service.h"
#include "host/toolkit/run_record.h"

namespace vestra::window {

using vs::project_resave::wide_string;

// Settings and facts of a run, copied from the tool.
struct tool_record {
    wide_string source, target;
    // Size of the selected files in units of 1024 bytes.
    double kilobytes = 0;
    // Settings by the names of run_record_visitor_impl::visit_choice.
    std::map<std::string, std::uint32_t> choices;
    std::vector<wide_string> left_out;
    struct file {
        wide_string source, target;
    };
    std::vector<file> placed; // a folder that was copied as a whole is one entry
    std::vector<file> made;   // single files; those without a source were written by the run
    // The facts of the run in its order, including notices. A kind that this program does not know counts as
    // an internal error.
    std::vector<command::problem> problems;
    vs::project_resave::recorded_end end = vs::project_resave::recorded_end::none;
};

// Both return nothing if the tool has no run record.
std::optional<tool_record> settings_of(const vs::project_resave::custom_app_service& tool);
std::optional<tool_record> last_run_of(const vs::project_resave::custom_app_service& tool);
// Deselects elements by their uuids. Does nothing if the tool has no run record.
void leave_out(const vs::project_resave::custom_app_service& tool, const std::vector<wide_string>& uuids);
// Returns null if the tool has no run record.
vs::project_resave::run_record record_of(const vs::project_resave::custom_app_service& tool);
// Returns the number of finished runs; 0 if the tool has no run record.
std::uint32_t runs_of(const vs::project_resave::custom_app_service& tool);

// Returns a resave request with the same settings and selection. Like the tool, it replaces the target,
// copies no companions and starts even if drives are missing.
command::resave_request request_of(const tool_record& record);

} // namespace vestra::window
