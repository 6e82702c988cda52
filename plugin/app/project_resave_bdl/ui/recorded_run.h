// What a run was to do and what became of it, kept for the host after the run's own record is gone.
#pragma once

#include <vector>

#include "host/toolkit/run_record.h"
#include "operations/run/made_files.h"
#include "operations/run/placed_files.h"
#include "operations/run/resave_options.h"
#include "operations/run/run_report.h"
#include "ui/host_questions.h"

namespace vs::project_resave {

struct run_state;

struct recorded_run {
    wide_string source, target;
    resave_settings settings; // all but the path
    double kilobytes = 0;
    std::vector<wide_string> left_out;
    std::vector<placed_file> placed;
    std::vector<made_file> made;
    std::vector<fact> facts;
    recorded_end end = recorded_end::none;

    void pass_to(const run_record_visitor& visitor) const;
};

// What of it is known before a run.
recorded_run planned_run(const run_state& run, const resave_settings& settings);

// The host's answers, and a record of each resave that is reported to the user.
class recording_questions final : public host_questions {
public:
    void show_report(const run_report& report) override;

    // What the next reports are about; not owned, null for nothing.
    const run_state* run = nullptr;
    recorded_run last;
    uint32_t count = 0;
};

} // namespace vs::project_resave
