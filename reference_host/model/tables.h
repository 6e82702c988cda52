// Styles of layers, DBF tables with their joins, TOS tables, map legends, and their containers.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "reference_host/model/counted.h"
#include "reference_host/model/entity_list.h"

namespace vestra {

// The style of a layer: a tree of named values under a type. Assigning copies the tree. Nothing in this host
// draws, so styles are only read, copied and written.
struct style_value {
    wide_string name;
    wide_string text;
    std::vector<style_value> values;
    friend bool operator==(const style_value&, const style_value&) = default;
};

struct style_manager : counted {
    // The type is kept as it is; nothing in this host interprets it.
    explicit style_manager(std::string style_type) : type(std::move(style_type)) {}
    std::string type;
    std::vector<style_value> values;
};

// Several styles of one layer, under a type of the list.
struct style_manager_list : counted {
    explicit style_manager_list(std::string list_type) : type(std::move(list_type)) {}
    std::string type;
    std::vector<style_manager> managers;
};

// A table with its main file, which need not exist: nothing is opened until its content is asked for.
class table_data : public entity {
public:
    using entity::entity;
    // The reference as the project holds it, resolved when the file was read.
    wide_string file;
};

// A join with another table by the index of a field in each of them, counted from 0 in the order of the file.
// The path is a reference and need not belong to a table of the project.
struct table_join {
    wide_string other_source; // path of the joined table
    std::int32_t base_field = 0;
    std::int32_t other_field = 0;
    friend bool operator==(const table_join&, const table_join&) = default;
};

// A DBF table. Its joins are references only: the host never reads joined records.
class attr_data : public table_data {
public:
    attr_data() : table_data("AttrDataMetaID") {}
    // Appends a join that keeps only the path of the other table, so that table may be destroyed or moved
    // later. Field indexes are not checked.
    void join(const table_data& other, std::int32_t base_field, std::int32_t other_field) {
        joins.push_back({other.file, base_field, other_field});
    }
    // Removes all joins; the files are not touched.
    void unjoin() { joins.clear(); }

    std::vector<table_join> joins;
};

// An OAT table, whose file is a TOS file (docs/tos_format.md).
class tos_data : public table_data {
public:
    tos_data() : table_data("TosDataMetaID") {}
};

// The caption is the title of the legend.
class map_legend : public entity {
public:
    map_legend() : entity("MapLegendMetaID") {}
};

using attr_data_list = owned_list<attr_data>;
using tos_data_list = owned_list<tos_data>;
using map_legend_list = owned_list<map_legend>;

} // namespace vestra
