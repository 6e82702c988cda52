// What all units do alike: building once, the frame of a save, and their lines in the structure text.

#include "core/resave_unit.h"

#include <utility>

#include "core/layer_group_writer.h"
#include "framework/border/encoding.h"
#include "framework/border/host_owned.h"
#include "framework/border/string_adapter.h"
#include "framework/resources/strings.h"
#include "host/vsk_attr_data.h"
#include "host/vsk_entity.h"
#include "host/vsk_file_tos4.h"
#include "operations/run/run_state.h"

namespace vs::project_resave {

wide_string with_path(run_state& run, wide_string caption, const wide_string& path) {
    const resave_options& options = run.options;
    if (!options.write_file_paths) return caption;
    // Without an indent the separator would be empty, and caption and path would run together.
    caption += options.indent_unit.empty() ? options.separator_fallback : options.indent_unit;
    return caption + path;
}

void write_attr_fields(run_state& run, vs_attr_data* table) {
    const host_owned<vs_attr_files, &vs_attr_files_close> files(
        vs_attr_files_open(table, vs_open_for_reading, 0, 0, 0));
    if (!files) return;
    const int32_t count = vs_attr_files_get_np(files.get());
    for (int32_t index = 0; index < count; ++index) {
        const wide_string name = host_text(vs_attr_files_get_field_name(files.get(), index));
        const bool joined = vs_attr_files_get_field_is_joined(files.get(), index);
        run.log.write_indented(joined ? load_string(text::join_field) + name : name);
    }
}

void write_tos_properties(run_state& run, const wide_string& path) {
    const host_owned<vs_tos4_file, &vs_tos4_file_close> file(
        vs_tos4_file_open_w(path.c_str(), vs_open_for_reading));
    const uint32_t count = vs_tos4_get_prop_count(file.get()); // 0 if the file did not open
    for (uint32_t index = 0; index < count; ++index)
        run.log.write_indented(host_string(&vs_tos4_get_prop_caption_w, file.get(), index));
}

void Tvs_resave_unit::build_once() {
    if (built) return;
    built = true; // set first, so that a unit reached during its own build is not built again
    before_build();
    build();
    after_build();
}

bool Tvs_resave_unit::save() {
    before_save();
    const bool ok = do_save();
    after_save(ok);
    return ok;
}

vs_uuid* Tvs_resave_unit::uuid() {
    vs_entity* own = entity();
    return own ? vs_entity_get_uuid(own) : nullptr;
}

wide_string Tvs_resave_unit::caption() {
    vs_entity* own = entity();
    return own ? host_string(&vs_entity_get_wcaption, own) : wide_string();
}

element_name Tvs_resave_unit::name_in(const wide_string& list) {
    return {uuid_to_text(uuid()), caption(), list};
}

void Tvs_resave_unit::before_build() {
    if (context->open_log.enabled) context->open_log.enter(caption() + load_string(text::begin_suffix));
    uuid_pushed = context->sizes.push_parent(uuid_to_text(uuid()));
}

void Tvs_resave_unit::after_build() {
    if (context->open_log.enabled) context->open_log.leave(caption() + load_string(text::end_suffix));
    if (uuid_pushed) context->sizes.pop_parent();
    vs_entity* own = entity();
    if (!own) return;
    // Shows an error box for an element without a uuid, which nothing can refer to.
    wide_string key = entity_uuid_text(own);
    if (key.empty()) return;
    const auto [row, is_new] = context->units.enter(std::move(key));
    if (is_new) context->units[row] = this; // the first unit with a uuid stays
}

void Tvs_resave_unit::before_save() { context->log.write(load_string(text::begin_prefix) + caption()); }

void Tvs_resave_unit::after_save(bool) { context->log.write(load_string(text::end_prefix) + caption()); }

std::unique_ptr<Tvs_resave_unit> make_claimed_unit(run_state& run, vs_entity* entity) {
    return run.claims != nullptr && entity != nullptr ? run.claims->make(run, entity) : nullptr;
}

bool select_referenced(run_state& run, const wide_string& uuid) {
    Tvs_resave_unit** const found = run.units.find(uuid);
    if (found == nullptr || (*found)->selection_state() == vs_state_true) return false;
    // Asked only here, so that a project without such references never shows the question.
    if (!run.options.ask_add_referenced()) return false;
    (*found)->set_selected(true);
    return true;
}

} // namespace vs::project_resave
