// Implements the claim on sketch layers: their references, their files, and how these are copied.
#include "sketch_service.h"

#include "files.h"
#include "framework/border/string_adapter.h"
#include "host/vsk_lr.h"
#include "layer_rows.h"

namespace sample {

namespace {

vs_tuple* references_of(vs_entity* entity) { return rows_of(vs_lr_safe_downcast(entity), "sample_sketch"); }

wide_string drawing_of(vs_entity* entity) {
    return host_string(&vs_lr_get_wfilename, vs_lr_safe_downcast(entity));
}

wide_string legend_of(const wide_string& drawing) { return drawing + u".legend"; }

} // namespace

bool sketch_service::accepts(vs_entity* entity) { return vs_lr_safe_downcast(entity) != nullptr; }

uint32_t sketch_service::reference_count(vs_entity* entity) { return tuple_get_size(references_of(entity)); }

void sketch_service::reference_uuid(vs_entity* entity, uint32_t index, vs_uuid* uuid) {
    vs_uuid_from_string(uuid, text_at(references_of(entity), index).c_str());
}

void sketch_service::file_info(vs_entity* entity, uint32_t, string_visitor source, string_visitor folder) {
    tell(source, drawing_of(entity));
    tell(folder, u"sketches");
}

void sketch_service::set_file(vs_entity* entity, uint32_t, const char16_t* new_path) {
    vs_lr_set_wfilename(vs_lr_safe_downcast(entity), new_path);
}

// After a failure the lists have the files copied so far, so that the resave can remove them.
bool sketch_service::copy_files(vs_entity*, uint32_t, const char16_t* source, const char16_t* target,
                                vs_wstrings* sources, vs_wstrings* targets) {
    const auto copy = [&](const wide_string& from, const wide_string& to) {
        if (!copy_file(from, to)) return false;
        vs_wstrings_add(sources, from.c_str());
        vs_wstrings_add(targets, to.c_str());
        return true;
    };
    if (!copy(source, target)) return false;
    return !file_exists(legend_of(source)) || copy(legend_of(source), legend_of(target));
}

bool sketch_service::all_files(vs_entity* entity, vs_wstrings* files) {
    const wide_string drawing = drawing_of(entity);
    if (drawing.empty()) return true;
    vs_wstrings_add(files, drawing.c_str());
    vs_wstrings_add(files, legend_of(drawing).c_str()); // skipped if it does not exist
    return true;
}

} // namespace sample
