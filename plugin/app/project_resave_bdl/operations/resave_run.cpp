// The resave of a loaded project, from applying the settings to asking whether to reopen the source.
#include "operations/project_context.h"

#include <algorithm>
#include <functional>
#include <string_view>

#include "core/data_source.h"
#include "framework/border/encoding.h"
#include "framework/border/host_owned.h"
#include "framework/resources/strings.h"
#include "host/vsk_entity.h"
#include "host/vsk_msgs.h"
#include "host/vsk_prj.h"
#include "host/vsk_xml_save_prj.h"
#include "operations/run/path_files.h"
#include "platform/path_text.h"

namespace vs::project_resave {

namespace {

using wait_window = host_owned<vs_wait, &vs_wait_destroy>;
using project_xml = host_owned<vs_xml_save_prj, &vs_xml_save_prj_destroy>;

// The round after which a selection that still changes is accepted as it is.
constexpr uint32_t last_round = 12;

bool is_scene_collection(vs_entity* entity) {
    const std::string_view meta_id = narrow_or_empty(vs_entity_get_meta_id(entity));
    return meta_id == "Scene2DCollectionMetaID" || meta_id == "Scene3DCollectionMetaID";
}

} // namespace

run_result project_context::resave_project(const resave_settings& settings) {
    if (!project) {
        progress.questions->show_error(text::project_loaded_incorrectly);
        return {};
    }
    renew_guard();
    // Checked before anything is written: a new project over the source would destroy it.
    if (guard.protects(*settings.output_path)) {
        progress.questions->show_error(text::same_project_name);
        return {};
    }
    try {
        begin_run(settings);
        correct_selection();
        find_common_directory();
        // The log is one of the placed files, without a source, even if it is not written.
        placement.register_placed(wide_string(), placement.log_path);
        log.dump_unprocessed_types();
        log.write(text::log_project_loaded);
        if (!progress.is_stopped()) save_tree();
        put_joins_back(*this); // also after a stop
        if (!progress.is_stopped()) save_project();
        log.close();
        release_project();
        end_run();
    } catch (...) {
        record_caught("resave");
        end_broken_run();
        run_result result = result_of(report.saved);
        result.end = run_end::broke_off;
        return result;
    }
    return result_of(report.saved);
}

run_result project_context::result_of(bool written) {
    run_result result{report.stopped ? run_end::stopped : run_end::done, written, {}, {}};
    for (const fact& each : report.facts())
        if (!written && (each.kind == fact_kind::exception_caught || each.kind == fact_kind::not_written))
            result.failure = each.reason;
    for (const made_file& each : placement.made.files())
        if (each.source.empty()) result.files.push_back(each.path);
    return result;
}

// Kept as users know it: the log of an earlier run gets further lines. But it is closed for good if its file
// belongs to the project that is loaded now.
void project_context::renew_guard() {
    guard.renew();
    if (guard.protects(log.path())) log.forget();
}

void project_context::begin_run(const resave_settings& settings) {
    report.restart(facts_of_tree_);
    options.reset();
    options.assign(settings);
    placement.set_output(*settings.output_path);
    if (settings.write_log) open_log_of_run();
    progress.start(total_units);
    progress.set_caption(text::saving_project_file);
    progress.show();
}

// Overwrites an older log, but never a file of the source: in that case the log gets the next free name.
void project_context::open_log_of_run() {
    wide_string& path = placement.log_path;
    const bool existed = path_exists(path);
    const wide_string wanted = path;
    if (guard.protects(path) || (!existed && is_name_taken(path)))
        path = placement.next_free_name(path, true);
    log.open(path, true);
    // In an outcome, true is success: without the file there is nothing to record.
    if (!log.failure()) return;
    placement.made.add_written(path);
    if (path != wanted)
        report.add(fact_kind::renamed, wanted, path);
    else if (existed)
        report.add(fact_kind::written_over, {}, path);
}

// Runs rounds in which each unit may add what it refers to, until no unit adds anything.
// Kept as users know it: the last round marks the report even if nothing changed in it.
void project_context::correct_selection() {
    log.write(text::correction_begin);
    for (uint32_t round = 1; round <= last_round; ++round) {
        bool clean = true;
        bool stopped = false;
        for (const auto& root : tree) {
            if ((stopped = progress.is_stopped())) break;
            if (!root->correct_selection()) clean = false;
        }
        if (stopped) break;
        if (round == last_round) report.add(fact_kind::selection_not_settled, {});
        if (clean) break;
    }
    log.write(text::correction_end);
}

void project_context::find_common_directory() {
    log.write(text::common_folder_begin);
    // It only affects the structure from the common top folder: a scene's own common folder never includes
    // it.
    if (options.consider_project_file) placement.common.add_path(placement.source_project_path);
    for (const auto& root : tree) {
        if (progress.is_stopped()) break;
        root->collect_common_directory(placement.common);
    }
    log.write(text::common_folder_end);
}

// With a folder for each scene, the new project contains only its scenes: every other container is emptied,
// and roots without a container are skipped.
void project_context::save_tree() {
    for (const auto& root : tree) {
        const current_element saved(report, root->name_in({}));
        vs_entity* const entity = root->entity();
        if (options.structure_variant != folder_per_scene || (entity && is_scene_collection(entity)))
            root->save();
        else if (vs_entities* container = entity ? vs_entities_safe_downcast(entity) : nullptr)
            vs_entities_clear(container);
    }
}

void project_context::save_project() {
    progress.set_caption(text::saving_project_file);
    progress.show();
    const wide_string& path = placement.new_project_path;
    const project_xml writer(vs_xml_save_prj_create());
    const bool existed = path_exists(path);
    const bool written = (vs_xml_data_save_prj_w(writer.get(), path.c_str(), project) & 0xFF) != 0;
    // What exists on the disk decides, not the writer's result. But an older project that was not replaced is
    // not the new one.
    const bool saved = path_exists(path) && (written || !existed);
    if (saved) {
        placement.register_placed(placement.source_project_path, path);
        placement.made.add_written(path);
    }
    if (written && existed) report.add(fact_kind::written_over, placement.source_project_path, path);
    if (!written || !saved) report.add(fact_kind::not_written, placement.source_project_path, path);
    note_project_saved(saved);
}

void project_context::note_project_saved(bool ok) {
    log.write(ok ? text::log_project_saved : text::project_file_not_saved);
    report.saved = ok;
}

// The host's project has been released: no unit may be used before the reload or the clearing.
void project_context::end_run() {
    if (progress.is_stopped()) on_stopped();
    progress.finish();
    if (log.path() == placement.log_path && !log.failure())
        report.add(fact_kind::not_written, {}, log.path(), log.failure().text());
    progress.questions->show_report(report);
    options.structure_variant = by_type; // so that a rebuilt tree has all its units
    if (progress.questions->reopen_source()) {
        load_project(placement.source_project_path, true, false);
        return;
    }
    forget_project();
}

void project_context::forget_project() {
    selection.clear();
    sizes.clear();
    clear_tree();
    project_changed.fire();
}

// A run that broke off never leaves its half-changed project loaded. If it broke off after the save, the new
// project exists, and the report says so.
void project_context::end_broken_run() {
    progress.finish();
    options.structure_variant = by_type;
    placement.clear_scene();
    joins.clear();
    log.close();
    release_project();
    forget_project();
    progress.questions->show_report(report);
}

void project_context::on_stopped() {
    const wait_window wait(vs_wait_wcreate(load_string(text::wait_for_end).c_str()));
    log.write(text::operation_interrupted);
    report.stopped = true;
    if (!progress.erase_created) return;
    release_project();
    clear_tree();
    erase_made_files();
}

// Keeps whatever the run did not create, and the folders that contain it.
void project_context::erase_made_files() {
    const auto keep = [this](const made_file& file, const platform::outcome& why) {
        report.add(fact_kind::not_erased, file.source, file.path, why.text());
    };
    for (const made_file& file : placement.made.files()) {
        const platform::outcome removed = guard.remove_file(file.path);
        if (!removed && path_exists(file.path)) keep(file, removed);
    }
    std::vector<wide_string> folders = placement.created_folders;
    folders.insert(folders.end(), placement.made.folders().begin(), placement.made.folders().end());
    // Each folder comes after the folders in it.
    std::ranges::stable_sort(folders, std::ranges::greater(), [](const wide_string& path) {
        return path_split(path, path_separators, true).size();
    });
    wide_string reported; // a folder that could not be removed; those above it are not reported
    for (const wide_string& folder : folders) {
        const platform::outcome removed = guard.remove_folder(folder);
        if (removed || !path_exists(folder) || reported.starts_with(path_with_separator(folder))) continue;
        reported = path_with_separator(folder);
        keep({{}, folder}, removed);
    }
}

bool project_context::stop_and_reload() {
    on_stopped();
    options.structure_variant = by_type; // so that a rebuilt tree has all its units
    return load_project(placement.source_project_path, false, false);
}

} // namespace vs::project_resave
