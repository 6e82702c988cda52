// Writes model objects as the elements of one file, in the form that element_reader reads. Attributes equal
// to their default are omitted. The first reason why the file could not be read back is kept in `refused`.
#pragma once

#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

#include <pugixml.hpp>

#include "reference_host/files/references.h"
#include "reference_host/model/project.h"

namespace vestra::files {

// Use a new writer for each file. Nothing is written to the disk here. The model is not checked in advance; a
// problem is found when the element with it is written, and the rest is still written.
class element_writer {
public:
    // `folder` is the folder of the file and the base of its relative references; `near` says which ones are
    // stored relative.
    element_writer(wide_string folder, nearness near) : folder_(std::move(folder)), near_(near) {}

    // Each writes one object into its root element.
    void write_project(pugi::xml_node node, const project& in);
    void write_scene(pugi::xml_node node, const scene& in);
    void write_layer(pugi::xml_node node, const layer& in);
    // Call once, after all other functions: a parent is written only if it is in the same file, since a
    // reader rejects one that is not.
    void write_parents();

    // Returns the reason if the result could not be read back; nothing otherwise.
    const std::optional<wide_string>& refused() const { return refused_; }

private:
    using place_of_layer = std::unordered_map<const layer*, std::uint32_t>; // in the scene's own list
    // A parent, written once it is known whether it is in the same file.
    struct parent_link {
        pugi::xml_node node;
        const entity* parent;
    };

    // Writes the attributes of an entity. A meta identifier equal to the default one is omitted; with an
    // empty default it is always written.
    void write_entity(pugi::xml_node node, const entity& in, std::string_view default_meta_id);
    // Appends the element of a container, without its members, and returns it.
    pugi::xml_node write_container(pugi::xml_node node, const char* name, const entity_list& in,
                                   std::string_view default_meta_id);
    void write_scenes(pugi::xml_node container, const scene_collection& in);
    void write_table(pugi::xml_node node, const table_data& in, std::string_view default_meta_id);
    void write_joins(pugi::xml_node node, const attr_data& in);
    void write_plugin_data(pugi::xml_node node, const layer& in);
    void write_any(pugi::xml_node node, const any& in);
    void write_tuple(pugi::xml_node node, const tuple& in);
    void write_style(pugi::xml_node node, const style_manager& in);
    void write_values(pugi::xml_node node, const std::vector<style_value>& in);
    // Writes a group with its nodes. A leaf of another scene is refused, since its place could not be
    // written.
    void write_group(pugi::xml_node node, const layer_group& in, const place_of_layer& places);
    // Returns the form of a reference in this file (references.h).
    wide_string stored(wide_view reference, bool behind_star = false) const;
    // Writes a reference unless it is empty.
    void write_reference(pugi::xml_node node, const char* name, wide_view reference,
                         bool behind_star = false);
    // Keeps the reason unless there is one already.
    void refuse(wide_string reason);

    wide_string folder_;
    nearness near_;
    // The entities with a uuid that are in the file.
    std::unordered_map<uuid, const entity*> written_;
    std::vector<parent_link> parents_;
    std::size_t tuple_elements_ = 0;
    std::optional<wide_string> refused_;
};

} // namespace vestra::files
