#include "host/vsk_tos_data.h"

#include "reference_host/api/calls.h"

using namespace vestra::api;
using vestra::tos_data;

vs_entities* vs_toss_data_safe_upcast(vs_toss_data* tables) {
    return to_handle<vs_entities>(to_model(tables));
}

uint32_t vs_toss_data_get_size(vs_toss_data* tables) { return count_of(tables); }

vs_tos_data* vs_toss_data_get(vs_toss_data* tables, uint32_t index) {
    return member_of<vs_tos_data>(tables, index);
}

void vs_toss_data_del(vs_toss_data* tables, uint32_t index) { remove_member(tables, index); }

vs_table_data* vs_tos_data_safe_upcast(vs_tos_data* table) {
    return to_handle<vs_table_data>(to_model(table));
}

void vs_tos_data_get_wcaption(vs_tos_data* table, vs_string_adp* out) {
    tell(out, table, &tos_data::caption);
}

void vs_tos_data_get_wfilename(vs_tos_data* table, vs_string_adp* out) { tell(out, table, &tos_data::file); }

void vs_tos_data_set_wfilename(vs_tos_data* table, const char16_t* path) {
    on(table, [&](auto& model) { model.file = text_of(path); });
}
