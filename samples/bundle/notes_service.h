// Field notes: pictures and texts that are pinned to the layers of the 2D scenes. Each is an item of the
// resave with a main file and any number of files and folders that belong to it.
//
// A layer stores its notes under "sample_notes", one row for each: uuid, caption, main file, and then the
// paths of the other files and folders, relative to the folder of the main file. A row without texts is
// ignored.
//
// The main file is stored relative to the layer's own file, if both are on one drive. The host never changes
// the texts of a layer, but it updates the path of the layer's file, so the notes are found after a move.
#pragma once

#include <vector>

#include "framework/border/host_owned.h"
#include "framework/border/ref.h"
#include "host/interfaces/service_factory.h"
#include "host/vsk_basic.h"
#include "services/resave_service.h"

namespace sample {

using namespace vs::project_resave;

class notes_service final : public referent<resave_service_impl> {
public:
    explicit notes_service(const bundle_context&) {}

    // Makes the stored paths of the loaded project absolute; saving an item makes its path relative again.
    void set_project(vs_prj* loaded) override;
    void caption(string_visitor visitor) override { tell(visitor, u"field_notes"); }
    void progress_caption(string_visitor visitor) override { tell(visitor, u"Field notes are being saved"); }
    bool shows_in_selection() override { return true; }
    bool has_own_heading() override { return true; }
    void tree_caption(string_visitor visitor) override { tell(visitor, u"Field notes"); }
    vs_uuid* item_uuid(uint32_t index) override;
    void item_caption(uint32_t index, string_visitor visitor) override;
    void item_files(uint32_t index, vs_wstrings* files) override;
    void default_folder(string_visitor visitor) override { tell(visitor, u"notes"); }
    void item_source(uint32_t index, string_visitor visitor) override;
    // Stores the new place of the main file, relative to the layer's file.
    void set_item_source(uint32_t index, const char16_t* path) override;
    // Reads the notes again; indexes are those of this call until the next one.
    uint32_t item_count() override;
    // Empties the note's row in its layer; later items move down by one.
    void remove_item(uint32_t index) override;

private:
    struct note {
        vs_lr* layer;
        vs_tuple* row; // owned by the layer
        host_owned<vs_uuid, &vs_uuid_destroy> uuid;
    };

    void read_notes_of(vs_lr* layer);
    // Returns null for an index at or beyond the count; the host's functions ignore it.
    vs_tuple* row(uint32_t index) const { return index < notes.size() ? notes[index].row : nullptr; }
    wide_string file_of_layer(uint32_t index) const;
    // Returns the absolute path of the main file; empty if the note has none.
    wide_string main_file(uint32_t index) const;

    vs_prj* project = nullptr; // invalid after the project ends, but not used until the next load
    std::vector<note> notes;
};

} // namespace sample
