// Host library vsk_basic: texts, identifiers, three-state values, dynamic values, services, data sources.
// Implemented by the host, called by bundles on the main thread. host/types.h has the rules on null handles,
// ownership, texts and indexes.
#pragma once

#include "host/types.h"

extern "C" {

// Returns an adapter, owned by the caller, to the caller's string: the host passes texts through `assign` and
// reads them through `text`, both called with `context`. A null `assign` discards the texts.
vs_string_adp* vs_string_adp_create(vs_string_assign assign, vs_string_text text, void* context);
// Frees the adapter; the caller's string does not change.
void vs_string_adp_destroy(vs_string_adp* adapter);

// Returns an empty list of wide texts, owned by the caller.
vs_wstrings* vs_wstrings_create();
// Frees the list and its texts.
void vs_wstrings_destroy(vs_wstrings* list);
// Returns the number of texts.
uint32_t vs_wstrings_get_size(const vs_wstrings* list);
// Returns a text, valid until the list changes; null at and beyond the size.
const char16_t* vs_wstrings_get_str(const vs_wstrings* list, uint32_t index);
// Appends a copy of the text.
void vs_wstrings_add(vs_wstrings* list, const char16_t* text);

// Returns a uuid without a value, owned by the caller.
vs_uuid* vs_uuid_create();
// Frees a uuid made by vs_uuid_create. The uuid of an entity must not be passed.
void vs_uuid_destroy(vs_uuid* uuid);
// Copies the value, or the absence of one. Kept for other bundles; nothing here calls it.
void vs_uuid_assign(vs_uuid* target, const vs_uuid* source);
// True if both have the same value or both have no value; false if a handle is null. Kept for other bundles;
// nothing here calls it.
bool vs_uuid_equal(const vs_uuid* a, const vs_uuid* b);
// True if the uuid has a value.
bool vs_uuid_has_value(const vs_uuid* uuid);
// Passes the value as 8-4-4-4-12 lower-case hexadecimal digits; the empty text without a value.
void vs_uuid_to_string(const vs_uuid* uuid, vs_string_adp* out);
// Sets the value. The low byte of the result is 1 if the text is 8-4-4-4-12 hexadecimal digits in any letter
// case, with or without braces; only zeros mean no value. For any other text, such as a path, it is 0 and
// `uuid` is unchanged.
uint32_t vs_uuid_from_string(vs_uuid* uuid, const char16_t* text);

// Returns the value as a vs_three_state: 0 for true, 1 for false.
uint32_t vs_bool_to_3state(bool value);
// True only for 0: the mixed state, 2, is false.
bool vs_3state_to_bool(uint32_t state);
// Exchanges 0 and 1; mixed stays mixed.
uint32_t vs_3state_invert(uint32_t state);

// Returns the offset of the current language in the string tables: 0 base language, 50000 English.
uint32_t vs_res_get_lng();
// True if the user sees the layers of a group in the reverse of their stored order.
bool vs_options_get_invert_layers();
// Returns `value` rounded to `decimals` decimals, half away from zero; unchanged if that is not finite.
double vs_round_dbl(double value, int32_t decimals);

// Frees a picture, for example one that a layer type service made for the caller.
void vs_dib_destroy(vs_dib* dib);
// Returns the width in pixels.
uint32_t vs_dib_get_width(const vs_dib* dib);
// Returns the number of rows.
uint32_t vs_dib_get_height(const vs_dib* dib);
// Returns the pixels, for reading and writing: rows from the top without gaps, each pixel as blue, green,
// red. Valid as long as the picture; may be null for a picture without pixels.
uint8_t* vs_dib_get_bits(vs_dib* dib);

// Returns the code of the value's type: 0 empty, 1 tuple, 6 wide text. Leave values with other codes
// unchanged.
uint32_t any_get_type(const vs_any* value);
// Returns the tuple, which belongs to the value until the value is assigned to; null for another type.
vs_tuple* any_get_tuple(vs_any* value);
// Passes the wide text; the empty text if the value is of another type.
void any_get_wstring(const vs_any* value, vs_string_adp* out);
// Makes the value this tuple and takes over `tuple`, which must come from tuple_init; use any_get_tuple to
// access it after that. If either handle is null nothing happens, and the tuple remains the caller's.
void any_assign_tuple(vs_any* value, vs_tuple* tuple);
// Makes the value a copy of this text.
void any_assign_wstring(vs_any* value, const char16_t* text);
// Returns an empty tuple, owned by the caller until any_assign_tuple takes it over.
vs_tuple* tuple_init();
// Returns the number of elements.
uint32_t tuple_get_size(const vs_tuple* tuple);
// Keeps the elements below `size` and appends empty ones up to it. Handles to elements become invalid.
void tuple_resize(vs_tuple* tuple, uint32_t size);
// Returns an element, which belongs to the tuple; null at and beyond the size.
vs_any* tuple_get_element(vs_tuple* tuple, uint32_t index);

// Opens the data set that the source text names; if the text is empty, the file of `data` (a layer's data, or
// null). Sets `out` to the identity of a new referent that implements host/interfaces/stat_source.h, or to
// null if the data set cannot be opened. The caller must take a ref at once: releasing the last ref closes
// the data set. Nothing on the disk changes, whatever the format.
void vs_datasource_open(vs_interface_pointer* out, const char16_t* source, vs_data* data);

// Passes to the visitor, once, each service whose factory is registered under exactly `id` or under no id, in
// the order of registration, and starts those that are not yet running. `visitor` is the identity of the
// visitor, borrowed for the call; host/interfaces/service_visitor.h says which services it receives.
void vs_service_registry_with_services(const char16_t* id, vs_interface_pointer visitor);
}
