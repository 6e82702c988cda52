#include "containers/resave_scene_2d.h"

#include "framework/border/host_owned.h"
#include "framework/border/string_adapter.h"
#include "host/vsk_lr.h"
#include "host/vsk_scn_2d.h"
#include "host/vsk_xml_save_2d.h"
#include "layers/layer_factory.h"
#include "layers/layer_files.h"
#include "operations/project_context.h"
#include "operations/run/path_files.h"
#include "platform/path_text.h"
#include "platform/system.h"

namespace vs::project_resave {

namespace {

constexpr wide_view scene_file_extension = u"._sn";

// What to do with a scene file that exists; any other value writes over it.
enum on_exists : uint32_t { rewrite = 0, new_name = 1 };

// Each try puts its number behind the stem that the last one made: a, a(1), a(1)(2).
wide_string next_scene_file_name(wide_string candidate) {
    for (uint32_t number = 1; path_exists(candidate); ++number)
        add_to_stem(candidate, u"(" + decimal(number) + u")");
    return candidate;
}

} // namespace

void Tvs_resave_scene_2d::build() {
    const uint32_t count = vs_scn_2d_get_layer_count(scene);
    children.resize(count);
    for (uint32_t index = 0; index < count; ++index)
        place(index, make_layer_unit_2d(*context, vs_scn_2d_get_layer_ptr(scene, index)));
}

bool Tvs_resave_scene_2d::is_child_selected(uint32_t index) {
    const bool selected = Tvs_resave_list::is_child_selected(index);
    if (!selected) had_unselected_layer = true;
    return selected;
}

void Tvs_resave_scene_2d::after_children() {
    if (!scene) return;
    if (had_unselected_layer) {
        if (vs_lr_group* groups = vs_scn_2d_get_lr_group_ptr(scene)) vs_lr_group_erase_empty_group(groups);
    }
    if (!context->options.save_scene_files) return;
    write_to(caption_file_path(context->placement.current_output_folder(), heading(), scene_file_extension));
}

bool Tvs_resave_scene_2d::write_scene_file() {
    // The base is the new project's own path, taken as a folder; without a run before it is empty.
    wide_string path =
        caption_file_path(context->placement.new_project_path, heading(), scene_file_extension);
    if (path_exists(path)) {
        const uint32_t wish = context->options.scene_file_on_exists;
        if (wish == rewrite)
            platform::current_system().delete_file(path);
        else if (wish == new_name)
            path = next_scene_file_name(path);
    }
    write_to(path);
    return true;
}

// The host's writer says nothing that is looked at; the file is on record all the same.
void Tvs_resave_scene_2d::write_to(const wide_string& path) {
    const host_owned<vs_xml_save_2d, &vs_xml_save_2d_destroy> writer(vs_xml_save_2d_create());
    vs_xml_data_save_scn2d_w(writer.get(), path.c_str(), scene);
    context->placement.register_placed(wide_string(), path);
}

vs_entities* Tvs_resave_scene_2d::container() { return scene ? vs_scn_2d_safe_upcast(scene) : nullptr; }
wide_string Tvs_resave_scene_2d::heading() { return host_string(&vs_scn_2d_get_wcaption, scene); }
void Tvs_resave_scene_2d::remove_child(uint32_t index) { vs_scn_2d_del_lr2d(scene, index); }
vs_lr_group* Tvs_resave_scene_2d::layer_group() { return vs_scn_get_lr_group_ptr(scene); }

} // namespace vs::project_resave
