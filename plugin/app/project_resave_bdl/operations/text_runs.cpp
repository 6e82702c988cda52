#include "framework/border/host_owned.h"
#include "framework/resources/strings.h"
#include "host/vsk_msgs.h"
#include "operations/project_context.h"
#include "operations/run/path_files.h"
#include "operations/run_settings.h"
#include "platform/path_text.h"

namespace vs::project_resave {

// The runs that write a text file: the structure of a loaded project, a line for each unit, indented by
// depth; and each path whose letter case differs from the spelling on the disk.

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
    const run_result result = write_text(settings.output_path, [this] {
        log.write_indented(load_string(text::project_prefix) + path_file_name(placement.source_project_path));
        log.indent();
        if (!progress.is_stopped())
            for (const auto& root : tree) root->write_structure();
        log.unindent();
        log.write_indented(text::end_of_project);
    });
    if (result.end == run_end::done) progress.questions->show_message(text::structure_saved);
    return result;
}

run_result project_context::write_text(const wide_string& path, const std::function<void()>& lines) {
    report.restart(facts_of_tree_);
    progress.start(total_units);
    progress.set_caption(text::please_wait);
    progress.show();
    log.open(path, true);
    const auto end = [this] {
        log.close();
        progress.finish();
    };
    try {
        lines();
    } catch (...) { // out of memory: no window stays, and the next text begins at the left
        while (log.unindent() > 0) {
        }
        end();
        throw;
    }
    end();
    if (progress.is_stopped()) {
        remove_tree(path);
        progress.questions->show_message(text::interrupted_by_user);
        return {run_end::stopped, false, {}};
    }
    if (!log.failure()) report.add(fact_kind::not_written, {}, path, log.failure().text());
    return {run_end::done, static_cast<bool>(log.failure()), log.failure().text()};
}

run_result project_context::check_path_case(const wide_string& report_path) {
    if (!project) {
        progress.questions->show_error(text::project_loaded_incorrectly);
        return {};
    }
    case_differs = false;
    const run_result result = write_text(report_path, [this] {
        if (progress.is_stopped()) return;
        for (const auto& root : tree) root->check_path_case(&case_differs);
    });
    if (result.end == run_end::done)
        progress.questions->show_message(case_differs ? text::case_differs : text::case_is_right);
    return result;
}

// Each selected 2D scene of a loaded project to a file of its own.

run_result project_context::create_scene_files(const scene_file_settings& settings) {
    if (!project) {
        progress.questions->show_error(text::project_loaded_incorrectly);
        return {};
    }
    const host_owned<vs_wait, &vs_wait_destroy> wait(vs_wait_wcreate(load_string(text::please_wait).c_str()));
    report.restart(facts_of_tree_);
    options.reset();
    options.scene_file_on_exists = settings.on_exists;
    progress.clear_stop(); // of an earlier run: this one has no window in which it could be stopped
    for (const auto& root : tree) root->write_scene_file();
    progress.questions->show_message(text::scene_files_saved);
    return {run_end::done, !report.has(fact_kind::not_written), {}};
}

} // namespace vs::project_resave
