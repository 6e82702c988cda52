// What a tool tells of its settings and of its last run, read over its tables.
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

struct tool_record {
    wide_string source, target;
    double kilobytes = 0;
    std::map<std::string, std::uint32_t> choices;
    std::vector<wide_string> left_out;
    struct file {
        wide_string source, target;
    };
    std::vector<file> placed;               // a folder that is copied whole is one of them
    std::vector<file> made;                 // single files; those without a source the run wrote itself
    std::vector<command::problem> problems; // and notices
    vs::project_resave::recorded_end end = vs::project_resave::recorded_end::none;
};

// Both return nothing for a tool that tells nothing.
std::optional<tool_record> settings_of(const vs::project_resave::custom_app_service& tool);
std::optional<tool_record> last_run_of(const vs::project_resave::custom_app_service& tool);
// Unticks elements by their uuids; such a tool keeps all ticks.
void leave_out(const vs::project_resave::custom_app_service& tool, const std::vector<wide_string>& uuids);
// Null for such a tool.
vs::project_resave::run_record record_of(const vs::project_resave::custom_app_service& tool);
// How many runs have ended; 0 for such a tool.
std::uint32_t runs_of(const vs::project_resave::custom_app_service& tool);

// The resave with the same settings and the same selection. Like the tool it replaces what is at its target.
command::resave_request request_of(const tool_record& record);

} // namespace vestra::window
