// The resave of a loaded project, from the settings to the question of reopening the source.
#include "operations/project_context.h"

#include <string_view>

#include "framework/border/encoding.h"
#include "framework/border/host_owned.h"
#include "framework/resources/strings.h"
#include "host/vsk_entity.h"
#include "host/vsk_msgs.h"
#include "host/vsk_prj.h"
#include "host/vsk_xml_save_prj.h"
#include "operations/run/path_files.h"

namespace vs::project_resave {

namespace {

using wait_window = host_owned<vs_wait, &vs_wait_destroy>;
using project_xml = host_owned<vs_xml_save_prj, &vs_xml_save_prj_destroy>;

// The round after which a selection that still changes is taken as it is.
constexpr uint32_t last_round = 12;

bool is_scene_collection(vs_entity* entity) {
    const std::string_view meta_id = narrow_or_empty(vs_entity_get_meta_id(entity));
    return meta_id == "Scene2DCollectionMetaID" || meta_id == "Scene3DCollectionMetaID";
}

} // namespace

bool project_context::resave_project(const resave_settings& settings) {
    if (!project) {
        show_error(501);
        return false;
    }
    try {
        begin_run(settings);
        correct_selection();
        find_common_directory();
        placement.register_placed(wide_string(), placement.log_path);
        log.dump_unprocessed_types();
        log.write(631);
        if (!progress.is_stopped()) save_tree();
        deferred_joins_.run(); // after a stop, too
        if (!progress.is_stopped()) save_project();
        log.close();
        release_project();
        end_run();
    } catch (...) {
        abandon_run();
    }
    return true;
}

void project_context::begin_run(const resave_settings& settings) {
    report.reset();
    report.unprocessed_types = types_of_tree;
    options.reset();
    options.assign(settings);
    placement.set_output(*settings.output_path);
    log.open(placement.log_path, settings.write_log);
    progress.start(total_units);
    progress.set_caption(356);
    progress.show();
}

// Rounds in which each unit may add what it refers to, until none adds anything. The last round marks the
// report even if it was clean.
void project_context::correct_selection() {
    log.write(643);
    for (uint32_t round = 1; round <= last_round; ++round) {
        bool clean = true;
        bool stopped = false;
        for (const auto& root : tree) {
            if ((stopped = progress.is_stopped())) break;
            if (!root->correct_selection()) clean = false;
        }
        if (stopped) break;
        if (round == last_round) report.depth_exceeded = true;
        if (clean) break;
    }
    log.write(644);
}

void project_context::find_common_directory() {
    log.write(645);
    if (options.consider_project_file) placement.common.add_path(placement.source_project_path);
    for (const auto& root : tree) {
        if (progress.is_stopped()) break;
        root->collect_common_directory(placement.common);
    }
    log.write(646);
}

// With a folder for each scene the new project holds its scenes alone: every other container is emptied, and
// roots that are no container are passed over.
void project_context::save_tree() {
    for (const auto& root : tree) {
        if (options.structure_variant != folder_per_scene) {
            root->save();
        } else if (vs_entity* entity = root->entity()) {
            if (is_scene_collection(entity))
                root->save();
            else if (vs_entities* container = vs_entities_safe_downcast(entity))
                vs_entities_clear(container);
        }
    }
}

void project_context::save_project() {
    progress.set_caption(356);
    progress.show();
    const project_xml writer(vs_xml_save_prj_create());
    vs_xml_data_save_prj_w(writer.get(), placement.new_project_path.c_str(), project);
    // What stands on the disk decides, not what the writer says.
    const bool saved = path_exists(placement.new_project_path);
    if (saved) placement.register_placed(placement.source_project_path, placement.new_project_path);
    note_project_saved(saved);
}

void project_context::note_project_saved(bool ok) {
    log.write(ok ? 630u : 628u);
    report.saved = ok;
}

// The project is gone: until the reload or the clearing nothing may touch a unit.
void project_context::end_run() {
    if (progress.is_stopped()) on_stopped();
    progress.finish();
    report.show_final_message();
    options.structure_variant = by_type; // a tree that is built anew has all its units
    if (ask_yes_no(528)) {
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

// A run that broke off never leaves its half-changed project loaded.
void project_context::abandon_run() {
    progress.finish();
    report.saved = false;
    options.structure_variant = by_type;
    placement.set_type_folder(u"files");
    placement.clear_scene();
    deferred_joins_.pending.clear();
    log.close();
    release_project();
    forget_project();
    show_error(509);
}

void project_context::on_stopped() {
    const wait_window wait(vs_wait_wcreate(load_string(360).c_str()));
    log.write(633);
    report.stopped = true;
    if (!progress.erase_created) return;
    release_project();
    clear_tree();
    for (const placed_file& file : placement.placed)
        if (file.old_path != file.new_path) remove_tree(file.new_path);
    for (const wide_string& folder : placement.created_folders) remove_tree(folder);
    const auto note_if_there = [&](const wide_string& path) {
        if (path_exists(path)) report.not_erased.push_back(path);
    };
    for (const placed_file& file : placement.placed)
        if (file.old_path != file.new_path) note_if_there(file.new_path);
    for (const wide_string& folder : placement.created_folders) note_if_there(folder);
}

bool project_context::stop_and_reload() {
    on_stopped();
    options.structure_variant = by_type; // a tree that is built anew has all its units
    return load_project(placement.source_project_path, false, false);
}

} // namespace vs::project_resave
