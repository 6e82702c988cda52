#include "containers/resave_scenes.h"

#include "containers/resave_scene_2d.h"
#include "containers/resave_scene_3d.h"
#include "framework/resources/strings.h"
#include "host/vsk_scn_2d.h"
#include "host/vsk_scn_3d.h"
#include "operations/project_context.h"

namespace vs::project_resave {

void Tvs_resave_scenes_2d::build() {
    const uint32_t count = vs_scns_2d_get_size(scenes);
    children.resize(count);
    for (uint32_t index = 0; index < count; ++index)
        place(index, std::make_unique<Tvs_resave_scene_2d>(vs_scns_2d_get(scenes, index), *context));
}

bool Tvs_resave_scenes_2d::write_scene_file() {
    for (uint32_t index = 0; index < children.size(); ++index) {
        if (context->progress.is_stopped()) break;
        if (children[index] && is_child_selected(index)) children[index]->write_scene_file();
    }
    return true;
}

void Tvs_resave_scenes_2d::before_children() { context->progress.set_caption(350); }
vs_entities* Tvs_resave_scenes_2d::container() { return scenes ? vs_scns_2d_safe_upcast(scenes) : nullptr; }
wide_string Tvs_resave_scenes_2d::heading() { return load_string(620); }
void Tvs_resave_scenes_2d::remove_child(uint32_t index) { vs_scns_2d_del(scenes, index); }

void Tvs_resave_scenes_3d::build() {
    const uint32_t count = vs_scns_3d_get_size(scenes);
    children.resize(count);
    for (uint32_t index = 0; index < count; ++index)
        place(index, std::make_unique<Tvs_resave_scene_3d>(vs_scns_3d_get(scenes, index), *context));
}

void Tvs_resave_scenes_3d::before_children() { context->progress.set_caption(351); }
vs_entities* Tvs_resave_scenes_3d::container() { return scenes ? vs_scns_3d_safe_upcast(scenes) : nullptr; }
wide_string Tvs_resave_scenes_3d::heading() { return load_string(622); }
void Tvs_resave_scenes_3d::remove_child(uint32_t index) { vs_scns_3d_del(scenes, index); }

} // namespace vs::project_resave
