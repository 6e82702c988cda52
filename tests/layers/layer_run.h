// A project whose data lies in its own folder, resaved and read again.
#pragma once

#include "core/paths.h"
#include "framework/strings.h"
#include "platform/text.h"
#include "reference_host/files/files.h"
#include "tests/support/host_fixture.h"

namespace vs::project_resave {

using names = std::vector<wide_string>;

class layer_run : public host_fixture {
protected:
    // An empty project without any data, and nothing in the new folder.
    void clear() {
        std::filesystem::remove_all(native("c") / "prj");
        std::filesystem::create_directories(native("c") / "prj");
        clear_run();
    }
    // The same, but for the data.
    void clear_run() {
        clear_output();
        project = std::make_unique<vestra::project>();
        deselected.clear();
        settings = {};
    }
    static wide_string src(wide_view name) { return u"C:\\prj\\" + wide_string(name); }
    static wide_string out(wide_view name) { return u"N:\\out\\" + wide_string(name); }

    static vestra::layer& add(vestra::scene& scene, const char* type, const wide_string& reference) {
        vestra::layer& layer = scene.make_layer(type);
        layer.id = vestra::uuid::random();
        layer.caption = u"L";
        layer.file = reference;
        return layer;
    }
    vestra::scene& scene_2d() { return named(project->scenes_2d.make_scene()); }
    vestra::scene& scene_3d() { return named(project->scenes_3d.make_scene()); }
    // A 2D scene that is left out of the selection.
    vestra::scene& left_out(wide_view caption) {
        vestra::scene& scene = scene_2d();
        scene.caption = caption;
        deselected.push_back(scene.id.text());
        return scene;
    }
    static vestra::scene& named(vestra::scene& scene) {
        scene.id = vestra::uuid::random();
        scene.caption = u"S";
        return scene;
    }
    // A scene file with one layer on a raster, whose uuid text is answered.
    static wide_string write_map(wide_view name, wide_view raster) {
        vestra::scene scene(vestra::dimension::flat);
        const wide_string id = add(named(scene), "rtr_lr2d", src(raster)).id.text();
        EXPECT_FALSE(vestra::files::write_scene(src(name), scene));
        return id;
    }

    void run() {
        ASSERT_FALSE(vestra::files::write_project(source, *project));
        load();
        for (const wide_string& id : deselected) context->selection.set_selected(id, false);
        resave();
        problems.clear();
        for (const auto& problem : context->report.problems) problems += problem.title + u": " + problem.text;
        copy = std::make_unique<vestra::project>();
        read_back(output, *copy);
    }
    // Captions of the 2D scenes of the new project.
    names scenes() const {
        names result;
        for (const auto& scene : copy->scenes_2d.members()) result.push_back(scene->caption);
        return result;
    }
    // How often the user was asked whether to add what is referred to.
    size_t questions() const {
        return static_cast<size_t>(std::ranges::count(script.texts(front::kind::yes_no), load_string(214)));
    }
    vestra::layer& layer_2d(uint32_t index = 0) { return *copy->scenes_2d.at(0)->at(index); }

    std::unique_ptr<vestra::project> project = std::make_unique<vestra::project>(); // as it is loaded
    std::unique_ptr<vestra::project> copy;                                          // the new one
    names deselected;                                                               // uuid texts
    wide_string problems;                                                           // "title: lines"
};

} // namespace vs::project_resave
