// The C functions of DBF tables, their fields and joins, and of OAT tables with their files.
#include "host/vsk_attr_data.h"
#include "host/vsk_file_tos4.h"
#include "host/vsk_tos_data.h"
#include "reference_host/api/calls.h"
#include "reference_host/api/objects.h"
#include "reference_host/datasets/dbf_fields.h"
#include "reference_host/datasets/tos_reader.h"

using namespace vestra::api;
using vestra::attr_data;

namespace {

// Returns null if there is no join with this index. Indexes are signed here, unlike in other lists.
const vestra::table_join* join_at(vs_attr_data* table, int32_t index) {
    return on(table, [&](auto& model) -> const vestra::table_join* {
        const auto place = static_cast<std::size_t>(index);
        return index >= 0 && place < model.joins.size() ? &model.joins[place] : nullptr;
    });
}

// Returns null if there is no field with this index.
const field_list::field* field_at(vs_attr_files* files, int32_t index) {
    return on(files, [&](auto& list) -> const field_list::field* {
        const auto place = static_cast<std::size_t>(index);
        return index >= 0 && place < list.fields.size() ? &list.fields[place] : nullptr;
    });
}

// Returns false if the file cannot be read as a table.
bool append_fields(field_list& list, const vestra::wide_string& path, bool is_joined) {
    vestra::files::file_error error;
    auto names = vestra::datasets::dbf_field_names(path, &error);
    if (!names) {
        vestra::shell::settings().refused_reads.add(std::move(error));
        return false;
    }
    for (std::string& name : *names) list.fields.push_back({std::move(name), is_joined});
    return true;
}

} // namespace

vs_entities* vs_attrs_data_safe_upcast(vs_attrs_data* tables) {
    return to_handle<vs_entities>(to_model(tables));
}

uint32_t vs_attrs_data_get_size(vs_attrs_data* tables) { return count_of(tables); }

vs_attr_data* vs_attrs_data_get(vs_attrs_data* tables, uint32_t index) {
    return member_of<vs_attr_data>(tables, index);
}

void vs_attrs_data_del(vs_attrs_data* tables, uint32_t index) { remove_member(tables, index); }

vs_entity* vs_table_data_safe_upcast(vs_table_data* table) { return to_handle<vs_entity>(to_model(table)); }

vs_table_data* vs_attr_data_safe_upcast(vs_attr_data* table) {
    return to_handle<vs_table_data>(to_model(table));
}

vs_attr_data* vs_attr_data_safe_downcast(vs_data* data) {
    return to_handle<vs_attr_data>(dynamic_cast<attr_data*>(to_model(data)));
}

vs_attr_data* vs_attr_data_create() { return create<vs_attr_data>(); }

void vs_attr_data_destroy(vs_attr_data* table) { destroy(table); }

void vs_attr_data_get_wcaption(vs_attr_data* table, vs_string_adp* out) {
    tell(out, table, &attr_data::caption);
}

void vs_attr_data_get_wfilename(vs_attr_data* table, vs_string_adp* out) {
    tell(out, table, &attr_data::file);
}

void vs_attr_data_set_wfilename(vs_attr_data* table, const char16_t* path) {
    on(table, [&](auto& model) { model.file = text_of(path); });
}

bool vs_attr_data_is_joined(vs_attr_data* table) {
    return on(table, [](auto& model) { return !model.joins.empty(); });
}

int32_t vs_attr_data_get_join_count(vs_attr_data* table) {
    return on(table, [](auto& model) { return static_cast<int32_t>(model.joins.size()); });
}

void vs_attr_data_get_join_other_source(vs_attr_data* table, int32_t index, vs_string_adp* out) {
    const vestra::table_join* join = join_at(table, index);
    tell(out, join ? &join->other_source : nullptr);
}

int32_t vs_attr_data_get_join_base_field(vs_attr_data* table, int32_t index) {
    const vestra::table_join* join = join_at(table, index);
    return join ? join->base_field : 0;
}

int32_t vs_attr_data_get_join_other_field(vs_attr_data* table, int32_t index) {
    const vestra::table_join* join = join_at(table, index);
    return join ? join->other_field : 0;
}

// The joined table's path is copied, so the caller may destroy `other` at once.
void vs_attr_data_join(vs_attr_data* table, vs_attr_data* other, int32_t base_field, int32_t other_field) {
    if (!other) return;
    on(table, [&](auto& model) { model.join(*to_model(other), base_field, other_field); });
}

void vs_attr_data_unjoin(vs_attr_data* table) {
    on(table, [](auto& model) { model.unjoin(); });
}

// Only for reading. The last three arguments are always 0 and mean nothing here.
vs_attr_files* vs_attr_files_open(vs_attr_data* table, int32_t mode, int32_t, int32_t, int32_t) {
    if (mode != 1) return nullptr;
    return on(table, [](auto& model) -> vs_attr_files* {
        field_list list;
        // The fields of the table come first, so that their indexes do not depend on joins.
        if (!append_fields(list, model.file, false)) return nullptr;
        // A joined table that cannot be read adds no fields; the fields of the table itself are still
        // returned.
        for (const vestra::table_join& join : model.joins) append_fields(list, join.other_source, true);
        return create<vs_attr_files>(std::move(list));
    });
}

void vs_attr_files_close(vs_attr_files* files) { destroy(files); }

int32_t vs_attr_files_get_np(vs_attr_files* files) {
    return on(files, [](auto& list) { return static_cast<int32_t>(list.fields.size()); });
}

const char* vs_attr_files_get_field_name(vs_attr_files* files, int32_t index) {
    const field_list::field* field = field_at(files, index);
    return field ? field->name.c_str() : nullptr;
}

bool vs_attr_files_get_field_is_joined(vs_attr_files* files, int32_t index) {
    const field_list::field* field = field_at(files, index);
    return field && field->is_joined;
}

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

using namespace vestra::api;

// Only for reading, like the fields of a DBF table. The file is not kept open.
vs_tos4_file* vs_tos4_file_open_w(const char16_t* path, int32_t mode) {
    if (mode != 1) return nullptr;
    return guarded([&]() -> vs_tos4_file* {
        vestra::files::file_error error;
        auto file = vestra::datasets::read_tos(vestra::wide_string(text_of(path)), &error);
        if (!file) {
            vestra::shell::settings().refused_reads.add(std::move(error));
            return nullptr;
        }
        return create<vs_tos4_file>(open_tos_file{{}, std::move(file->properties)});
    });
}

void vs_tos4_file_close(vs_tos4_file* file) { destroy(file); }

uint32_t vs_tos4_get_prop_count(vs_tos4_file* file) {
    return on(file, [](auto& tos) { return static_cast<uint32_t>(tos.properties.size()); });
}

void vs_tos4_get_prop_caption_w(vs_tos4_file* file, uint32_t index, vs_string_adp* out) {
    tell(out, on(file, [&](auto& tos) {
             return index < tos.properties.size() ? &tos.properties[index] : nullptr;
         }));
}
