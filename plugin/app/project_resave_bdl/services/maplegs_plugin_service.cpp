// Layers of drawn graphics, and map legends as items of a service. Legends have no files, so they are only
// selected and removed.
#include "services/maplegs_plugin_service.h"

#include "core/copying.h"
#include "framework/border/string_adapter.h"
#include "framework/resources/strings.h"
#include "host/vsk_prj.h"
#include "host/vsk_styles.h"

namespace vs::project_resave {

wide_string resave_graphics_layer::default_folder() { return load_string(text::graphics_folder); }

bool resave_graphics_layer::copy_files(const wide_string& source, const wide_string& target) {
    return copy_file_and_projection(source, target, *context);
}

void maplegs_plugin_service::set_project(vs_prj* project) {
    // The collection lives as long as the project, so it need not be asked for again.
    legends_ = project ? vs_prj_get_maplegs_ptr(project) : nullptr;
}

// The name in logs, the same in every language.
void maplegs_plugin_service::caption(string_visitor visitor) { tell(visitor, u"mapleg_plugin"); }
void maplegs_plugin_service::progress_caption(string_visitor visitor) {
    tell(visitor, load_string(text::map_legend_resave));
}
void maplegs_plugin_service::tree_caption(string_visitor visitor) {
    tell(visitor, load_string(text::map_legend));
}

uint32_t maplegs_plugin_service::item_count() { return legends_ ? vs_maplegs_get_size(legends_) : 0; }

vs_uuid* maplegs_plugin_service::item_uuid(uint32_t index) {
    return legends_ ? vs_mapleg_get_uuid(vs_maplegs_get_ptr(legends_, index)) : nullptr;
}

void maplegs_plugin_service::item_caption(uint32_t index, string_visitor visitor) {
    if (legends_) tell(visitor, host_string(&vs_mapleg_get_title, vs_maplegs_get_ptr(legends_, index)));
}

void maplegs_plugin_service::remove_item(uint32_t index) {
    if (legends_) vs_maplegs_delete_elem(legends_, index);
}

} // namespace vs::project_resave
