#include "containers/resave_scene_3d.h"

#include "framework/border/host_owned.h"
#include "framework/border/string_adapter.h"
#include "host/vsk_scn_2d.h"
#include "host/vsk_scn_3d.h"
#include "host/vsk_xml_save_3d.h"
#include "layers/layer_factory.h"
#include "layers/layer_files.h"
#include "operations/project_context.h"

namespace vs::project_resave {

void Tvs_resave_scene_3d::build() {
    const uint32_t count = vs_scn_3d_get_layer_count(scene);
    children.resize(count);
    for (uint32_t index = 0; index < count; ++index)
        place(index, make_layer_unit_3d(*context, vs_scn_3d_get_layer_ptr(scene, index)));
}

void Tvs_resave_scene_3d::after_children() {
    if (!context->options.save_scene_files || !scene) return;
    const host_owned<vs_xml_save_3d, &vs_xml_save_3d_destroy> writer(vs_xml_save_3d_create());
    const wide_string path =
        caption_file_path(context->placement.current_output_folder(), heading(), u"._sc");
    vs_xml_data_save_scn3d_w(writer.get(), path.c_str(), scene);
    context->placement.register_placed(wide_string(), path);
}

vs_entities* Tvs_resave_scene_3d::container() { return scene ? vs_scn_3d_safe_upcast(scene) : nullptr; }
wide_string Tvs_resave_scene_3d::heading() { return host_string(&vs_scn_3d_get_wcaption, scene); }
void Tvs_resave_scene_3d::remove_child(uint32_t index) { vs_scn_3d_del_lr3d(scene, index); }
vs_lr_group* Tvs_resave_scene_3d::layer_group() { return vs_scn_get_lr_group_ptr(scene); }

} // namespace vs::project_resave
