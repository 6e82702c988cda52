// Saves map layers. The scene that the layer shows is loaded when the tree is built, so that its layers can
// be selected and counted like any others.

#include "layers/resave_map_layers.h"

#include "containers/resave_scenes.h"
#include "core/copying.h"
#include "core/resave_unit.h"
#include "framework/border/host_owned.h"
#include "framework/border/string_adapter.h"
#include "framework/resources/strings.h"
#include "host/vsk_lr.h"
#include "host/vsk_xml_save_2d.h"
#include "layers/layer_files.h"
#include "operations/run/path_files.h"
#include "operations/run/run_state.h"
#include "platform/path_text.h"

namespace vs::project_resave {

namespace {

// While a scene file is being loaded, a map layer further down that shows the same file would load it again,
// endlessly.
struct loading_mark {
    loading_mark(std::unordered_set<wide_string>& scenes, wide_string path)
        : loading(scenes), key(std::move(path)), first(loading.insert(key).second) {}
    loading_mark(const loading_mark&) = delete;
    loading_mark& operator=(const loading_mark&) = delete;
    ~loading_mark() {
        if (first) loading.erase(key);
    }

    std::unordered_set<wide_string>& loading;
    const wide_string key;
    const bool first;
};

} // namespace

Tvs_resave_map_lr::Tvs_resave_map_lr(vs_lr* handle, run_state& run) : Tvs_resave_layer(handle, run) {}

Tvs_resave_map_lr::~Tvs_resave_map_lr() = default;

void Tvs_resave_map_lr::build() {
    const wide_string reference = host_string(&vs_lr_get_wfilename, layer);
    context->sizes.add_file(reference);
    const host_owned<vs_xml_save_2d, &vs_xml_save_2d_destroy> reader(vs_xml_save_2d_create());
    map_scene_.reset(vs_scn_2d_create());
    const loading_mark mark(context->loading_scenes, path_key(reference));
    if (!mark.first) return; // treated like a scene that cannot be loaded
    if ((vs_xml_data_load_scn2d_w(reader.get(), reference.c_str(), map_scene_.get()) & 0xFF) == 0) return;
    map_unit_ = std::make_unique<Tvs_resave_scene_2d_map>(map_scene_.get(), *context);
    map_unit_->build_once();
}

uint32_t Tvs_resave_map_lr::count_units(uint32_t& total) {
    return map_unit_ ? map_unit_->count_units(total) : 0;
}

void Tvs_resave_map_lr::collect_common_directory(common_directory& common) {
    Tvs_resave_layer::collect_common_directory(common);
    if (map_unit_) map_unit_->collect_common_directory(common);
}

bool Tvs_resave_map_lr::do_save() {
    const wide_string source = host_string(&vs_lr_get_wfilename, layer);
    if (source.empty()) {
        skip_progress();
        return true;
    }
    if (!path_exists(source)) {
        record_lost_source(*context, source, caption());
        skip_progress();
        return false;
    }
    if (!map_unit_) {
        context->log.scene_not_loaded(source);
        context->report.add(fact_kind::not_read, source);
        return false;
    }
    map_unit_->save(); // before the look-up, so that the scene always refers to the new places
    wide_string target = context->placement.lookup_placed(source);
    if (target.empty()) target = place_and_copy(source);
    set_new_path(target);
    skip_progress();
    after_file_saved();
    return true;
}

bool Tvs_resave_map_lr::copy_files(const wide_string& source, const wide_string& target) {
    write_scene_file_2d(map_scene_.get(), target, *context, source, map_unit_->lacks_joins());
    return true;
}

bool Tvs_resave_map_lr::write_structure() {
    const wide_string heading = load_string(text::scene_2d_heading) + host_string(&vs_lr_get_wcaption, layer);
    context->log.write_indented(with_path(*context, heading, host_string(&vs_lr_get_wfilename, layer)));
    if (map_unit_) map_unit_->write_structure();
    return true;
}

void Tvs_resave_map_lr2d::after_file_saved() { save_layer_file_2d(layer, *context); }

void Tvs_resave_map_lr3d::after_file_saved() { save_layer_file_3d(layer, *context); }

} // namespace vs::project_resave
