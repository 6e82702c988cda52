// Host library vsk_attr_data: DBF tables, the tables joined to them, and their fields.
#pragma once

#include "host/types.h"

extern "C" {

vs_entities* vs_attrs_data_safe_upcast(vs_attrs_data* tables);
uint32_t vs_attrs_data_get_size(vs_attrs_data* tables);
vs_attr_data* vs_attrs_data_get(vs_attrs_data* tables, uint32_t index);
void vs_attrs_data_del(vs_attrs_data* tables, uint32_t index);

vs_entity* vs_table_data_safe_upcast(vs_table_data* table);
vs_table_data* vs_attr_data_safe_upcast(vs_attr_data* table);
// The DBF table that a layer's data is, or null.
vs_attr_data* vs_attr_data_safe_downcast(vs_data* data);

// A table outside of any project, owned by the caller.
vs_attr_data* vs_attr_data_create();
void vs_attr_data_destroy(vs_attr_data* table);
void vs_attr_data_get_wcaption(vs_attr_data* table, vs_string_adp* out);
void vs_attr_data_get_wfilename(vs_attr_data* table, vs_string_adp* out);
void vs_attr_data_set_wfilename(vs_attr_data* table, const char16_t* path);

bool vs_attr_data_is_joined(vs_attr_data* table);
int32_t vs_attr_data_get_join_count(vs_attr_data* table);
void vs_attr_data_get_join_other_source(vs_attr_data* table, int32_t index, vs_string_adp* out);
int32_t vs_attr_data_get_join_base_field(vs_attr_data* table, int32_t index);
int32_t vs_attr_data_get_join_other_field(vs_attr_data* table, int32_t index);
// Joins the file of `other` to `table`; `other` stays the caller's.
void vs_attr_data_join(vs_attr_data* table, vs_attr_data* other, int32_t base_field, int32_t other_field);
// Takes all joins off.
void vs_attr_data_unjoin(vs_attr_data* table);

// Opens the field list, joined fields behind the table's own; `mode` is 1 and the last three are 0. Null on
// failure.
vs_attr_files* vs_attr_files_open(vs_attr_data* table, int32_t mode, int32_t, int32_t, int32_t);
void vs_attr_files_close(vs_attr_files* files);
int32_t vs_attr_files_get_np(vs_attr_files* files);
// Narrow name in the system's code page, may be null; lives until the close.
const char* vs_attr_files_get_field_name(vs_attr_files* files, int32_t index);
bool vs_attr_files_get_field_is_joined(vs_attr_files* files, int32_t index);
}
