// Handles and small records of the host's C functions, which the headers host/vsk_*.h declare.
//
// Implemented by the host, called by bundles. Rules that hold for every function:
//
// - Thread: the host's main thread, which runs its user interface. Nothing here is safe on another one.
// - A handle is opaque: only the host looks inside. A null handle is allowed everywhere: then sizes, counts
//   and other numbers are 0, flags are false, getters and casts return null, texts are empty, changes have no
//   effect, and destroy and close functions ignore it.
// - Ownership: the result of a create, init or open function belongs to the caller, who passes it to the
//   matching destroy or close function. Any other handle belongs to the object that returned it and becomes
//   invalid with it.
// - Wide text is UTF-16 and zero-terminated. An argument is borrowed for the call, and null counts as empty.
//   A result goes to the adapter that is the last argument, by one call of its `assign` function before the
//   function returns; without an adapter it is discarded.
// - Narrow text is zero-terminated and in the operating system's code page.
// - Indexes count from 0. An index at or beyond the count gives null, 0 or the empty text, and removes
//   nothing. Removing a member moves the later ones down by one.
// - No exception leaves a function: a function that fails returns the same as for a null handle.
#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>

// The pair by which the host and its bundles refer to each other's objects; null if either word is null.
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
// Only a type that copies like plain data is passed by value as two words.
static_assert(std::is_standard_layout_v<vs_interface_pointer>);
static_assert(std::is_trivially_copyable_v<vs_interface_pointer>);

// A 2D and a 3D scene are both scenes; the tags below let their handles convert to vs_scn implicitly.
struct vs_scn {};
struct vs_scn_2d : vs_scn {};
struct vs_scn_3d : vs_scn {};

struct vs_prj;      // a project with all its containers
struct vs_entity;   // anything with a uuid, a caption and a meta identifier
struct vs_entities; // a container of entities: a scene, or a collection of scenes or tables
struct vs_scns_2d;  // a collection of 2D scenes, of layouts, or of a plug-in's scenes
struct vs_scns_3d;
struct vs_lr;         // a layer, 2D or 3D
struct vs_lr_group;   // a node of a scene's tree of layer groups: a group or a layer
struct vs_data;       // the data of a layer, of any kind
struct vs_table_data; // what a DBF and an OAT table have in common
struct vs_attr_data;  // a DBF table
struct vs_attrs_data; // the DBF tables of a project
struct vs_attr_files; // the opened field list of a DBF table
struct vs_tos_data;   // an OAT table
struct vs_toss_data;  // the OAT tables of a project
struct vs_tos4_file;  // an opened TOS file
struct vs_stl_mngr;   // how a layer is drawn
struct vs_stl_mngr_list;
struct vs_mapleg; // a map legend
struct vs_maplegs;
struct vs_uuid;       // an identifier, with or without a value
struct vs_string_adp; // access to a string of the caller
struct vs_wstrings;   // a list of wide texts
struct vs_any;        // a value of any type
struct vs_tuple;      // a list of such values
struct vs_dib;        // a picture
struct vs_progress;   // a progress window
struct vs_wait;       // a window without progress
struct vs_xml_save_prj;
struct vs_xml_save_2d;
struct vs_xml_save_3d;

// The host's three-state values, for whether an element is checked, selected or valid. Note that true is 0.
enum vs_three_state : uint32_t { vs_state_true = 0, vs_state_false = 1, vs_state_mixed = 2 };

// How a file is opened; only reading is used.
enum vs_open_mode : int32_t { vs_open_for_reading = 1 };

// A layer's table of extra values. Keys are narrow texts; keys and values belong to the layer.
struct vs_table_extra_row {
    const char* key;
    vs_any* value;
};
struct vs_table_extra {
    int32_t count;
    const vs_table_extra_row* rows;
};

// The two functions of a string adapter, called with the `context` it was created with. `assign` copies the
// text, which is borrowed for the call and counts as empty if null; `text` returns the string's current text.
// Neither may throw.
using vs_string_assign = void (*)(void* context, const char16_t* text);
using vs_string_text = const char16_t* (*)(void* context);
