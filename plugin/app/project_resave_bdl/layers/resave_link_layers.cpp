#include "layers/resave_link_layers.h"

#include "core/data_source.h"
#include "core/resave_unit.h"
#include "framework/border/string_adapter.h"
#include "host/interfaces/profile_compound_layer.h"
#include "host/vsk_lr.h"
#include "host/vsk_plugin_lr2d.h"
#include "operations/run/run_state.h"
#include "platform/path_text.h"

namespace vs::project_resave {

bool Tvs_resave_map_link_lr::correct_selection() {
    return !select_referenced(*context, trim(host_string(&vs_lr_get_wfilename, layer), u"*"));
}

bool Tvs_resave_map_link_lr::do_save() {
    skip_progress();
    return true;
}

bool Tvs_resave_prf_lines_lr2d::correct_selection() {
    vector_datasource source;
    if (!source.open(host_string(&vs_lr_get_wsource, layer), vs_lr_get_data_ptr(layer))) return true;
    const int32_t field = source.find_field(u"UUID");
    if (field < 0) return true;
    bool unchanged = true;
    for (bool more = source.first(); more; more = source.next())
        if (select_referenced(*context, source.text(field))) unchanged = false;
    return unchanged;
}

bool Tvs_resave_prf_lines_lr2d::do_save() {
    skip_progress();
    return true;
}

bool Tvs_resave_prf_compound_lr2d::correct_selection() {
    const interface_pointer* plugin = vs_lr2d_get_plugin_interface(layer);
    if (!plugin) return true;
    const profil_cmpnd_lr2d profile = cast_to<profil_cmpnd_lr2d_impl>(identity_pointer{*plugin});
    const int32_t count = call<&profil_cmpnd_lr2d_impl::member_count>(profile);
    bool unchanged = true;
    for (int32_t index = 0; index < count; ++index) {
        wide_string member;
        stdwstring_visitor visitor(member);
        call<&profil_cmpnd_lr2d_impl::member_uuid>(profile, index, visitor);
        if (select_referenced(*context, member)) unchanged = false;
    }
    return unchanged;
}

} // namespace vs::project_resave
