#include "services/maplegs_plugin_service.h"

#include "framework/border/string_adapter.h"
#include "framework/resources/strings.h"
#include "host/vsk_prj.h"
#include "host/vsk_styles.h"

namespace vs::project_resave {

void maplegs_plugin_service::set_project(vs_prj* project) {
    legends = project ? vs_prj_get_maplegs_ptr(project) : nullptr;
}

void maplegs_plugin_service::caption(string_visitor visitor) { tell(visitor, u"mapleg_plugin"); }
void maplegs_plugin_service::progress_caption(string_visitor visitor) {
    tell(visitor, load_string(text::map_legend_resave));
}
void maplegs_plugin_service::tree_caption(string_visitor visitor) {
    tell(visitor, load_string(text::map_legend));
}

uint32_t maplegs_plugin_service::item_count() { return legends ? vs_maplegs_get_size(legends) : 0; }

vs_uuid* maplegs_plugin_service::item_uuid(uint32_t index) {
    return legends ? vs_mapleg_get_uuid(vs_maplegs_get_ptr(legends, index)) : nullptr;
}

void maplegs_plugin_service::item_caption(uint32_t index, string_visitor visitor) {
    if (legends) tell(visitor, host_string(&vs_mapleg_get_title, vs_maplegs_get_ptr(legends, index)));
}

void maplegs_plugin_service::remove_item(uint32_t index) {
    if (legends) vs_maplegs_delete_elem(legends, index);
}

} // namespace vs::project_resave
