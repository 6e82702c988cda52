// Saves TOS layers with the files of complex models, which the host does not list: their paths are in the
// layer's record.

#include "layers/resave_tos_layers.h"

#include <algorithm>
#include <string_view>

#include "core/copying.h"
#include "core/data_source.h"
#include "core/resave_unit.h"
#include "framework/border/string_adapter.h"
#include "framework/resources/strings.h"
#include "host/vsk_lr.h"
#include "layers/layer_files.h"
#include "layers/resave_layer.h"
#include "operations/run/path_files.h"
#include "operations/run/placed_files.h"
#include "operations/run/run_state.h"
#include "platform/path_text.h"

namespace vs::project_resave {

namespace {

// The files that a complex model refers to, in the order of the rows.
struct model_element {
    uint32_t element; // its index in the record
    text::row lost_text;
};
constexpr model_element model_elements[] = {
    {9, text::complex_model_structural_map},
    {15, text::complex_model_depth_cube},
    // Kept as users know it: this row comes before the next one, although its number is higher.
    {44, text::complex_model_time_cube},
    {39, text::complex_model_isochrone_map},
};

// Only layers of this kind lose their style when they are saved.
bool keeps_style(vs_lr* layer) {
    const char* type = vs_lr_get_lr_type(layer);
    return type && std::string_view(type) == "tos_grid_lr1d";
}

} // namespace

void Tvs_resave_tos_lr::before_save() {
    Tvs_resave_unit::before_save();
    saved_style_.reset();
    saved_style_list_.reset();
    if (!keeps_style(layer)) return;
    if (vs_stl_mngr* style = vs_lr_get_style_mngr_ptr(layer)) {
        saved_style_.reset(vs_stl_mngr_create(vs_stl_mngr_get_style_type(style)));
        vs_stl_mngr_assign(saved_style_.get(), style);
    }
    if (vs_stl_mngr_list* list = vs_lr_get_style_mngr_list_ptr(layer)) {
        saved_style_list_.reset(vs_stl_mngr_list_create(vs_stl_mngr_list_get_type(list)));
        vs_stl_mngr_list_assign(saved_style_list_.get(), list);
    }
}

void Tvs_resave_tos_lr::after_save(bool ok) {
    vs_stl_mngr* style = saved_style_ ? vs_lr_get_style_mngr_ptr(layer) : nullptr;
    if (style) vs_stl_mngr_assign(style, saved_style_.get());
    saved_style_.reset();
    vs_stl_mngr_list* list = saved_style_list_ ? vs_lr_get_style_mngr_list_ptr(layer) : nullptr;
    if (list) vs_stl_mngr_list_assign(list, saved_style_list_.get());
    saved_style_list_.reset();
    Tvs_resave_unit::after_save(ok);
}

void Tvs_resave_tos_lr::build() {
    if (complex_model_record::is_listed(layer)) read_model_files();
    Tvs_resave_layer::build();
}

void Tvs_resave_tos_lr::read_model_files() {
    complex_model_record record(layer);
    if (!record) return;
    const wide_string folder = path_head(source_path());
    for (const model_element& row : model_elements) {
        const wide_string text = record.text(row.element);
        model_files_.push_back({text.empty() ? text : path_resolve(folder, text), wide_string()});
        context->guard.add(model_files_.back().old_path);
    }
}

void Tvs_resave_tos_lr::collect_source_files(std::vector<found_file>& out) {
    out.clear();
    // Kept as users know it: without the main file not even the files of the model are listed.
    if (!append_existing_files(source_path(), out)) return;
    for (const model_file& file : model_files_) {
        if (file.old_path.empty() || std::ranges::find(out, file.old_path, &found_file::path) != out.end())
            continue;
        // Kept as users know it: the files of later rows are not listed.
        if (!append_existing_files(file.old_path, out)) return;
    }
}

void Tvs_resave_tos_lr::collect_common_directory(common_directory& common) {
    for (const model_file& file : model_files_) common.add_path(file.old_path);
    Tvs_resave_layer::collect_common_directory(common);
}

wide_string Tvs_resave_tos_lr::default_folder() { return load_string(text::tos_folder); }

bool Tvs_resave_tos_lr::copy_files(const wide_string& source, const wide_string& target) {
    return copy_tos_files(source, target, *context); // the main file is one of them
}

void Tvs_resave_tos_lr::after_file_saved() {
    // Kept as users know it: this counts the rows that name a file. After an empty row, a file is therefore
    // handled as the element of an earlier row.
    size_t counted = 0;
    for (model_file& file : model_files_) {
        if (file.old_path.empty()) continue;
        const model_element& row = model_elements[counted++];
        file.new_path = place_model_file(file.old_path, row.lost_text);
        if (complex_model_record record{layer}) record.set_text(row.element, file.new_path);
    }
}

// Returns the path to write into the record; empty if the file is lost or has no place.
wide_string Tvs_resave_tos_lr::place_model_file(const wide_string& source, text::row lost_text) {
    if (!path_exists(source)) {
        record_lost_source(*context, source, caption() + u". " + load_string(lost_text));
        skip_progress(); // Kept as users know it: a step that was not counted
        return wide_string();
    }
    path_placement& placement = context->placement;
    wide_string target = placement.lookup_placed(source);
    if (target.empty()) {
        const type_folder_scope type(placement, default_folder());
        target = placement.new_path(source);
        if (target.empty())
            record_no_place(*context, source, target);
        else
            copy_tos_files(source, target, *context);
    }
    if (target.empty()) return target;
    // The layer's reference is passed as stored. A reference that begins with a mark has no folder, so the
    // path then stays absolute.
    return path_relative(host_string(&vs_lr_get_wfilename, layer), target);
}

bool Tvs_resave_tos_lr::write_structure() {
    Tvs_resave_layer::write_structure();
    if (!context->options.write_table_columns) return true;
    context->log.indent();
    write_tos_properties(*context, source_path());
    context->log.unindent();
    return true;
}

void Tvs_resave_tos_lr2d::after_file_saved() {
    Tvs_resave_tos_lr::after_file_saved();
    save_layer_file_2d(layer, *context);
}

void Tvs_resave_tos_lr3d::after_file_saved() {
    Tvs_resave_tos_lr::after_file_saved();
    save_layer_file_3d(layer, *context);
}

} // namespace vs::project_resave
