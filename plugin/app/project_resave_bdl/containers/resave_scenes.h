// Units of scenes and of the collections of scenes: the first two roots of the tree.
#pragma once

#include "core/resave_list.h"
#include "operations/run/placed_files.h"

namespace vs::project_resave {

// What units of 2D and 3D scenes do alike: while a scene is saved its files may go into a folder of its own.
class Tvs_resave_scene : public Tvs_resave_list {
public:
    using Tvs_resave_list::Tvs_resave_list;

    // The layers count twice: for the run, and for the scene alone.
    void collect_common_directory(common_directory& common) override;
    void before_save() override;
    void after_save(bool ok) override;
    bool has_structure_content() override;

    // True if joins of tables of this scene have been taken off since it was begun.
    bool lacks_joins() const;

protected:
    void note_joins();

    common_directory scene_directory;

private:
    wide_string folder_name();

    size_t joins_before_ = 0; // how many were off when the scene was begun
};

// A 2D scene of the project, or one read from the scene file of a map layer.
class Tvs_resave_scene_2d : public Tvs_resave_scene {
public:
    // The scene is the project's, or the map layer's.
    Tvs_resave_scene_2d(vs_scn_2d* handle, run_state& run) : Tvs_resave_scene(run), scene_(handle) {}

    // Writes the whole scene to "caption._sn" below the new project's path, whatever is selected in it.
    bool write_scene_file() override;
    void build() override;
    // Cleans up groups that an unselected layer left empty, and writes the scene's file if the options say
    // so.
    void after_children() override;
    vs_entities* container() override;
    bool is_child_selected(uint32_t index) override;
    wide_string heading() override;
    void remove_child(uint32_t index) override;
    vs_lr_group* layer_group() override;

private:
    bool refuse(const wide_string& path);

    vs_scn_2d* const scene_;
    bool had_unselected_layer_ = false; // stays set for the life of the unit
};

// A scene that a map layer shows is saved where the map layer is: it has no folder and no file of its own.
class Tvs_resave_scene_2d_map final : public Tvs_resave_scene_2d {
public:
    using Tvs_resave_scene_2d::Tvs_resave_scene_2d;

    // NOLINTBEGIN(bugprone-parent-virtual-call): past the scene's own, which would enter a scene
    void before_save() override {
        Tvs_resave_unit::before_save();
        note_joins();
    }
    void after_save(bool ok) override { Tvs_resave_unit::after_save(ok); }
    void after_children() override {}
    // Once: nothing goes into a folder of this scene alone.
    void collect_common_directory(common_directory& common) override {
        Tvs_resave_list::collect_common_directory(common);
    }
    // NOLINTEND(bugprone-parent-virtual-call)
};

// A 3D scene of the project.
class Tvs_resave_scene_3d final : public Tvs_resave_scene {
public:
    // The scene is the project's.
    Tvs_resave_scene_3d(vs_scn_3d* handle, run_state& run) : Tvs_resave_scene(run), scene_(handle) {}

    void build() override;
    // Writes the scene's file if the options say so.
    void after_children() override;
    vs_entities* container() override;
    wide_string heading() override;
    void remove_child(uint32_t index) override;
    vs_lr_group* layer_group() override;

private:
    vs_scn_3d* const scene_;
};

// The collections never leave a place empty.
class Tvs_resave_scenes_2d final : public Tvs_resave_list {
public:
    // The collection is the project's.
    Tvs_resave_scenes_2d(vs_scns_2d* handle, run_state& run) : Tvs_resave_list(run), scenes_(handle) {}

    // Writes the file of each selected scene until the user stops the run.
    bool write_scene_file() override;
    void build() override;
    void before_children() override;
    vs_entities* container() override;
    wide_string heading() override;
    bool has_structure_content() override { return true; }
    void remove_child(uint32_t index) override;

private:
    vs_scns_2d* const scenes_;
};

class Tvs_resave_scenes_3d final : public Tvs_resave_list {
public:
    Tvs_resave_scenes_3d(vs_scns_3d* handle, run_state& run) : Tvs_resave_list(run), scenes_(handle) {}

    void build() override;
    void before_children() override;
    vs_entities* container() override;
    wide_string heading() override;
    bool has_structure_content() override { return true; }
    void remove_child(uint32_t index) override;

private:
    vs_scns_3d* const scenes_;
};

} // namespace vs::project_resave
