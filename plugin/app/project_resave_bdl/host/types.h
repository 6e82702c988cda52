// Handles and small records of the host's C functions. A handle is opaque: only the host looks inside.
// Null handles are allowed everywhere: sizes and counts are then 0, casts and getters null, texts empty.
// All functions are called on the user-interface thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>

// The pair by which the host and its bundles reach each other's objects; null when either word is null.
struct vs_interface_pointer {
    const void* table = nullptr;
    void* instance = nullptr;
    explicit operator bool() const { return table != nullptr && instance != nullptr; }
    friend bool operator==(const vs_interface_pointer&, const vs_interface_pointer&) = default;
};
static_assert(sizeof(vs_interface_pointer) == 2 * sizeof(void*));
static_assert(alignof(vs_interface_pointer) == alignof(void*));
static_assert(offsetof(vs_interface_pointer, table) == 0);
static_assert(offsetof(vs_interface_pointer, instance) == sizeof(void*));
// It is passed by value as two words only as long as it copies like plain data.
static_assert(std::is_standard_layout_v<vs_interface_pointer>);
static_assert(std::is_trivially_copyable_v<vs_interface_pointer>);

// A 2D and a 3D scene are both scenes; the tags below let their handles convert to vs_scn by themselves.
struct vs_scn {};
struct vs_scn_2d : vs_scn {};
struct vs_scn_3d : vs_scn {};

struct vs_prj;
struct vs_entity;   // anything with a uuid, a caption and a meta identifier
struct vs_entities; // a container of entities; scenes and collections are such
struct vs_scns_2d;  // a collection of 2D scenes; layouts and plug-in collections too
struct vs_scns_3d;
struct vs_lr;         // a layer, 2D or 3D
struct vs_lr_group;   // a node of a scene's tree of layer groups: a group or a layer
struct vs_data;       // the data behind a layer, of whatever kind
struct vs_table_data; // what a DBF and an OAT table have in common
struct vs_attr_data;  // a DBF table
struct vs_attrs_data;
struct vs_attr_files; // the opened field list of a DBF table
struct vs_tos_data;   // an OAT table
struct vs_toss_data;
struct vs_tos4_file;
struct vs_stl_mngr;
struct vs_stl_mngr_list;
struct vs_mapleg;
struct vs_maplegs;
struct vs_uuid;
struct vs_string_adp;
struct vs_wstrings;
struct vs_any;
struct vs_tuple;
struct vs_dib;
struct vs_progress;
struct vs_wait;
struct vs_xml_save_prj;
struct vs_xml_save_2d;
struct vs_xml_save_3d;

// The host's three-state values: a mark, whether an element is selected, whether it is valid.
enum vs_three_state : uint32_t { vs_state_true = 0, vs_state_false = 1, vs_state_mixed = 2 };

// How a file is opened.
enum vs_open_mode : int32_t { vs_open_for_reading = 1 };

// The layer's table of extra values: a signed count, then the rows.
struct vs_table_extra_row {
    const char* key;
    vs_any* value;
};
struct vs_table_extra {
    int32_t count;
    const vs_table_extra_row* rows;
};

using vs_string_assign = void (*)(void* context, const char16_t* text);
using vs_string_text = const char16_t* (*)(void* context);
