// The save of one file, in the same order for all kinds of units: look it up, place it, copy its family,
// refer to the copy.

#include "core/resave_file.h"

#include <stdexcept>

#include "core/copying.h"
#include "core/data_source.h"
#include "core/layer_group_writer.h"
#include "framework/resources/text_rows.h"
#include "host/vsk_basic.h"
#include "operations/run/path_files.h"
#include "operations/run/placed_files.h"
#include "operations/run/run_state.h"

namespace vs::project_resave {

void Tvs_resave_file::build() {
    std::vector<found_file> found;
    collect_source_files(found);
    source_files = context->sizes.add_files(found);
    context->guard.add(source_path());
    for (const wide_string& table : joined_tables(attr_data())) context->guard.add(table);
}

void Tvs_resave_file::collect_source_files(std::vector<found_file>& out) {
    out.clear();
    append_existing_files(source_path(), out);
}

bool Tvs_resave_file::do_save() {
    const wide_string source = source_path();
    if (source.empty()) {
        skip_progress();
        return true; // an element without a file is not a failure
    }
    if (!path_exists(source)) {
        record_lost_source(*context, source, caption());
        skip_progress();
        return false;
    }
    wide_string target = context->placement.lookup_placed(source);
    if (target.empty())
        target = place_and_copy(source);
    else
        note_kept_joins(attr_data(), *context);
    // Kept as users know it: the element refers to the new path even if the copy failed.
    set_new_path(target);
    skip_progress();
    after_file_saved();
    return true;
}

wide_string Tvs_resave_file::place_and_copy(const wide_string& source) {
    path_placement& placement = context->placement;
    // Not every structure uses the type folder, but every file has one while it is placed.
    const type_folder_scope type(placement, default_folder());
    wide_string target = placement.new_path(source);
    if (target.empty()) {
        // Kept as users know it: the log shows the new path, which is empty here, and not the source.
        record_no_place(*context, source, target);
    } else {
        try {
            copy_files(source, target);
        } catch (const std::out_of_range&) { // such an extension gives no name for a world file
            copy_projection_file(source, target, *context);
        }
    }
    return target;
}

bool Tvs_resave_file::write_structure() {
    skip_progress();
    // For a kind of unit that does not write its own line.
    context->log.write_indented(text::unrecorded_files);
    return false;
}

bool Tvs_resave_file::check_path_case(bool* found) {
    std::vector<found_file> files; // listed again, since the source may have changed since the build
    collect_source_files(files);
    for (const auto& [path, status] : files) {
        wide_string spelling;
        if (!true_case_path(path, spelling) || spelling == path) continue;
        *found = true;
        context->log.write(path);
        context->log.write(spelling);
        context->log.write(wide_string());
    }
    skip_progress();
    return true;
}

uint32_t Tvs_resave_file::count_units(uint32_t& total) {
    total += weight;
    return weight;
}

void Tvs_resave_file::skip_progress() { context->progress.advance(weight); }

void Tvs_resave_file::collect_common_directory(common_directory& common) {
    for (const uint32_t file : source_files) common.add_path(context->sizes.path(file));
}

void Tvs_resave_file::set_selected(bool on) {
    context->selection.set_selected(entity_uuid_text(entity()), on);
}

uint32_t Tvs_resave_file::selection_state() {
    return vs_bool_to_3state(context->selection.is_selected(entity_uuid_text(entity())));
}

} // namespace vs::project_resave
