// Saves scenes: the layers first, by the list's own walk, then the scene's file. While a scene is saved, the
// placement knows its folder and the top folder of its files.

#include "containers/resave_scenes.h"

#include "core/layer_group_writer.h"
#include "framework/border/string_adapter.h"
#include "framework/resources/strings.h"
#include "host/vsk_entity.h"
#include "host/vsk_lr.h"
#include "host/vsk_scn_2d.h"
#include "host/vsk_scn_3d.h"
#include "layers/layer_factory.h"
#include "layers/layer_files.h"
#include "operations/run/path_files.h"
#include "operations/run/run_state.h"
#include "platform/path_text.h"
#include "platform/system.h"

namespace vs::project_resave {

namespace {

// Kept as users know it: each attempt appends its number to the last name: a, a(1), a(1)(2).
wide_string next_scene_file_name(wide_string candidate) {
    for (uint32_t number = 1; is_name_taken(candidate); ++number)
        add_to_stem(candidate, u"(" + decimal(number) + u")");
    return candidate;
}

} // namespace

void Tvs_resave_scene::collect_common_directory(common_directory& common) {
    // In the run's common directory a scene's files count with all others; its own is needed only with a
    // folder for each scene.
    Tvs_resave_list::collect_common_directory(common);
    scene_directory.clear();
    Tvs_resave_list::collect_common_directory(scene_directory);
}

// Returns the caption without surrounding blanks; if the scene has a parent element, in a folder with the
// parent's caption.
wide_string Tvs_resave_scene::folder_name() {
    const wide_string own = trim(caption(), white_space);
    vs_entity* scene = entity();
    vs_entity* parent = scene ? vs_entity_get_parent(scene) : nullptr;
    return parent ? path_join(host_string(&vs_entity_get_wcaption, parent), own) : own;
}

void Tvs_resave_scene::before_save() {
    Tvs_resave_list::before_save();
    note_joins();
    context->placement.set_scene(&scene_directory, folder_name());
}

bool Tvs_resave_scene::lacks_joins() const { return context->joins.pending.size() > joins_before_; }

void Tvs_resave_scene::note_joins() { joins_before_ = context->joins.pending.size(); }

void Tvs_resave_scene::after_save(bool ok) {
    context->placement.clear_scene();
    Tvs_resave_list::after_save(ok);
}

bool Tvs_resave_scene::has_structure_content() { return context->options.write_layer_names; }

void Tvs_resave_scene_2d::build() {
    const uint32_t count = vs_scn_2d_get_layer_count(scene_);
    const wide_string list = heading();
    children.resize(count);
    for (uint32_t index = 0; index < count; ++index)
        place(index, make_layer_unit_2d(*context, vs_scn_2d_get_layer_ptr(scene_, index), list));
}

bool Tvs_resave_scene_2d::is_child_selected(uint32_t index) {
    const bool selected = Tvs_resave_list::is_child_selected(index);
    // Every operation over the tree asks, so this can be set long before the save.
    if (!selected) had_unselected_layer_ = true;
    return selected;
}

void Tvs_resave_scene_2d::after_children() {
    if (!scene_) return;
    // A group that was empty in the source stays, unless a layer was left out of this scene.
    if (had_unselected_layer_) {
        if (vs_lr_group* groups = vs_scn_2d_get_lr_group_ptr(scene_)) vs_lr_group_erase_empty_group(groups);
    }
    if (!context->options.save_scene_files) return;
    const wide_string folder = context->placement.current_output_folder();
    write_scene_file_2d(scene_, caption_file_path(folder, heading(), scene_2d_extension), *context, {},
                        lacks_joins());
}

bool Tvs_resave_scene_2d::write_scene_file() {
    // Kept as users know it: the path of the new project is used as a folder. Before the first run it is
    // empty.
    wide_string path = caption_file_path(context->placement.new_project_path, heading(), scene_2d_extension);
    if (is_name_taken(path)) {
        const bool is_file = path_exists(path); // else a pipe or a broken link
        if (!is_file || context->options.scene_file_on_exists == on_existing_file::new_name)
            path = next_scene_file_name(path);
        else if (context->guard.protects(path))
            return refuse(path);
        else if (context->options.scene_file_on_exists == on_existing_file::rewrite &&
                 context->guard.remove_file(path))
            context->report.add(fact_kind::written_over, {}, path);
    }
    write_scene_file_2d(scene_, path, *context);
    return true;
}

// Returns true, so that the other scenes are still written.
bool Tvs_resave_scene_2d::refuse(const wide_string& path) {
    const current_element scene(context->report, element_name_of(entity(), {}));
    context->report.add(fact_kind::not_written, {}, path, source_guard::reason);
    context->progress.questions->show_error(text::source_file_kept, path);
    return true;
}

vs_entities* Tvs_resave_scene_2d::container() { return scene_ ? vs_scn_2d_safe_upcast(scene_) : nullptr; }
wide_string Tvs_resave_scene_2d::heading() { return host_string(&vs_scn_2d_get_wcaption, scene_); }
void Tvs_resave_scene_2d::remove_child(uint32_t index) { vs_scn_2d_del_lr2d(scene_, index); }
vs_lr_group* Tvs_resave_scene_2d::layer_group() { return vs_scn_get_lr_group_ptr(scene_); }

void Tvs_resave_scene_3d::build() {
    const uint32_t count = vs_scn_3d_get_layer_count(scene_);
    const wide_string list = heading();
    children.resize(count);
    for (uint32_t index = 0; index < count; ++index)
        place(index, make_layer_unit_3d(*context, vs_scn_3d_get_layer_ptr(scene_, index), list));
}

void Tvs_resave_scene_3d::after_children() {
    if (!context->options.save_scene_files || !scene_) return;
    const wide_string folder = context->placement.current_output_folder();
    write_scene_file_3d(scene_, caption_file_path(folder, heading(), scene_3d_extension), *context,
                        lacks_joins());
}

vs_entities* Tvs_resave_scene_3d::container() { return scene_ ? vs_scn_3d_safe_upcast(scene_) : nullptr; }
wide_string Tvs_resave_scene_3d::heading() { return host_string(&vs_scn_3d_get_wcaption, scene_); }
void Tvs_resave_scene_3d::remove_child(uint32_t index) { vs_scn_3d_del_lr3d(scene_, index); }
vs_lr_group* Tvs_resave_scene_3d::layer_group() { return vs_scn_get_lr_group_ptr(scene_); }

void Tvs_resave_scenes_2d::build() {
    const uint32_t count = vs_scns_2d_get_size(scenes_);
    children.resize(count);
    for (uint32_t index = 0; index < count; ++index)
        place(index, std::make_unique<Tvs_resave_scene_2d>(vs_scns_2d_get(scenes_, index), *context));
}

bool Tvs_resave_scenes_2d::write_scene_file() {
    for (uint32_t index = 0; index < children.size(); ++index) {
        if (context->progress.is_stopped()) break;
        if (children[index] && is_child_selected(index)) children[index]->write_scene_file();
    }
    return true;
}

void Tvs_resave_scenes_2d::before_children() { context->progress.set_caption(text::saving_scenes_2d); }
vs_entities* Tvs_resave_scenes_2d::container() { return scenes_ ? vs_scns_2d_safe_upcast(scenes_) : nullptr; }
wide_string Tvs_resave_scenes_2d::heading() { return load_string(text::scenes_2d_heading); }
void Tvs_resave_scenes_2d::remove_child(uint32_t index) { vs_scns_2d_del(scenes_, index); }

void Tvs_resave_scenes_3d::build() {
    const uint32_t count = vs_scns_3d_get_size(scenes_);
    children.resize(count);
    for (uint32_t index = 0; index < count; ++index)
        place(index, std::make_unique<Tvs_resave_scene_3d>(vs_scns_3d_get(scenes_, index), *context));
}

void Tvs_resave_scenes_3d::before_children() { context->progress.set_caption(text::saving_scenes_3d); }
vs_entities* Tvs_resave_scenes_3d::container() { return scenes_ ? vs_scns_3d_safe_upcast(scenes_) : nullptr; }
wide_string Tvs_resave_scenes_3d::heading() { return load_string(text::scenes_3d_heading); }
void Tvs_resave_scenes_3d::remove_child(uint32_t index) { vs_scns_3d_del(scenes_, index); }

} // namespace vs::project_resave
