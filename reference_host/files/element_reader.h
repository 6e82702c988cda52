// Builds model objects from the elements of one file. The grammar has been checked before; this class reads
// the values, rejects duplicate uuids and resolves references between elements.
#pragma once

#include <memory>
#include <unordered_map>
#include <vector>

#include "reference_host/files/input.h"
#include "reference_host/model/project.h"

namespace vestra::files {

// Use a new reader for each file: uuids are unique in a file, and references are resolved only inside it.
// After the first fault the functions return early and leave objects half filled, so read into fresh objects
// and check the input at the end.
class element_reader {
public:
    // `folder` is the folder of the file, the base of its relative references; it ends with its separator.
    // `source` must outlive the reader.
    element_reader(input& source, wide_string folder) : in_(source), folder_(std::move(folder)) {}

    // Each reads one root element into an object; errors are reported through the input.
    void read_project(pugi::xml_node node, project& out);
    void read_scene(pugi::xml_node node, scene& out);
    std::unique_ptr<layer> read_layer(pugi::xml_node node, dimension kind);
    // Call once, after all other functions: parents and frames may refer to elements later in the file. An
    // unknown parent is a fault; a frame whose scene is missing keeps the uuid and shows nothing.
    void resolve_links();

private:
    // An entity and its element, which messages about a duplicate uuid refer to.
    struct known_entity {
        entity* object;
        pugi::xml_node node;
    };
    // A `parent` attribute, kept until all uuids of the file are known.
    struct parent_link {
        pugi::xml_node node;
        entity* child;
        uuid parent;
    };

    // Reads the attributes that every entity has. Optional ones that are missing keep the values of `out`.
    void read_entity(pugi::xml_node node, entity& out);
    // Makes the entity known by its uuid; a uuid that is already known is a fault. One without a value is
    // ignored.
    void enter_uuid(pugi::xml_node node, entity& object);
    // Reads the attributes of a container and returns its element for the members. Without the element,
    // returns a null node, which has no children.
    pugi::xml_node read_container(pugi::xml_node node, const char* name, entity& out);
    void read_scenes(pugi::xml_node container, scene_collection& out);
    void read_table(pugi::xml_node node, table_data& out);
    void read_joins(pugi::xml_node node, attr_data& out);
    void read_plugin_data(pugi::xml_node node, layer& out);
    void read_extras(pugi::xml_node node, extra_table& out);
    // Reads a value with its type; returns an empty one after a fault.
    any read_any(pugi::xml_node node);
    // Reads a tuple of the given size; only elements with a value are in the file, in ascending order.
    tuple read_tuple(pugi::xml_node node);
    std::vector<style_value> read_values(pugi::xml_node node);
    style_manager read_style(pugi::xml_node node);
    void read_group(pugi::xml_node node, layer_group& out, const scene& owner);
    // Returns the resolved reference in an attribute; empty if it is missing.
    wide_string reference(pugi::xml_node node, const char* name, bool behind_star = false);

    input& in_;
    wide_string folder_;
    // Of the file so far.
    std::unordered_map<uuid, known_entity> known_;
    std::vector<parent_link> parents_;
    std::vector<frame_scene*> frames_;
    // In all tuples so far, for the limit of a file.
    std::uint32_t tuple_elements_ = 0;
};

} // namespace vestra::files
