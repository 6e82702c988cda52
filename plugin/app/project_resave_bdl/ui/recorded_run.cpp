// Keeps the facts of a run for hosts that show more than the final message.

#include "ui/recorded_run.h"

#include <utility>

#include "operations/run/run_state.h"

namespace vs::project_resave {

void recorded_run::pass_to(const run_record_visitor& visitor) const {
    using told = run_record_visitor_impl;
    call<&told::visit_paths>(visitor, source.c_str(), target.c_str(), kilobytes);
    // By name, so that a new setting does not change the table.
    const std::pair<const char*, uint32_t> choices[] = {
        {"structure", settings.structure_variant},        {"rename", settings.rename_on_conflict},
        {"delete_lost", settings.delete_lost_sources},    {"scene_files", settings.save_scene_files},
        {"layer_files", settings.save_layer_files},       {"log", settings.write_log},
        {"project_file", settings.consider_project_file}, {"lower_case", settings.lower_case}};
    for (const auto& [choice, value] : choices) call<&told::visit_choice>(visitor, choice, value);
    for (const wide_string& uuid : left_out) call<&told::visit_left_out>(visitor, uuid.c_str());
    for (const placed_file& each : placed)
        call<&told::visit_placed>(visitor, each.old_path.c_str(), each.new_path.c_str());
    for (const made_file& each : made)
        call<&told::visit_made>(visitor, each.source.c_str(), each.path.c_str());
    for (const fact& each : facts) {
        call<&told::visit_fact>(visitor, static_cast<uint32_t>(each.kind), each.path.c_str(),
                                each.new_path.c_str(), each.reason.c_str());
        // Always in a pair with the call before; the visitor relies on that.
        call<&told::visit_element>(visitor, each.element.uuid.c_str(), each.element.caption.c_str(),
                                   each.element.list.c_str(), each.subject.c_str());
    }
}

recorded_run planned_run(const run_state& run, const resave_settings& settings) {
    recorded_run plan;
    plan.source = run.placement.source_project_path;
    // The record outlives the panel's text, so it keeps a copy and not the pointer.
    if (settings.output_path) plan.target = *settings.output_path;
    plan.settings = settings;
    plan.settings.output_path = nullptr;
    plan.kilobytes = run.sizes.total_kb();
    plan.left_out.assign(run.selection.left_out().begin(), run.selection.left_out().end());
    return plan;
}

// If memory runs out, the record is lost, but the message is still shown.
void recording_questions::show_report(const run_report& report) {
    try {
        last = {};
        if (run) {
            resave_settings settings;
            settings.structure_variant = run->options.structure_variant;
            settings.rename_on_conflict = run->options.rename_on_conflict;
            settings.delete_lost_sources = run->options.delete_lost_sources;
            settings.save_scene_files = run->options.save_scene_files;
            settings.save_layer_files = run->options.save_layer_files;
            // The log object keeps the path of the last log, which may be that of an earlier run.
            settings.write_log = run->log.path() == run->placement.log_path;
            settings.consider_project_file = run->options.consider_project_file;
            settings.lower_case = run->options.lower_case;
            settings.output_path = &run->placement.new_project_path;
            last = planned_run(*run, settings);
            last.placed.assign(run->placement.placed.begin(), run->placement.placed.end());
            last.made = run->placement.made.files();
        }
        last.facts = report.facts();
    } catch (...) {
        record_caught("record of a run");
        last = {};
    }
    last.end = report.stopped ? recorded_end::stopped
               : report.saved ? recorded_end::saved
                              : recorded_end::not_saved;
    ++count;
    host_questions::show_report(report);
}

} // namespace vs::project_resave
