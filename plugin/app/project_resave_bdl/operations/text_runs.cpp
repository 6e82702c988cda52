// The runs that write a text file: the structure of a loaded project, with one line for each unit, indented
// by depth; and the paths whose letter case differs from the spelling on the disk. Also the run that writes
// scene files.

#include "framework/border/host_owned.h"
#include "framework/resources/strings.h"
#include "host/vsk_msgs.h"
#include "operations/project_context.h"
#include "operations/run/path_files.h"
#include "operations/run_settings.h"
#include "platform/path_text.h"

namespace vs::project_resave {

namespace {

void take_over(const structure_settings& settings, resave_options& options) {
    options.write_layer_names = settings.write_layer_names;
    options.write_table_names = settings.write_table_names;
    options.write_table_columns = settings.write_table_columns;
    options.write_layout_layers = settings.write_layout_layers;
    options.write_legend_content = settings.write_legend_content;
    options.write_legend_columns = settings.write_legend_columns;
    options.write_file_paths = settings.write_file_paths;
    options.indent_unit.clear();
    for (uint32_t i = 0; i < settings.indent_repeat; ++i) options.indent_unit += settings.indent_text;
}

} // namespace

run_result project_context::save_structure(const structure_settings& settings) {
    if (!project) {
        progress.questions->show_error(text::project_loaded_incorrectly);
        return {};
    }
    options.reset();
    take_over(settings, options);
    run_result result = write_text(settings.output_path, [this] {
        log.write_indented(load_string(text::project_prefix) + path_file_name(placement.source_project_path));
        log.indent();
        if (!progress.is_stopped())
            for (const auto& root : tree) root->write_structure();
        log.unindent();
        log.write_indented(text::end_of_project);
    });
    // Kept as users know it: the message appears even if the text could not be written; the report says more.
    if (result.end == run_end::done) progress.questions->show_message(text::structure_saved);
    return result;
}

run_result project_context::write_text(const wide_string& path, const std::function<void()>& lines) {
    renew_guard();
    // The user may have chosen a file of the source as the text file.
    if (guard.protects(path)) {
        progress.questions->show_error(text::source_file_kept, path);
        return {};
    }
    report.restart(facts_of_tree_);
    placement.made.clear();
    progress.start(total_units);
    progress.set_caption(text::please_wait);
    progress.show();
    log.open(path, true);
    if (log.failure()) placement.made.add_written(path);
    try {
        lines();
    } catch (...) { // the next text must begin at depth 0
        while (log.unindent() > 0) {
        }
        return broke_off("text");
    }
    log.close();
    progress.finish();
    report.stopped = progress.is_stopped();
    if (report.stopped) {
        erase_made_files();
        progress.questions->show_message(text::interrupted_by_user);
    } else if (!log.failure()) {
        report.add(fact_kind::not_written, {}, path, log.failure().text());
    }
    return result_of(!report.stopped && log.failure());
}

// Handles an exception, usually from lack of memory. Closes the window and the project, which may be only
// partly loaded.
run_result project_context::broke_off(const char* run) {
    record_caught(run);
    log.close();
    progress.finish();
    close_project();
    progress.questions->show_error(text::project_not_saved);
    run_result result = result_of(false);
    result.end = run_end::broke_off;
    return result;
}

run_result project_context::check_path_case(const wide_string& report_path) {
    if (!project) {
        progress.questions->show_error(text::project_loaded_incorrectly);
        return {};
    }
    case_differs = false;
    run_result result = write_text(report_path, [this] {
        if (progress.is_stopped()) return;
        for (const auto& root : tree) root->check_path_case(&case_differs);
    });
    if (result.end == run_end::done)
        progress.questions->show_message(case_differs ? text::case_differs : text::case_is_right);
    return result;
}

// Writes each selected 2D scene of a loaded project to its own file.
run_result project_context::create_scene_files(const scene_file_settings& settings) {
    if (!project) {
        progress.questions->show_error(text::project_loaded_incorrectly);
        return {};
    }
    const host_owned<vs_wait, &vs_wait_destroy> wait(vs_wait_wcreate(load_string(text::please_wait).c_str()));
    report.restart(facts_of_tree_);
    options.reset();
    options.scene_file_on_exists = settings.on_exists;
    progress.clear_stop(); // of an earlier run; this one has no window with a stop button
    placement.made.clear();
    renew_guard();
    try {
        for (const auto& root : tree) root->write_scene_file();
    } catch (...) {
        return broke_off("scene files");
    }
    // Kept as users know it: the message appears even if a scene could not be written; the report says more.
    progress.questions->show_message(text::scene_files_saved);
    return result_of(!report.has(fact_kind::not_written));
}

} // namespace vs::project_resave
