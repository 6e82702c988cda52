// Saves an element through its bundle's service. What the service reports is checked: it may count wrongly,
// name files of others, or leave a failed copy behind.

#include "services/resave_entity_plugin.h"

#include <string_view>

#include "core/copying.h"
#include "core/data_source.h"
#include "core/layer_group_writer.h"
#include "core/resave_unit.h"
#include "framework/border/encoding.h"
#include "host/vsk_entity.h"
#include "host/vsk_lr.h"
#include "host/vsk_lr2d.h"
#include "host/vsk_lr3d.h"
#include "host/vsk_scn_2d.h"
#include "host/vsk_scn_3d.h"
#include "layers/layer_files.h"
#include "operations/run/path_files.h"
#include "operations/run/run_state.h"
#include "platform/path_text.h"
#include "services/service_answers.h"

namespace vs::project_resave {

namespace {

const platform::outcome refused_by_service =
    platform::outcome::because(u"the bundle that owns the element did not copy it");

} // namespace

void resave_entity_plugin::build() {
    collect_references();
    collect_rows();
    Tvs_resave_file::build();
}

uint32_t resave_entity_plugin::believed(const std::optional<uint32_t>& count) {
    if (!count) has_miscounted_ = true;
    return count.value_or(0);
}

void resave_entity_plugin::collect_references() {
    references_.clear();
    const uint32_t count =
        believed(count_from<&resave_entity_service_impl::reference_count>(service_.get(), entity_));
    for (uint32_t index = 0; index < count; ++index) {
        // A new one for each call: a service that sets nothing must not return the last one.
        owned_uuid uuid(vs_uuid_create());
        call<&resave_entity_service_impl::reference_uuid>(service_.get(), entity_, index, uuid.get());
        if (vs_uuid_has_value(uuid.get())) references_.push_back(std::move(uuid));
    }
}

void resave_entity_plugin::collect_rows() {
    files_.clear();
    const uint32_t count =
        believed(count_from<&resave_entity_service_impl::file_count>(service_.get(), entity_));
    for (uint32_t index = 0; index < count; ++index) {
        file_row& row = files_.emplace_back();
        stdwstring_visitor source(row.source), folder(row.folder);
        call<&resave_entity_service_impl::file_info>(service_.get(), entity_, index, source, folder);
    }
}

// Asked again, since the paths may have changed since the unit was built.
std::vector<wide_string> resave_entity_plugin::named_files() {
    collect_rows();
    std::vector<wide_string> paths;
    for (const file_row& row : files_)
        if (!row.source.empty()) paths.push_back(row.source);
    return paths;
}

void resave_entity_plugin::collect_source_files(std::vector<found_file>& out) {
    out.clear();
    for (const file_row& row : files_) context->guard.add(row.source);
    const wide_string_list named;
    if (call<&resave_entity_service_impl::all_files>(service_.get(), entity_, named)) {
        for (const wide_string& path : named.texts()) append_if_exists(path, out);
        return;
    }
    for (const file_row& row : files_)
        if (!append_existing_files(row.source, out)) return;
    // A path that does not open ends the list, as for the bundle's own layers.
}

bool resave_entity_plugin::write_structure() {
    skip_progress();
    wide_string line = caption();
    for (const file_row& row : files_) line = with_path(*context, std::move(line), row.source);
    context->log.write_indented(line);
    return true;
}

bool resave_entity_plugin::correct_selection() {
    bool unchanged = true;
    for (const owned_uuid& uuid : references_)
        if (select_referenced(*context, uuid_to_text(uuid.get()))) unchanged = false;
    return unchanged;
}

bool resave_entity_plugin::do_save() {
    if (has_miscounted_) record_copy_failure(*context, {{}, {}, impossible_count}, caption());
    uint32_t found = 0;
    for (uint32_t index = 0; index < files_.size(); ++index)
        if (save_row(index)) ++found;
    skip_progress();
    // An element with several files counts as lost only if all of them are.
    if (!files_.empty() && found == 0) return false;
    save_own_file();
    return true;
}

// Returns true if the file of the row was found, even if it was not copied.
bool resave_entity_plugin::save_row(uint32_t index) {
    const wide_string& source = files_[index].source;
    if (source.empty()) return false;
    if (!path_exists(source)) {
        record_lost_source(*context, source, caption());
        return false;
    }
    wide_string target = context->placement.lookup_placed(source);
    if (target.empty()) target = place_and_copy_row(index);
    call<&resave_entity_service_impl::set_file>(service_.get(), entity_, index, target.c_str());
    return true;
}

wide_string resave_entity_plugin::place_and_copy_row(uint32_t index) {
    const type_folder_scope type(context->placement, folder_below(files_[index].folder));
    wide_string target = context->placement.new_path(files_[index].source);
    if (target.empty())
        record_no_place(*context, files_[index].source, target);
    else
        copy_row(index, target);
    return target;
}

// An empty target names no file, so there is nothing to record or to remove.
void resave_entity_plugin::copy_row(uint32_t index, const wide_string& target) {
    const wide_string& source = files_[index].source;
    const wide_string_list from, to;
    // Recorded before the copy, to recognise what the service creates.
    context->placement.made.note_folder(path_head(target));
    const bool copied = call<&resave_entity_service_impl::copy_files>(
        service_.get(), entity_, index, source.c_str(), target.c_str(), from, to);
    std::vector<wide_string> sources = from.texts(), targets = to.texts();
    // A service may return lists of different lengths.
    sources.resize(targets.size());
    for (size_t row = 0; row < targets.size(); ++row) {
        if (targets[row].empty()) continue;
        if (copied)
            enter_copy(sources[row], targets[row]);
        else
            clean_up(targets[row]);
    }
    if (!copied) record_copy_failure(*context, {source, target, refused_by_service});
}

// Records what the service copied, if it exists. After a stop, what did not exist before is removed.
void resave_entity_plugin::enter_copy(const wide_string& source, const wide_string& target) {
    context->placement.register_placed(source, target);
    made_files& made = context->placement.made;
    if (!made.is_new(target)) return;
    if (platform::current_system().kind_of(target) != platform::entry_kind::folder)
        return made.add_copy(source, target);
    made.add_folder(target);
    const wide_string to = path_with_separator(target);
    for (const platform::tree_entry& entry : platform::list_tree(platform::current_system(), to))
        if (entry.is_folder)
            made.add_folder(entry.path);
        else
            made.add_copy(path_join(source, path_relative(to, entry.path)), entry.path);
}

// A service may name any path. Only what appeared below the new project's folder during the copy was made by
// it.
void resave_entity_plugin::clean_up(const wide_string& target) {
    if (!path_exists(target)) return;
    const path_placement& placement = context->placement;
    const wide_string below = path_key(placement.new_folder) + u'\\';
    platform::outcome removed;
    if (!path_key(target).starts_with(below))
        removed = platform::outcome::because(u"it is outside the new project's folder");
    else if (!placement.made.is_new(target) || placement.made.is_copy(target))
        removed = platform::outcome::because(u"it was there before the bundle copied");
    else
        removed = context->guard.remove_tree(target);
    if (!removed && path_exists(target))
        context->report.add(fact_kind::not_erased, {}, target, removed.text());
}

// Returns a path next to the new project, even if each scene has its own folder.
wide_string resave_entity_plugin::own_file(wide_view extension) {
    return caption_file_path(path_head(context->placement.new_project_path), caption(), extension);
}

void resave_entity_plugin::save_own_file() {
    if (context->options.save_scene_files) save_own_scene();
    vs_lr* layer = context->options.save_layer_files ? vs_lr_safe_downcast(entity_) : nullptr;
    if (vs_lr2d_safe_downcast(layer)) {
        write_layer_file_2d(layer, own_file(layer_2d_extension), *context);
    }
    if (vs_lr3d_safe_downcast(layer)) {
        write_layer_file_3d(layer, own_file(layer_3d_extension), *context);
    }
}

void resave_entity_plugin::save_own_scene() {
    const std::string_view meta_id = narrow_or_empty(vs_entity_get_meta_id(entity_));
    vs_scn_2d* flat = meta_id == "Scene2DMetaID" ? vs_scn_2d_safe_downcast(entity_) : nullptr;
    vs_scn_3d* solid = meta_id == "Scene3DMetaID" ? vs_scn_3d_safe_downcast(entity_) : nullptr;
    if (flat) write_scene_file_2d(flat, own_file(scene_2d_extension), *context);
    if (solid) write_scene_file_3d(solid, own_file(scene_3d_extension), *context);
}

} // namespace vs::project_resave
