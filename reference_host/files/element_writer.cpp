// Writes model objects as the elements of a project, scene or layer file.
#include "reference_host/files/element_writer.h"

#include <charconv>
#include <string>
#include <utility>

#include "reference_host/files/grammar.h"
#include "reference_host/files/references.h"
#include "reference_host/files/xml_text.h"

namespace vestra::files {
namespace {

void set(pugi::xml_node node, const char* name, wide_view text) {
    node.append_attribute(name) = xml_value(text).c_str();
}

void set_narrow(pugi::xml_node node, const char* name, std::string_view text) {
    set(node, name, widened(text));
}

// Writes the fewest digits that read back to the same number. The library's own conversion would depend on
// the locale and write 17 digits.
void set_real(pugi::xml_node node, const char* name, double value) {
    char digits[32];
    *std::to_chars(digits, digits + sizeof(digits) - 1, value).ptr = '\0';
    node.append_attribute(name) = digits;
}

} // namespace

void element_writer::write_project(pugi::xml_node node, const project& in) {
    const project fresh; // has the default meta identifiers, which are not written
    pugi::xml_node folders = write_container(node, "folders", in.folders, fresh.folders.meta_id);
    for (const auto& folder : in.folders.members())
        write_entity(folders.append_child("folder"), *folder, folder_meta_id);
    write_scenes(write_container(node, "scenes2d", in.scenes_2d, fresh.scenes_2d.meta_id), in.scenes_2d);
    write_scenes(write_container(node, "scenes3d", in.scenes_3d, fresh.scenes_3d.meta_id), in.scenes_3d);
    pugi::xml_node tables = write_container(node, "tables", in.tables, fresh.tables.meta_id);
    for (const auto& table : in.tables.members()) {
        const pugi::xml_node item = tables.append_child("table");
        write_table(item, *table, attr_data().meta_id);
        write_joins(item, *table);
    }
    pugi::xml_node tos_tables = write_container(node, "tos_tables", in.tos_tables, fresh.tos_tables.meta_id);
    for (const auto& table : in.tos_tables.members())
        write_table(tos_tables.append_child("tos_table"), *table, tos_data().meta_id);
    write_scenes(write_container(node, "layouts", in.layouts, fresh.layouts.meta_id), in.layouts);
    for (const auto& scenes : in.plugin_scenes) {
        // Passing no default writes the meta identifier always; here it is required.
        write_scenes(write_container(node, "plugin_scenes", *scenes, {}), *scenes);
    }
    pugi::xml_node legends = write_container(node, "map_legends", in.map_legends, fresh.map_legends.meta_id);
    for (const auto& legend : in.map_legends.members())
        write_entity(legends.append_child("map_legend"), *legend, map_legend().meta_id);
}

pugi::xml_node element_writer::write_container(pugi::xml_node node, const char* name, const entity_list& in,
                                               std::string_view default_meta_id) {
    const pugi::xml_node container = node.append_child(name);
    write_entity(container, in, default_meta_id);
    return container;
}

void element_writer::write_entity(pugi::xml_node node, const entity& in, std::string_view default_meta_id) {
    // Also without a value: most elements require the attribute.
    set(node, "uuid", in.id.text());
    set(node, "caption", in.caption);
    if (in.meta_id != default_meta_id || default_meta_id.empty()) set_narrow(node, "meta", in.meta_id);
    if (in.validity != three_state::yes)
        set(node, "valid", in.validity == three_state::no ? u"no" : u"mixed");
    // Written at the end, when it is known whether the parent is in this file.
    if (const entity* parent = in.parent.get()) parents_.push_back({node, parent});
    if (in.id.has_value() && !written_.try_emplace(in.id, &in).second)
        refuse(u"two elements have the uuid " + in.id.text());
}

void element_writer::write_scenes(pugi::xml_node container, const scene_collection& in) {
    for (const auto& member : in.members()) write_scene(container.append_child("scene"), *member);
}

void element_writer::write_scene(pugi::xml_node node, const scene& in) {
    write_entity(node, in, scene(in.kind).meta_id);
    write_reference(node, "source", in.source);
    if (in.count() != 0) {
        pugi::xml_node layers = node.append_child("layers");
        for (const auto& member : in.members()) write_layer(layers.append_child("layer"), *member);
    }
    if (in.groups) {
        // By pointer, since searching the list for each leaf would be quadratic.
        std::unordered_map<const layer*, std::uint32_t> places;
        for (std::uint32_t index = 0; index < in.count(); ++index) places[in.at(index)] = index;
        write_group(node.append_child("groups"), *in.groups, places);
    }
    if (in.page) write_layer(node.append_child("page"), *in.page);
}

void element_writer::write_group(pugi::xml_node node, const layer_group& in, const place_of_layer& places) {
    set(node, "caption", in.caption);
    for (std::uint32_t index = 0; index < in.count(); ++index) {
        const layer_group& child = *in.at(index);
        if (child.is_group()) {
            write_group(node.append_child("group"), child, places);
            continue;
        }
        const auto place = places.find(child.member());
        // The model does not prevent a leaf for a layer of another scene.
        if (place == places.end())
            refuse(u"group \"" + in.caption + u"\" holds a layer of another scene");
        else
            node.append_child("leaf").append_attribute("layer") = place->second;
    }
}

void element_writer::write_layer(pugi::xml_node node, const layer& in) {
    set_narrow(node, "type", in.type);
    write_entity(node, in, in.type);
    write_reference(node, "file", in.file, in.meta_id == cutline_meta_id);
    write_reference(node, "source", in.source);
    if (!in.visible) set(node, "visible", u"no");
    if (in.data) {
        // Also for a table next to the file, which a reader would find by itself: it may have joins.
        pugi::xml_node data = node.append_child("attributes");
        set(data, "file", stored(in.data->file));
        write_joins(data, *in.data);
    }
    if (!in.extras.rows().empty()) {
        pugi::xml_node extras = node.append_child("extras");
        for (const extra& row : in.extras.rows()) {
            const pugi::xml_node item = extras.append_child("extra");
            set_narrow(item, "key", row.key);
            write_any(item, row.value);
        }
    }
    if (in.style) write_style(node.append_child("style"), *in.style);
    if (in.styles) {
        pugi::xml_node styles = node.append_child("styles");
        set_narrow(styles, "type", in.styles->type);
        for (const style_manager& style : in.styles->managers)
            write_style(styles.append_child("style"), style);
    }
    write_plugin_data(node, in);
}

void element_writer::write_plugin_data(pugi::xml_node node, const layer& in) {
    if (in.members) {
        pugi::xml_node members = node.append_child("members");
        for (const wide_string& member : *in.members) set(members.append_child("member"), "uuid", member);
    }
    if (in.legend) write_scene(node.append_child("legend"), *in.legend);
    if (in.frame) set(node.append_child("frame"), "scene", in.frame->id.text());
}

void element_writer::write_table(pugi::xml_node node, const table_data& in,
                                 std::string_view default_meta_id) {
    write_entity(node, in, default_meta_id);
    set(node, "file", stored(in.file));
}

void element_writer::write_joins(pugi::xml_node node, const attr_data& in) {
    for (const table_join& join : in.joins) {
        pugi::xml_node item = node.append_child("join");
        set(item, "source", stored(join.other_source));
        item.append_attribute("base_field") = join.base_field;
        item.append_attribute("other_field") = join.other_field;
    }
}

void element_writer::write_any(pugi::xml_node node, const any& in) {
    static constexpr const char* names[] = {"empty", "tuple", "int", "double", "bool", "narrow", "text"};
    node.append_attribute("type") = names[in.type()];
    if (const auto* elements = std::get_if<tuple>(&in.value)) write_tuple(node, *elements);
    if (const auto* value = std::get_if<std::int32_t>(&in.value)) node.append_attribute("value") = *value;
    if (const auto* value = std::get_if<double>(&in.value)) set_real(node, "value", *value);
    if (const auto* value = std::get_if<bool>(&in.value)) set(node, "value", *value ? u"yes" : u"no");
    if (const auto* value = std::get_if<std::string>(&in.value)) set_narrow(node, "value", *value);
    if (const auto* value = std::get_if<wide_string>(&in.value)) set(node, "value", *value);
}

void element_writer::write_tuple(pugi::xml_node node, const tuple& in) {
    node.append_attribute("size") = static_cast<std::uint32_t>(in.elements.size());
    // Counted like the reader does: also elements that are not written.
    tuple_elements_ += in.elements.size();
    if (tuple_elements_ > most_tuple_elements)
        refuse(u"the tuples have more than 16777216 elements in total");
    for (std::uint32_t index = 0; index < in.elements.size(); ++index) {
        // A tuple of any size costs only its values.
        if (in.elements[index].type() == 0) continue;
        pugi::xml_node item = node.append_child("item");
        item.append_attribute("index") = index;
        write_any(item, in.elements[index]);
    }
}

void element_writer::write_style(pugi::xml_node node, const style_manager& in) {
    set_narrow(node, "type", in.type);
    write_values(node, in.values);
}

void element_writer::write_values(pugi::xml_node node, const std::vector<style_value>& in) {
    for (const style_value& value : in) {
        const pugi::xml_node item = node.append_child("value");
        set(item, "name", value.name);
        if (!value.text.empty()) set(item, "text", value.text);
        write_values(item, value.values);
    }
}

wide_string element_writer::stored(wide_view reference, bool behind_star) const {
    return stored_reference(folder_, reference, behind_star, near_);
}

void element_writer::write_reference(pugi::xml_node node, const char* name, wide_view reference,
                                     bool behind_star) {
    // A missing attribute and an empty text are the same reference.
    if (!reference.empty()) set(node, name, stored(reference, behind_star));
}

void element_writer::write_parents() {
    for (const parent_link& link : parents_) {
        const auto found = written_.find(link.parent->id);
        if (found != written_.end() && found->second == link.parent)
            set(link.node, "parent", link.parent->id.text());
    }
}

void element_writer::refuse(wide_string reason) {
    if (!refused_) refused_ = std::move(reason);
}

} // namespace vestra::files
