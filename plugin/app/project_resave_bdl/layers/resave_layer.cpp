// What all layers do alike, the record of a complex model, and vector layers.

#include "layers/resave_layer.h"

#include <string_view>

#include "core/copying.h"
#include "core/resave_unit.h"
#include "framework/border/string_adapter.h"
#include "framework/resources/strings.h"
#include "host/vsk_basic.h"
#include "host/vsk_lr.h"
#include "host/vsk_lr2d.h"
#include "operations/run/run_state.h"
#include "platform/system.h"

namespace vs::project_resave {

bool Tvs_resave_layer::write_structure() {
    skip_progress();
    context->log.write_indented(with_path(*context, host_string(&vs_lr_get_wcaption, layer),
                                          host_string(&vs_lr_get_wfilename, layer)));
    return true;
}

vs_entity* Tvs_resave_layer::entity() { return layer ? vs_lr_safe_upcast(layer) : nullptr; }

wide_string Tvs_resave_layer::source_path() { return host_string(&vs_lr_get_wfilename, layer); }

void Tvs_resave_layer::set_new_path(const wide_string& path) { vs_lr_set_wfilename(layer, path.c_str()); }

wide_string Tvs_resave_layer::default_folder() { return load_string(text::others_folder); }

bool Tvs_resave_layer::copy_files(const wide_string&, const wide_string&) {
    context->log.write(text::layer_type_not_saved);
    context->log.write(vs_lr_get_lr_type(layer));
    context->log.write(text::end_of_block);
    return false;
}

namespace {

// The key and size of the record, as other programs write it.
constexpr char record_key[] = "BumpsSettings";
constexpr uint32_t element_count = 70;

// Type codes of dynamic values.
enum any_type : uint32_t { tuple_type = 1, wide_string_type = 6 };

} // namespace

bool complex_model_record::is_listed(vs_lr* layer) {
    const vs_table_extra* table = vs_lr_get_table_extra(layer);
    if (!table) return false;
    for (int32_t row = 0; row < table->count; ++row) {
        const char* key = table->rows[row].key;
        if (key && std::string_view(key) == record_key) return true;
    }
    return false;
}

complex_model_record::complex_model_record(vs_lr* layer) {
    vs_any* value = vs_lr_get_extra(layer, record_key);
    if (!value) return;
    if (any_get_type(value) != tuple_type) any_assign_tuple(value, tuple_init());
    elements_ = any_get_tuple(value);
    // Writing an element of a shorter tuple would fail.
    if (tuple_get_size(elements_) != element_count) tuple_resize(elements_, element_count);
}

wide_string complex_model_record::text(uint32_t element) {
    vs_any* value = tuple_get_element(elements_, element);
    // Reading repairs the record: an element of another type becomes an empty text.
    if (any_get_type(value) != wide_string_type) any_assign_wstring(value, u"");
    return host_string(&any_get_wstring, value);
}

void complex_model_record::set_text(uint32_t element, const wide_string& text) {
    any_assign_wstring(tuple_get_element(elements_, element), text.c_str());
}

Tvs_resave_vector_lr2d::kind Tvs_resave_vector_lr2d::kind_of(const wide_string& reference) {
    if (reference.starts_with(u'*')) return source_link;
    const bool is_folder = platform::current_system().kind_of(reference) == platform::entry_kind::folder;
    return is_folder ? source_folder : source_file;
}

Tvs_resave_vector_lr2d::Tvs_resave_vector_lr2d(vs_lr* handle, run_state& run)
    : Tvs_resave_layer(handle, run), source_kind_(kind_of(host_string(&vs_lr2d_get_wfilename, handle))) {}

// Kept as users know it: the kind is that of the reference when the tree was built, even if the disk or the
// reference has changed since.
void Tvs_resave_vector_lr2d::collect_common_directory(common_directory& common) {
    if (source_kind_ != source_link) Tvs_resave_layer::collect_common_directory(common);
}

wide_string Tvs_resave_vector_lr2d::source_path() {
    return source_kind_ == source_link ? wide_string() : Tvs_resave_layer::source_path();
}

void Tvs_resave_vector_lr2d::set_new_path(const wide_string& path) {
    if (source_kind_ != source_link) Tvs_resave_layer::set_new_path(path);
}

wide_string Tvs_resave_vector_lr2d::default_folder() { return load_string(text::vector_folder); }

bool Tvs_resave_vector_lr2d::copy_files(const wide_string& source, const wide_string& target) {
    switch (source_kind_) {
    case source_link:
        return true;
    case source_folder:
        return copy_data_folder(source, target, *context);
    default:
        return copy_data_set(source, target, *context);
    }
}

} // namespace vs::project_resave
