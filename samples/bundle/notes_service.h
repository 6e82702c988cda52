// Field notes: pictures and texts that are pinned to the layers of the 2D scenes. Each is an item of the
// resave with a main file and any number of files and folders that belong to it.
//
// A layer stores its notes under "sample_notes", one row for each: uuid, caption, main file, and then the
// other files, as paths relative to the folder of the main file. A row without texts is not a note.
#pragma once

#include <memory>
#include <vector>

#include "framework/border/ref.h"
#include "host/interfaces/service_factory.h"
#include "host/vsk_basic.h"
#include "services/resave_service.h"

namespace sample {

using namespace vs::project_resave;

class notes_service final : public referent<resave_service_impl> {
public:
    explicit notes_service(const bundle_context&) {}

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
    void set_item_source(uint32_t index, const char16_t* path) override;
    uint32_t item_count() override;
    void remove_item(uint32_t index) override;

private:
    struct destroy_uuid {
        void operator()(vs_uuid* uuid) const { vs_uuid_destroy(uuid); }
    };
    struct note {
        vs_tuple* row; // owned by the layer
        std::unique_ptr<vs_uuid, destroy_uuid> uuid;
    };

    void read_notes_of(vs_lr* layer);
    // Returns null for an index at or beyond the count; the caller then does nothing.
    vs_tuple* row(uint32_t index) const { return index < notes.size() ? notes[index].row : nullptr; }

    vs_prj* project = nullptr; // dangling from its end to the next load, but not used in that time
    std::vector<note> notes;
};

} // namespace sample
