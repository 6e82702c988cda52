// Host library vsk_tos_data: OAT tables.
#pragma once

#include "host/types.h"

extern "C" {

vs_entities* vs_toss_data_safe_upcast(vs_toss_data* tables);
uint32_t vs_toss_data_get_size(vs_toss_data* tables);
vs_tos_data* vs_toss_data_get(vs_toss_data* tables, uint32_t index);
void vs_toss_data_del(vs_toss_data* tables, uint32_t index);

vs_table_data* vs_tos_data_safe_upcast(vs_tos_data* table);
void vs_tos_data_get_wcaption(vs_tos_data* table, vs_string_adp* out);
void vs_tos_data_get_wfilename(vs_tos_data* table, vs_string_adp* out);
void vs_tos_data_set_wfilename(vs_tos_data* table, const char16_t* path);
}
