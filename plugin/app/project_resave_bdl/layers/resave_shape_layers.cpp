// Saves shape layers, and layers that only refer to other elements of the project.

#include "layers/resave_shape_layers.h"

#include "core/copying.h"
#include "core/data_source.h"
#include "core/resave_unit.h"
#include "framework/border/string_adapter.h"
#include "framework/resources/strings.h"
#include "host/interfaces/profile_compound_layer.h"
#include "host/vsk_attr_data.h"
#include "host/vsk_lr.h"
#include "host/vsk_lr3d.h"
#include "host/vsk_plugin_lr2d.h"
#include "host/vsk_shp_lr2d.h"
#include "layers/layer_files.h"
#include "operations/run/path_files.h"
#include "operations/run/run_state.h"
#include "platform/path_text.h"

namespace vs::project_resave {

bool Tvs_resave_map_link_lr::correct_selection() {
    // The reference is the uuid of a scene between marks.
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
    // The user is asked at the first element that is left out.
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
    // The members are known only to the plug-in, which draws the layer.
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

namespace {

void append_joined_tables(vs_attr_data* table, std::vector<found_file>& out) {
    if (!table || !vs_attr_data_is_joined(table)) return;
    const int32_t count = vs_attr_data_get_join_count(table);
    for (int32_t index = 0; index < count; ++index)
        append_if_exists(host_string(&vs_attr_data_get_join_other_source, table, index), out);
}

} // namespace

bool Tvs_resave_shp_lr::write_structure() {
    Tvs_resave_layer::write_structure();
    if (!write_dbf_columns()) return true;
    context->log.indent();
    context->log.write_indented(text::shape_columns_heading);
    write_attr_fields(*context, attr_data());
    context->log.unindent();
    // Kept as users know it: the result is false if columns were written; nothing uses it.
    return false;
}

bool Tvs_resave_shp_lr::write_dbf_columns() { return context->options.write_table_columns; }

void Tvs_resave_shp_lr::collect_source_files(std::vector<found_file>& out) {
    out.clear();
    // A shape file that cannot be opened still counts as the layer's file.
    if (!append_existing_files(host_string(&vs_lr_get_wfilename, layer), out))
        out.emplace_back(source_path());
    append_joined_tables(vs_attr_data_safe_downcast(vs_lr_get_data_ptr(layer)), out);
}

wide_string Tvs_resave_shp_lr::default_folder() { return load_string(text::shape_folder); }

bool Tvs_resave_shp_lr::copy_files(const wide_string& source, const wide_string& target) {
    return copy_shape_family(source, target, attr_data(), *context);
}

void Tvs_resave_shp_lr2d::after_file_saved() {
    save_layer_file_2d(layer, *context, lacks_joins(attr_data(), *context));
}

vs_attr_data* Tvs_resave_shp_lr2d::attr_data() { return vs_shp_lr2d_get_attr_data_ptr(layer); }

void Tvs_resave_shp_lr3d::after_file_saved() {
    save_layer_file_3d(layer, *context, lacks_joins(attr_data(), *context));
}

vs_attr_data* Tvs_resave_shp_lr3d::attr_data() { return vs_shp_lr3d_get_attr_data_ptr(layer); }

} // namespace vs::project_resave
