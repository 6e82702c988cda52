// The plan of a resave, taken from a dry run.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "apps/vestra_resave/names_by_file.h"
#include "apps/vestra_resave/resave_report.h"
#include "apps/vestra_resave/trial_disk.h"

namespace vestra::command {

class session;
struct resave_request;
class packed_archive;

// What a dry run would write.
struct resave_plan {
    struct file {
        wide_string source; // empty if it has none: a scene or layer file, a log
        wide_string target;
        uint64_t bytes = 0;
        bool renamed = false; // it or its folder was renamed, because the name was taken
        bool written = false; // written by the host; otherwise a copy
    };
    std::vector<file> files;
    uint64_t bytes = 0;                 // of all files
    std::optional<uint64_t> free_bytes; // at the target; no value if unknown
    wide_string free_space_failure;     // why it is unknown
};

// Returns the plan of the run that has just ended. Call it while the trial disk is installed and the context
// is still that of the run. Adds a problem to the report if there is too little space.
resave_plan plan_of(const vs::project_resave::run_state& run, trial_disk& disk, resave_report& report);

// Returns the files that a run made and that exist, in the same form: copies, and files that it wrote itself.
// Requests the status of each.
std::vector<resave_plan::file> made_files_of(const vs::project_resave::run_state& run);

// The complete result of a resave or a dry run.
struct ended_resave {
    std::optional<refusal> early; // why there was no run; the rest is then empty
    resave_report report;
    std::optional<resave_plan> plan; // of a dry run
    // The new project, spelled as on the disk.
    wide_string target;
    std::vector<resave_plan::file> files = {}; // of a real run, if a report is requested
    names_by_file names = {};                  // of the source, likewise
};
// Returns why a dry run is impossible: a bundle copies files itself.
std::optional<refusal> refuse_trial();
// Resaves like the command without printing anything. `trial` and `archive` can be null; otherwise they are
// the trial disk or the archive to resave into, and the disk of this one must be the current disk. Loads the
// source into the session and afterwards, if the run saved, the new project. Removes what an unsuccessful run
// left: empty folders, the temporary file of an archive.
ended_resave resave_in(session& host, const resave_request& request, trial_disk* trial,
                       packed_archive* archive = nullptr);

// Returns or prints the plan with the report of the dry run.
nlohmann::ordered_json json_of(const resave_plan& plan, const resave_report& report);
void print_text(const resave_plan& plan, const resave_report& report, const wide_string& new_project);

} // namespace vestra::command
