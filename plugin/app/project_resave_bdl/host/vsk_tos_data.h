// Host library vsk_tos_data: OAT tables, whose files are TOS files. Implemented by the host, called by
// bundles on the main thread. host/types.h has the rules on null handles, ownership, texts and indexes.
// Tables belong to the project.
#pragma once

#include "host/types.h"

extern "C" {

// Returns the collection as a container of entities, its tables.
vs_entities* vs_toss_data_safe_upcast(vs_toss_data* tables);
// Returns the number of tables in the collection.
uint32_t vs_toss_data_get_size(vs_toss_data* tables);
// Returns a table, which belongs to the collection; null at and beyond the size.
vs_tos_data* vs_toss_data_get(vs_toss_data* tables, uint32_t index);
// Destroys the table; its file stays.
void vs_toss_data_del(vs_toss_data* tables, uint32_t index);

// Returns the same table as one of either kind; vs_table_data_safe_upcast makes an entity of that.
vs_table_data* vs_tos_data_safe_upcast(vs_tos_data* table);
// Passes the caption, as shown to the user.
void vs_tos_data_get_wcaption(vs_tos_data* table, vs_string_adp* out);
// Passes the path of the table's file.
void vs_tos_data_get_wfilename(vs_tos_data* table, vs_string_adp* out);
// Replaces the path. No file is opened or moved.
void vs_tos_data_set_wfilename(vs_tos_data* table, const char16_t* path);
}
