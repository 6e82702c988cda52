// Implements the flat list of items: reads the notes from the layers' extra values and writes their new paths
// back.
#include "notes_service.h"

#include "files.h"
#include "framework/border/string_adapter.h"
#include "host/vsk_lr.h"
#include "host/vsk_prj.h"
#include "host/vsk_scn_2d.h"
#include "layer_rows.h"

namespace sample {

namespace {

constexpr char notes_key[] = "sample_notes";
enum place : uint32_t { uuid_place, caption_place, source_place, first_member_place };

} // namespace

// Makes the paths in the copy of the project absolute until the notes are saved, because the files of the
// layers, to which they are relative, change before that.
void notes_service::set_project(vs_prj* loaded) {
    project = loaded;
    const uint32_t count = item_count();
    for (uint32_t index = 0; index < count; ++index)
        any_assign_wstring(tuple_get_element(row(index), source_place), main_file(index).c_str());
}

// Every iteration over the items begins with their count. Layers with notes can have been removed from the
// project since the last one, so the notes are read again each time.
uint32_t notes_service::item_count() {
    notes.clear();
    vs_scns_2d* scenes = vs_prj_get_scns_2d_ptr(project);
    for (uint32_t index = 0; index < vs_scns_2d_get_size(scenes); ++index) {
        vs_scn_2d* scene = vs_scns_2d_get(scenes, index);
        for (uint32_t layer = 0; layer < vs_scn_2d_get_layer_count(scene); ++layer)
            read_notes_of(vs_scn_2d_get_layer_ptr(scene, layer));
    }
    return static_cast<uint32_t>(notes.size());
}

void notes_service::read_notes_of(vs_lr* layer) {
    vs_tuple* rows = rows_of(layer, notes_key);
    for (uint32_t index = 0; index < tuple_get_size(rows); ++index) {
        vs_tuple* row = any_get_tuple(tuple_get_element(rows, index));
        if (tuple_get_size(row) <= source_place) continue;
        note& read = notes.emplace_back();
        read.layer = layer;
        read.row = row;
        read.uuid.reset(vs_uuid_create());
        vs_uuid_from_string(read.uuid.get(), text_at(row, uuid_place).c_str());
    }
}

vs_uuid* notes_service::item_uuid(uint32_t index) {
    return index < notes.size() ? notes[index].uuid.get() : nullptr;
}

void notes_service::item_caption(uint32_t index, string_visitor visitor) {
    tell(visitor, text_at(row(index), caption_place));
}

wide_string notes_service::file_of_layer(uint32_t index) const {
    return index < notes.size() ? host_string(&vs_lr_get_wfilename, notes[index].layer) : wide_string();
}

wide_string notes_service::main_file(uint32_t index) const {
    return whole_path(text_at(row(index), source_place), file_of_layer(index));
}

void notes_service::item_source(uint32_t index, string_visitor visitor) { tell(visitor, main_file(index)); }

// The other files of a note keep their place relative to the main file, so only one path is rewritten.
void notes_service::set_item_source(uint32_t index, const char16_t* path) {
    const wide_string stored = relative_path(path, file_of_layer(index));
    any_assign_wstring(tuple_get_element(row(index), source_place), stored.c_str());
}

void notes_service::item_files(uint32_t index, vs_wstrings* files) {
    const wide_string source = main_file(index);
    if (source.empty()) return;
    vs_wstrings_add(files, source.c_str());
    for (uint32_t member = first_member_place; member < tuple_get_size(row(index)); ++member)
        vs_wstrings_add(files, (folder_of(source) + text_at(row(index), member)).c_str());
}

void notes_service::remove_item(uint32_t index) {
    if (index >= notes.size()) return;
    tuple_resize(notes[index].row, 0);
    notes.erase(notes.begin() + index);
}

} // namespace sample
