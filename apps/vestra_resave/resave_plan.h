// What a resave would do, from a run that was tried out.
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

struct resave_plan {
    struct file {
        wide_string source; // empty for one that has none: a scene or layer file, a log
        wide_string target;
        uint64_t bytes = 0;
        bool renamed = false; // it, or a folder it is copied in, as its own name is taken
        bool written = false; // by the host, anew; else it is a copy
    };
    std::vector<file> files;
    uint64_t bytes = 0;                 // of all files
    std::optional<uint64_t> free_bytes; // where they go; nothing if that is unknown
    wide_string free_space_failure;     // why it is unknown
};

// While the disk is in force. What the run left in the context is read. Too little space is added to the
// problems of the run.
resave_plan plan_of(const vs::project_resave::run_state& run, trial_disk& disk, resave_report& report);

// The files that a run has made and that exist, in the same form.
std::vector<resave_plan::file> made_files_of(const vs::project_resave::run_state& run);

// A resave with all that is known of it.
struct ended_resave {
    std::optional<refusal> early; // why there was no run; the rest is empty then
    resave_report report;
    std::optional<resave_plan> plan;           // of one that was tried out
    wide_string target;                        // the new project
    std::vector<resave_plan::file> files = {}; // of a real one, if a page of it is wanted
    names_by_file names = {};                  // of the source, likewise
};
// Returns why nothing can be tried out: a bundle copies files by itself.
std::optional<refusal> refuse_trial();
// Resaves as the command does, and says nothing; on a trial disk, or into an archive, if there is one: its
// disk is in force.
ended_resave resave_in(session& host, const resave_request& request, trial_disk* trial,
                       packed_archive* archive = nullptr);

// The plan with the report of the run that was tried out.
nlohmann::ordered_json json_of(const resave_plan& plan, const resave_report& report);
void print_text(const resave_plan& plan, const resave_report& report, const wide_string& new_project);

} // namespace vestra::command
