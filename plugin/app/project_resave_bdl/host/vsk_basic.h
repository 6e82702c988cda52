// Host library vsk_basic: texts, identifiers, three-state values, dynamic values, services, data sources.
#pragma once

#include "host/types.h"

extern "C" {

// String adapter: lets the host assign a text to, and read one from, the caller's string through two
// functions.
vs_string_adp* vs_string_adp_create(vs_string_assign assign, vs_string_text text, void* context);
void vs_string_adp_destroy(vs_string_adp* adapter);

// List of wide texts, owned by the one who created it. A text of the list lives as long as the list is
// unchanged.
vs_wstrings* vs_wstrings_create();
void vs_wstrings_destroy(vs_wstrings* list);
uint32_t vs_wstrings_get_size(const vs_wstrings* list);
const char16_t* vs_wstrings_get_str(const vs_wstrings* list, uint32_t index);
void vs_wstrings_add(vs_wstrings* list, const char16_t* text);

// Uuids. A created one has no value until it is given one. The low byte of from_string's result is true if
// the text is a uuid; a path never is.
vs_uuid* vs_uuid_create();
void vs_uuid_destroy(vs_uuid* uuid);
// Kept for other bundles; nothing here calls it.
void vs_uuid_assign(vs_uuid* target, const vs_uuid* source);
// Kept for other bundles; nothing here calls it.
bool vs_uuid_equal(const vs_uuid* a, const vs_uuid* b);
bool vs_uuid_has_value(const vs_uuid* uuid);
void vs_uuid_to_string(const vs_uuid* uuid, vs_string_adp* out);
uint32_t vs_uuid_from_string(vs_uuid* uuid, const char16_t* text);

// Three-state values: 0 true, 1 false, 2 mixed. Mixed is not true; its inverse is mixed.
uint32_t vs_bool_to_3state(bool value);
bool vs_3state_to_bool(uint32_t state);
uint32_t vs_3state_invert(uint32_t state);

// Offset of the present language in the string tables: 0 base language, 50000 English.
uint32_t vs_res_get_lng();
// True when the user sees the layers of a group in the reverse of their stored order.
bool vs_options_get_invert_layers();
// Rounds half away from zero to so many decimals.
double vs_round_dbl(double value, int32_t decimals);

// Pictures: a top-down image, three bytes to a pixel. Owned by the one who created it.
void vs_dib_destroy(vs_dib* dib);
uint32_t vs_dib_get_width(const vs_dib* dib);
uint32_t vs_dib_get_height(const vs_dib* dib);
uint8_t* vs_dib_get_bits(vs_dib* dib);

// Dynamic values. Type codes: 0 empty, 1 tuple, 6 wide string; others pass untouched.
// any_assign_tuple takes the tuple over. What
// any_get_tuple and tuple_get_element answer belongs to the value it was asked of; null if there is none.
uint32_t any_get_type(const vs_any* value);
vs_tuple* any_get_tuple(vs_any* value);
void any_get_wstring(const vs_any* value, vs_string_adp* out);
void any_assign_tuple(vs_any* value, vs_tuple* tuple);
void any_assign_wstring(vs_any* value, const char16_t* text);
vs_tuple* tuple_init();
uint32_t tuple_get_size(const vs_tuple* tuple);
void tuple_resize(vs_tuple* tuple, uint32_t size);
vs_any* tuple_get_element(vs_tuple* tuple, uint32_t index);

// Opens a data set by its source text, and the data handle of a layer if there is one. Fills `out` with the
// identity interface of a referent, or null if nothing can open it; the caller takes a ref at once.
void vs_datasource_open(vs_interface_pointer* out, const char16_t* source, vs_data* data);

// Calls the visitor once for each running service registered under `id`. `visitor` is the identity interface
// of an object that answers to the visitor interface of the services it wants.
void vs_service_registry_with_services(const char16_t* id, vs_interface_pointer visitor);
}
