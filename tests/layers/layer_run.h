// A project on the disk that is loaded, resaved and read again: src\area._vp becomes out\new._vp.
#pragma once

#include <algorithm>
#include <memory>

#include <gtest/gtest.h>

#include "core/path_files.h"
#include "core/paths.h"
#include "framework/strings.h"
#include "operations/project_context.h"
#include "platform/system.h"
#include "platform/text.h"
#include "reference_host/files/files.h"
#include "reference_host/shell/settings.h"
#include "tests/support/scripted_front_end.h"
#include "tests/support/temporary_folder.h"

namespace vs::project_resave {

using names = std::vector<wide_string>;

class layer_run : public testing::Test {
protected:
    layer_run() {
        vestra::shell::settings().language_offset = 50000;
        clear();
    }
    ~layer_run() override {
        project.reset();
        copy.reset();
        EXPECT_EQ(vestra::living_objects(), 0U);
        vestra::shell::settings() = {};
    }

    // An empty project on an empty disk.
    void clear() {
        remove_tree(disk.path(u"src"));
        clear_run();
    }
    // The same, but for the source files.
    void clear_run() {
        remove_tree(disk.path(u"out"));
        create_folders(disk.path(u"out"));
        project = std::make_unique<vestra::project>();
        copy = std::make_unique<vestra::project>();
        front_end.events.clear();
        deselected.clear();
        settings = {};
        settings.output_path = &output;
    }
    wide_string src(wide_view name) const { return disk.path(u"src\\") + wide_string(name); }
    wide_string out(wide_view name) const { return disk.path(u"out\\") + wide_string(name); }

    static vestra::layer& add(vestra::scene& scene, const char* type, const wide_string& reference) {
        vestra::layer& layer = scene.make_layer(type);
        layer.id = vestra::uuid::random();
        layer.caption = u"L";
        layer.file = reference;
        return layer;
    }
    vestra::scene& scene_2d() { return named(project->scenes_2d.make_scene()); }
    vestra::scene& scene_3d() { return named(project->scenes_3d.make_scene()); }
    static vestra::scene& named(vestra::scene& scene) {
        scene.id = vestra::uuid::random();
        scene.caption = u"S";
        return scene;
    }
    // A scene file in src with one layer on a raster.
    void write_map(wide_view name, wide_view raster) {
        vestra::scene scene(vestra::dimension::flat);
        add(named(scene), "rtr_lr2d", src(raster));
        ASSERT_FALSE(vestra::files::write_scene(src(name), scene));
    }

    void resave() {
        create_folders(disk.path(u"src"));
        ASSERT_FALSE(vestra::files::write_project(src(u"area._vp"), *project));
        const vestra::shell::front_end_override in_force(front_end);
        project_context context(nullptr);
        ASSERT_TRUE(context.load_project(src(u"area._vp"), false, false));
        for (const wide_string& id : deselected) context.selection.set_selected(id, false);
        ASSERT_TRUE(context.resave_project(settings));
        problems.clear();
        titles.clear();
        for (const auto& problem : context.report.problems) {
            problems += problem.text;
            titles.push_back(problem.title);
        }
        unprocessed_types = context.report.unprocessed_types;
        ASSERT_FALSE(vestra::files::read_project(output, *copy));
    }
    vestra::layer& layer_2d(uint32_t index = 0) { return *copy->scenes_2d.at(0)->at(index); }

    // What came to stand in out beside the new project file.
    names copied() const {
        names result;
        for (const auto& entry : platform::list_tree(platform::current_system(), out(u"")))
            if (!entry.is_folder && entry.path != output)
                result.push_back(entry.path.substr(out(u"").size()));
        std::ranges::sort(result);
        return result;
    }

    temporary_folder disk;
    const wide_string output = out(u"new._vp");
    std::unique_ptr<vestra::project> project; // as it is loaded
    std::unique_ptr<vestra::project> copy;    // the new one, read again
    resave_settings settings;
    names deselected; // uuid texts
    vestra::shell::scripted_front_end front_end;
    wide_string problems; // all lines of the report
    names titles;         // under which they stand
    std::set<wide_string> unprocessed_types;
};

} // namespace vs::project_resave
