// Parts of a layout that own no file: the frame that shows a scene, and the page. They take no step of
// progress.
#pragma once

#include "core/resave_unit.h"

namespace vs::project_resave {

class Tvs_resave_layout_part : public Tvs_resave_unit {
public:
    // The layer is the layout's.
    Tvs_resave_layout_part(vs_lr* handle, project_context& run) : Tvs_resave_unit(run), layer(handle) {}

    bool write_scene_file() override { return true; }
    bool check_path_case(bool*) override { return true; }
    uint32_t count_units(uint32_t&) override { return 0; }
    void skip_progress() override {}
    void collect_common_directory(common_directory&) override {}
    vs_entity* entity() override;
    void set_selected(bool on) override;
    uint32_t selection_state() override;
    void build() override {}

protected:
    vs_lr* const layer;
};

class Tvs_resave_scene_frame final : public Tvs_resave_layout_part {
public:
    using Tvs_resave_layout_part::Tvs_resave_layout_part;

    bool write_structure() override;
    // A frame must not show a scene that the new project lacks: brings the scene and what is in it into the
    // selection, if the user agrees.
    bool correct_selection() override;
    bool do_save() override { return true; }

private:
    bool select_shown(vs_entity* shown);
};

class Tvs_resave_layout_page final : public Tvs_resave_layout_part {
public:
    using Tvs_resave_layout_part::Tvs_resave_layout_part;

    bool write_structure() override { return true; }
    // Only the text of the reference changes; nothing is copied.
    bool do_save() override;
};

} // namespace vs::project_resave
