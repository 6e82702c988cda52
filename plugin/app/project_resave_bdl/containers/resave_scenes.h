// Units of scenes and of the collections of scenes, which are the first two roots of the tree. Main thread
// only.
#pragma once

#include "core/resave_list.h"
#include "operations/run/placed_files.h"

namespace vs::project_resave {

// The common part of 2D and 3D scenes: while a scene is saved, its files can go to a folder for this scene.
class Tvs_resave_scene : public Tvs_resave_list {
public:
    using Tvs_resave_list::Tvs_resave_list;

    // Adds the layers' files to the run's common directory and to the scene's own.
    void collect_common_directory(common_directory& common) override;
    // Begins the scene in the placement.
    void before_save() override;
    // Ends it, also if the save was stopped.
    void after_save(bool ok) override;
    // True if the options ask for the names of layers.
    bool has_structure_content() override;

    // True if joins of this scene's tables were removed since its save began. A scene file written now would
    // lack them.
    bool lacks_joins() const;

protected:
    // Remembers how many joins are removed now, for lacks_joins().
    void note_joins();

    // The common directory of this scene's files only; used with a folder for each scene.
    common_directory scene_directory;

private:
    // Returns the wanted name of the scene's folder, relative to the new project's. The placement makes it
    // unique and keeps it inside the new project.
    wide_string folder_name();

    size_t joins_before_ = 0; // number of removed joins when the save of this scene began
};

// A 2D scene of the project, or one read from the scene file of a map layer.
class Tvs_resave_scene_2d : public Tvs_resave_scene {
public:
    // The scene belongs to the project or to the map layer.
    Tvs_resave_scene_2d(vs_scn_2d* handle, run_state& run) : Tvs_resave_scene(run), scene_(handle) {}

    // Writes the whole scene, including unselected layers, to "caption._sn" in the new project's path.
    bool write_scene_file() override;
    void build() override;
    // Removes the groups that are empty because a layer was left out, and writes the scene's file if the
    // options ask for it.
    void after_children() override;
    vs_entities* container() override;
    // Also records that a layer was left out, by any operation that asks.
    bool is_child_selected(uint32_t index) override;
    wide_string heading() override;
    void remove_child(uint32_t index) override;
    vs_lr_group* layer_group() override;

private:
    // Reports that the path belongs to the source. Always returns true.
    bool refuse(const wide_string& path);

    vs_scn_2d* const scene_;
    // Whether groups may have become empty by this run.
    bool had_unselected_layer_ = false; // never reset
};

// A scene that a map layer shows. It is saved as a part of the map layer, without a separate folder or file.
class Tvs_resave_scene_2d_map final : public Tvs_resave_scene_2d {
public:
    using Tvs_resave_scene_2d::Tvs_resave_scene_2d;

    // NOLINTBEGIN(bugprone-parent-virtual-call): skips the version of the scene, which would begin a scene
    void before_save() override {
        Tvs_resave_unit::before_save();
        note_joins();
    }
    void after_save(bool ok) override { Tvs_resave_unit::after_save(ok); }
    void after_children() override {}
    // Counts the files once, since this scene has no folder.
    void collect_common_directory(common_directory& common) override {
        Tvs_resave_list::collect_common_directory(common);
    }
    // NOLINTEND(bugprone-parent-virtual-call)
};

// A 3D scene of the project. Unlike a 2D scene it keeps groups that became empty, and is not written by the
// run for scene files.
class Tvs_resave_scene_3d final : public Tvs_resave_scene {
public:
    // The scene belongs to the project.
    Tvs_resave_scene_3d(vs_scn_3d* handle, run_state& run) : Tvs_resave_scene(run), scene_(handle) {}

    void build() override;
    // Writes the scene's file if the options ask for it.
    void after_children() override;
    vs_entities* container() override;
    wide_string heading() override;
    void remove_child(uint32_t index) override;
    vs_lr_group* layer_group() override;

private:
    vs_scn_3d* const scene_;
};

// The collections of all 2D and of all 3D scenes. Every member has a unit, so an index of a member is that of
// its unit.
class Tvs_resave_scenes_2d final : public Tvs_resave_list {
public:
    // The collection belongs to the project.
    Tvs_resave_scenes_2d(vs_scns_2d* handle, run_state& run) : Tvs_resave_list(run), scenes_(handle) {}

    // Writes the file of each selected scene, until the user stops the run.
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
    // The collection belongs to the project.
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
