// A project with scenes that are left out of the selection, for what pulls them in again.
#pragma once

#include "tests/layers/layer_run.h"

namespace vs::project_resave {

class references_run : public layer_run {
protected:
    // A scene that is left out of the selection.
    vestra::scene& left_out(wide_view caption) {
        vestra::scene& scene = scene_2d();
        scene.caption = caption;
        deselected.push_back(scene.id.text());
        return scene;
    }
    names scenes() const {
        names result;
        for (const auto& scene : copy->scenes_2d.members()) result.push_back(scene->caption);
        return result;
    }
    size_t questions() const {
        return static_cast<size_t>(std::ranges::count(
            front_end.texts(vestra::shell::scripted_front_end::kind::yes_no), load_string(214)));
    }
};

} // namespace vs::project_resave
