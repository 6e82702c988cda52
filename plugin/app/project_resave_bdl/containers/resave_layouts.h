// Layouts: printable pages, which are 2D scenes whose layers are frames, images, texts and legends. Main
// thread only.
#pragma once

#include "core/resave_list.h"

namespace vs::project_resave {

// The collection of all layouts, a root of the tree. Every layout has a unit.
class Tvs_resave_scns_layout final : public Tvs_resave_list {
public:
    // The collection belongs to the project.
    Tvs_resave_scns_layout(vs_scns_2d* handle, run_state& run) : Tvs_resave_list(run), layouts_(handle) {}

    void build() override;
    void before_children() override;
    vs_entities* container() override;
    wide_string heading() override;
    bool has_structure_content() override { return true; }
    void remove_child(uint32_t index) override;

private:
    vs_scns_2d* const layouts_;
};

// One layout. Its list has one more child than the layout has layers: the last one is the page, or null if
// there is no page. So an index of the list is that of a layer, except for the last one.
class Tvs_resave_scn_layout final : public Tvs_resave_list {
public:
    // The layout belongs to the project.
    Tvs_resave_scn_layout(vs_scn_2d* handle, run_state& run) : Tvs_resave_list(run), layout_(handle) {}

    void build() override;
    // Writes the caption of a layer without a unit, such as a text or a plain legend.
    void on_missing_child(uint32_t index) override;
    vs_entities* container() override;
    wide_string heading() override;
    // True if the options ask for the layers of layouts.
    bool has_structure_content() override;
    void remove_child(uint32_t index) override;

private:
    // Returns the unit of a layer; null for a layer without one. A layer without a unit stays in the layout
    // as it is.
    std::unique_ptr<Tvs_resave_unit> make_unit(vs_lr* layer);
    // Returns the unit of a legend's scene; null if the legend has none.
    std::unique_ptr<Tvs_resave_unit> make_legend(vs_lr* layer);

    vs_scn_2d* const layout_;
};

// Parts of a layout without their own file: the frame that shows a scene, and the page. They do not count
// as a step of progress.
class Tvs_resave_layout_part : public Tvs_resave_unit {
public:
    // The layer belongs to the layout.
    Tvs_resave_layout_part(vs_lr* handle, run_state& run) : Tvs_resave_unit(run), layer(handle) {}

    bool write_scene_file() override { return true; }
    bool check_path_case(bool*) override { return true; }
    // So a part makes no steps either, whether it is saved or skipped.
    uint32_t count_units(uint32_t&) override { return 0; }
    void skip_progress() override {}
    void collect_common_directory(common_directory&) override {}
    vs_entity* entity() override;
    void set_selected(bool on) override;
    uint32_t selection_state() override;
    // Nothing to build: a part has no file that is copied.
    void build() override {}

protected:
    vs_lr* const layer;
};

// A frame of a layout, which shows a scene of the project. It refers to the scene itself, so a save has
// nothing to write back.
class Tvs_resave_scene_frame final : public Tvs_resave_layout_part {
public:
    using Tvs_resave_layout_part::Tvs_resave_layout_part;

    bool write_structure() override;
    // Adds the scene that the frame shows, and the scene's layers, to the selection if the user agrees, so
    // that no frame shows a scene that the new project lacks. Returns false if the selection changed.
    bool correct_selection() override;
    bool do_save() override { return true; }

private:
    // Selects one element; returns true if that changed the selection. An element without a uuid is skipped.
    bool select_shown(vs_entity* shown);
};

// The page layer of a layout.
class Tvs_resave_layout_page final : public Tvs_resave_layout_part {
public:
    using Tvs_resave_layout_part::Tvs_resave_layout_part;

    // Writes nothing: the page has no line.
    bool write_structure() override { return true; }
    // Changes only the text of the reference to where a copy would be; copies nothing.
    bool do_save() override;
};

} // namespace vs::project_resave
