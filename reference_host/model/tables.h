#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "reference_host/model/counted.h"
#include "reference_host/model/entity_list.h"

namespace vestra {

// The style of a layer: a tree of named values under a type. Assigning copies the tree.
struct style_value {
    wide_string name;
    wide_string text;
    std::vector<style_value> values;
    friend bool operator==(const style_value&, const style_value&) = default;
};

struct style_manager : counted {
    explicit style_manager(std::string style_type) : type(std::move(style_type)) {}
    std::string type;
    std::vector<style_value> values;
};

struct style_manager_list : counted {
    explicit style_manager_list(std::string list_type) : type(std::move(list_type)) {}
    std::string type;
    std::vector<style_manager> managers;
};

// DBF tables with their joins, TOS tables, map legends, and their containers.
class table_data : public entity {
public:
    using entity::entity;
    wide_string file;
};

// A join with another table by the index of a field in each of them.
struct table_join {
    wide_string other_source; // path of the joined table
    std::int32_t base_field = 0;
    std::int32_t other_field = 0;
    friend bool operator==(const table_join&, const table_join&) = default;
};

class attr_data : public table_data {
public:
    attr_data() : table_data("AttrDataMetaID") {}
    // Keeps only the path of the other table.
    void join(const table_data& other, std::int32_t base_field, std::int32_t other_field) {
        joins.push_back({other.file, base_field, other_field});
    }
    void unjoin() { joins.clear(); }

    std::vector<table_join> joins;
};

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
