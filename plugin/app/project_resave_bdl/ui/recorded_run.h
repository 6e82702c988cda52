// The plan and the result of a run, kept for the host after the run's own state is gone. Main thread only.
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

// Everything that is passed to a run_record_visitor. All texts are copies, so the record stays valid after
// the project is closed.
struct recorded_run {
    wide_string source, target;
    // The pointer to the path is null; `target` has the path.
    resave_settings settings; // except the path
    // Of everything selected, in units of 1024 bytes, as the panel shows it.
    double kilobytes = 0;
    // Uuids in no particular order.
    std::vector<wide_string> left_out;
    std::vector<placed_file> placed;
    std::vector<made_file> made;
    std::vector<fact> facts;
    recorded_end end = recorded_end::none;

    // Passes everything to the visitor, in the order that run_record.h describes.
    void pass_to(const run_record_visitor& visitor) const;
};

// Returns the part of the record that is known before a run: paths, settings, size and what is left out.
recorded_run planned_run(const run_state& run, const resave_settings& settings);

// Asks through the host's boxes, and keeps a record of each resave that is reported to the user. A new record
// replaces the last one.
class recording_questions final : public host_questions {
public:
    // Keeps the record and counts the run, then shows the message.
    void show_report(const run_report& report) override;

    // The state that the next report is about; not owned, may be null. Then the record has only the facts.
    const run_state* run = nullptr;
    // The record of the last resave, and the number of resaves.
    recorded_run last;
    uint32_t count = 0;
};

} // namespace vs::project_resave
