#include "framework/string_adapter.h"

namespace vs::project_resave {

namespace {

// Called by the host: nothing may leave but by return.
void assign_text(void* adapter, const char16_t* text) noexcept {
    static_cast<Tvs_string_adapter_base*>(adapter)->assign(text);
}
const char16_t* text_of(void* adapter) noexcept {
    return static_cast<Tvs_string_adapter_base*>(adapter)->text();
}

} // namespace

Tvs_string_adapter_base::Tvs_string_adapter_base()
    : handle(vs_string_adp_create(&assign_text, &text_of, this)) {}

Tvs_string_adapter_base::~Tvs_string_adapter_base() { vs_string_adp_destroy(handle); }

} // namespace vs::project_resave
