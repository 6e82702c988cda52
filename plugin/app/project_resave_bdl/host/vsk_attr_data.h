// Host library vsk_attr_data: DBF tables, the tables joined to them, and their fields. Implemented by the
// host, called by bundles on the main thread. host/types.h has the rules on null handles, ownership, texts
// and indexes. A table of a project belongs to the project, a layer's to the layer.
#pragma once

#include "host/types.h"

extern "C" {

// Returns the collection as a container of entities, its tables.
vs_entities* vs_attrs_data_safe_upcast(vs_attrs_data* tables);
// Returns the number of tables in the collection.
uint32_t vs_attrs_data_get_size(vs_attrs_data* tables);
// Returns a table, which belongs to the collection; null at and beyond the size.
vs_attr_data* vs_attrs_data_get(vs_attrs_data* tables, uint32_t index);
// Destroys the table; its file stays.
void vs_attrs_data_del(vs_attrs_data* tables, uint32_t index);

// Returns the same table as an entity.
vs_entity* vs_table_data_safe_upcast(vs_table_data* table);
// Returns the same table under the handle type that DBF and TOS tables share.
vs_table_data* vs_attr_data_safe_upcast(vs_attr_data* table);
// Returns the DBF table that a layer's data is; null if the data is of another kind.
vs_attr_data* vs_attr_data_safe_downcast(vs_data* data);

// Returns an empty table outside any project, owned by the caller.
vs_attr_data* vs_attr_data_create();
// Frees a table made by vs_attr_data_create. Tables of a project or a layer must not be passed.
void vs_attr_data_destroy(vs_attr_data* table);
// Passes the caption, as shown to the user.
void vs_attr_data_get_wcaption(vs_attr_data* table, vs_string_adp* out);
// Passes the path of the table's file.
void vs_attr_data_get_wfilename(vs_attr_data* table, vs_string_adp* out);
// Replaces the path; joins stay. No file is opened or moved.
void vs_attr_data_set_wfilename(vs_attr_data* table, const char16_t* path);

// True if at least one table is joined to this one.
bool vs_attr_data_is_joined(vs_attr_data* table);
// Returns the number of joined tables.
int32_t vs_attr_data_get_join_count(vs_attr_data* table);
// Passes the path of a joined table; the empty text for an index outside the count, including a negative one.
void vs_attr_data_get_join_other_source(vs_attr_data* table, int32_t index, vs_string_adp* out);
// Returns the field of this table that a join compares, as an index into its fields; 0 outside the count.
int32_t vs_attr_data_get_join_base_field(vs_attr_data* table, int32_t index);
// Returns the field of the joined table that a join compares, as an index into its fields; 0 outside the
// count.
int32_t vs_attr_data_get_join_other_field(vs_attr_data* table, int32_t index);
// Appends a join with the current file of `other`; `other` stays the caller's and may be destroyed
// afterwards.
void vs_attr_data_join(vs_attr_data* table, vs_attr_data* other, int32_t base_field, int32_t other_field);
// Removes all joins.
void vs_attr_data_unjoin(vs_attr_data* table);

// Opens the table's list of fields: its own first, then those of the joined tables. The caller owns the
// result. `mode` is vs_open_for_reading, the last three arguments are 0. Null if the table's own file cannot
// be read, and for another mode; a joined file that cannot be read adds no fields. Later changes of the table
// do not appear in the list.
vs_attr_files* vs_attr_files_open(vs_attr_data* table, int32_t mode, int32_t, int32_t, int32_t);
// Closes the list: the names it returned become invalid. The table does not change.
void vs_attr_files_close(vs_attr_files* files);
// Returns the number of fields, including those of joined tables.
int32_t vs_attr_files_get_np(vs_attr_files* files);
// Returns the field's name as narrow text, valid until the list is closed. May be null, and is null outside
// the count.
const char* vs_attr_files_get_field_name(vs_attr_files* files, int32_t index);
// True if the field comes from a joined table.
bool vs_attr_files_get_field_is_joined(vs_attr_files* files, int32_t index);
}
