#include "containers/resave_scene.h"

#include "framework/border/string_adapter.h"
#include "host/vsk_entity.h"
#include "operations/project_context.h"
#include "platform/path_text.h"

namespace vs::project_resave {

void Tvs_resave_scene::collect_common_directory(common_directory& common) {
    Tvs_resave_list::collect_common_directory(common);
    scene_directory.clear();
    Tvs_resave_list::collect_common_directory(scene_directory);
}

// The caption without blanks around it, below that of the element the scene hangs under, if there is one.
wide_string Tvs_resave_scene::folder_name() {
    const wide_string own = trim(caption(), white_space);
    vs_entity* scene = entity();
    vs_entity* parent = scene ? vs_entity_get_parent(scene) : nullptr;
    return parent ? path_join(host_string(&vs_entity_get_wcaption, parent), own) : own;
}

void Tvs_resave_scene::before_save() {
    Tvs_resave_list::before_save();
    context->placement.set_scene(&scene_directory, folder_name());
}

void Tvs_resave_scene::after_save(bool ok) {
    context->placement.clear_scene();
    Tvs_resave_list::after_save(ok);
}

bool Tvs_resave_scene::has_structure_content() { return context->options.write_layer_names; }

} // namespace vs::project_resave
