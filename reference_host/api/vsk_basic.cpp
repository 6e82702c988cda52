// The C functions of vsk_basic: text adapters, lists of texts, uuids, dynamic values and the register of
// services.
#include "host/vsk_basic.h"

#include <cmath>

#include "reference_host/api/calls.h"
#include "reference_host/api/objects.h"
#include "reference_host/datasets/open_source.h"
#include "reference_host/shell/front_end.h"
#include "reference_host/shell/service_registry.h"

using namespace vestra::api;
using vestra::wide_string;

namespace {

// The numbers of vs_three_state.
constexpr uint32_t yes = 0, no = 1;

} // namespace

void vestra::api::tell(vs_string_adp* out, const wide_string& text) noexcept {
    on(out, [&](string_adapter& adapter) {
        if (adapter.assign) adapter.assign(adapter.context, text.c_str());
    });
}

vs_string_adp* vs_string_adp_create(vs_string_assign assign, vs_string_text text, void* context) {
    // An aggregate, whose first part is the base class that counts objects.
    return create<vs_string_adp>(string_adapter{{}, assign, text, context});
}

void vs_string_adp_destroy(vs_string_adp* adapter) { destroy(adapter); }

vs_wstrings* vs_wstrings_create() { return create<vs_wstrings>(); }

void vs_wstrings_destroy(vs_wstrings* list) { destroy(list); }

uint32_t vs_wstrings_get_size(const vs_wstrings* list) {
    return on(list, [](auto& strings) { return static_cast<uint32_t>(strings.texts.size()); });
}

const char16_t* vs_wstrings_get_str(const vs_wstrings* list, uint32_t index) {
    return on(list, [&](auto& strings) {
        return index < strings.texts.size() ? strings.texts[index].c_str() : nullptr;
    });
}

void vs_wstrings_add(vs_wstrings* list, const char16_t* text) {
    on(list, [&](auto& strings) { strings.texts.emplace_back(text_of(text)); });
}

vs_uuid* vs_uuid_create() { return create<vs_uuid>(); }

void vs_uuid_destroy(vs_uuid* uuid) { destroy(uuid); }

void vs_uuid_assign(vs_uuid* target, const vs_uuid* source) { assign(target, source); }

bool vs_uuid_equal(const vs_uuid* a, const vs_uuid* b) { return a && b && *to_model(a) == *to_model(b); }

bool vs_uuid_has_value(const vs_uuid* uuid) {
    return on(uuid, [](auto& id) { return id.has_value(); });
}

void vs_uuid_to_string(const vs_uuid* uuid, vs_string_adp* out) {
    tell(out, on(uuid, [](auto& id) { return id.text(); }));
}

uint32_t vs_uuid_from_string(vs_uuid* uuid, const char16_t* text) {
    return on(uuid, [&](auto& id) {
        const auto parsed = vestra::uuid::parse(text_of(text));
        if (parsed) id = *parsed;
        return uint32_t{parsed.has_value()};
    });
}

uint32_t vs_bool_to_3state(bool value) { return value ? yes : no; }

bool vs_3state_to_bool(uint32_t state) { return state == yes; }

uint32_t vs_3state_invert(uint32_t state) {
    if (state == yes) return no;
    // A number that is no state comes back unchanged, like the mixed state.
    return state == no ? yes : state;
}

uint32_t vs_res_get_lng() { return vestra::shell::settings().language_offset; }

bool vs_options_get_invert_layers() { return vestra::shell::settings().invert_layers; }

double vs_round_dbl(double value, int32_t decimals) {
    const double scale = std::pow(10.0, decimals);
    // A large number of decimals makes the scale infinite, a very negative one zero.
    const double rounded = std::round(value * scale) / scale;
    return std::isfinite(rounded) ? rounded : value;
}

void vs_dib_destroy(vs_dib* dib) { destroy(dib); }

uint32_t vs_dib_get_width(const vs_dib* dib) {
    return on(dib, [](auto& image) { return image.width; });
}

uint32_t vs_dib_get_height(const vs_dib* dib) {
    return on(dib, [](auto& image) { return image.height; });
}

uint8_t* vs_dib_get_bits(vs_dib* dib) {
    return on(dib, [](auto& image) { return image.bits.data(); });
}

uint32_t any_get_type(const vs_any* value) {
    return on(value, [](auto& dynamic) { return dynamic.type(); });
}

vs_tuple* any_get_tuple(vs_any* value) {
    return on(value, [](auto& dynamic) { return to_handle<vs_tuple>(dynamic.as_tuple()); });
}

void any_get_wstring(const vs_any* value, vs_string_adp* out) {
    tell(out, on(value, [](auto& dynamic) { return dynamic.as_text(); }));
}

void any_assign_tuple(vs_any* value, vs_tuple* tuple) {
    if (!value || !tuple) return;
    to_model(value)->value = std::move(*to_model(tuple));
    // Its content has moved into the value; only the emptied object is left.
    destroy(tuple);
}

void any_assign_wstring(vs_any* value, const char16_t* text) {
    on(value, [&](auto& dynamic) { dynamic.value = wide_string(text_of(text)); });
}

vs_tuple* tuple_init() { return create<vs_tuple>(); }

uint32_t tuple_get_size(const vs_tuple* tuple) {
    return on(tuple, [](auto& values) { return static_cast<uint32_t>(values.elements.size()); });
}

void tuple_resize(vs_tuple* tuple, uint32_t size) {
    on(tuple, [&](auto& values) { values.elements.resize(size); });
}

vs_any* tuple_get_element(vs_tuple* tuple, uint32_t index) {
    return on(tuple, [&](auto& values) {
        return index < values.elements.size() ? to_handle<vs_any>(&values.elements[index]) : nullptr;
    });
}

void vs_datasource_open(vs_interface_pointer* out, const char16_t* source, vs_data* data) {
    if (!out) return;
    *out = guarded([&]() -> vs_interface_pointer {
        const auto& stops_reading = vestra::shell::settings().stops_reading;
        // The bundle sees a data set that does not open, and comes to its next poll for a stop.
        if (stops_reading && stops_reading()) return {};
        vestra::files::file_error error;
        const auto opened = vestra::datasets::open_source(text_of(source), to_model(data), &error);
        // A file that does not exist is no refusal: the bundle reports it as lost.
        if (!error.reason.empty()) vestra::shell::settings().refused_reads.add(std::move(error));
        return opened;
    });
}

void vs_service_registry_with_services(const char16_t* id, vs_interface_pointer visitor) {
    guarded([&] { vestra::shell::visit_services(text_of(id), {visitor}); });
}
