#include "layers/complex_model_record.h"

#include <string_view>

#include "framework/border/string_adapter.h"
#include "host/vsk_basic.h"
#include "host/vsk_lr.h"

namespace vs::project_resave {

namespace {

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
    if (tuple_get_size(elements_) != element_count) tuple_resize(elements_, element_count);
}

wide_string complex_model_record::text(uint32_t element) {
    vs_any* value = tuple_get_element(elements_, element);
    if (any_get_type(value) != wide_string_type) any_assign_wstring(value, u"");
    return host_string(&any_get_wstring, value);
}

void complex_model_record::set_text(uint32_t element, const wide_string& text) {
    any_assign_wstring(tuple_get_element(elements_, element), text.c_str());
}

} // namespace vs::project_resave
