// Reads the values of the elements of a project, scene or layer file into model objects.
#include "reference_host/files/element_reader.h"

#include <string_view>
#include <unordered_set>
#include <utility>

#include "platform/text.h"
#include "reference_host/files/grammar.h"
#include "reference_host/files/references.h"

namespace vestra::files {
namespace {

using namespace vs::project_resave;
using platform::from_utf8;

wide_string decimal(std::size_t number) { return from_utf8(std::to_string(number)); }

} // namespace

void element_reader::read_project(pugi::xml_node node, project& out) {
    for (const pugi::xml_node item : read_container(node, "folders", out.folders))
        read_entity(item, out.folders.make(folder_meta_id));
    read_scenes(read_container(node, "scenes2d", out.scenes_2d), out.scenes_2d);
    read_scenes(read_container(node, "scenes3d", out.scenes_3d), out.scenes_3d);
    for (const pugi::xml_node item : read_container(node, "tables", out.tables)) {
        attr_data& table = out.tables.make();
        read_table(item, table);
        read_joins(item, table);
    }
    for (const pugi::xml_node item : read_container(node, "tos_tables", out.tos_tables))
        read_table(item, out.tos_tables.make());
    read_scenes(read_container(node, "layouts", out.layouts), out.layouts);
    for (const pugi::xml_node item : node.children("plugin_scenes")) {
        scene_collection& scenes = out.add_plugin_scenes({});
        read_entity(item, scenes);
        read_scenes(item, scenes);
    }
    for (const pugi::xml_node item : read_container(node, "map_legends", out.map_legends))
        read_entity(item, out.map_legends.make());
}

void element_reader::read_entity(pugi::xml_node node, entity& out) {
    // A container may lack uuid, caption and meta identifier; then it keeps those it was created with.
    if (node.attribute("uuid")) out.id = in_.id(node, "uuid");
    out.caption = in_.text(node, "caption", out.caption);
    out.meta_id = in_.narrow(node, "meta", out.meta_id);
    out.validity = in_.state(node, "valid");
    if (node.attribute("parent")) parents_.push_back({node, &out, in_.id(node, "parent")});
    enter_uuid(node, out);
}

void element_reader::enter_uuid(pugi::xml_node node, entity& object) {
    if (!object.id.has_value()) return;
    // Also for two elements of different kinds: a uuid alone identifies an element.
    const auto [found, is_new] = known_.try_emplace(object.id, known_entity{&object, node});
    if (is_new) return;
    in_.refuse(node, u"uuid " + object.id.text() + u" is already that of element <" +
                         from_utf8(found->second.node.name()) + u"> in line " +
                         decimal(in_.line_of(found->second.node)));
}

// A container without an element is empty and keeps the uuid that the project's constructor gave it.
pugi::xml_node element_reader::read_container(pugi::xml_node node, const char* name, entity& out) {
    const pugi::xml_node container = node.child(name);
    if (container)
        read_entity(container, out);
    else
        enter_uuid(node, out);
    return container;
}

void element_reader::read_scenes(pugi::xml_node container, scene_collection& out) {
    for (const pugi::xml_node item : container) {
        // A large file with a fault need not be read to its end.
        if (in_.failed()) return;
        read_scene(item, out.make_scene());
    }
}

void element_reader::read_scene(pugi::xml_node node, scene& out) {
    read_entity(node, out);
    out.source = reference(node, "source");
    for (const pugi::xml_node item : node.child("layers")) {
        if (in_.failed()) return;
        out.add(read_layer(item, out.kind));
    }
    // After the layers, which the leaves refer to by their indexes.
    if (const pugi::xml_node groups = node.child("groups")) read_group(groups, out.make_groups(), out);
    if (const pugi::xml_node page = node.child("page")) out.page = read_layer(page, out.kind);
}

void element_reader::read_group(pugi::xml_node node, layer_group& out, const scene& owner) {
    out.caption = in_.text(node, "caption");
    for (const pugi::xml_node item : node) {
        if (in_.failed()) return;
        if (std::string_view(item.name()) == "group") {
            read_group(item, out.add_group({}), owner);
            continue;
        }
        layer* member = owner.at(in_.count(item, "layer"));
        if (!member)
            in_.refuse(item, u"layer index " + decimal(in_.count(item, "layer")) +
                                 u" is out of range: the scene has " + decimal(owner.count()) + u" layers");
        // A second leaf would silently remove the first one.
        else if (member->is_grouped())
            in_.refuse_value(item, "layer", u"a layer that is in no other group");
        else
            out.add_layer(*member);
    }
}

std::unique_ptr<layer> element_reader::read_layer(pugi::xml_node node, dimension kind) {
    auto out = std::make_unique<layer>(kind, in_.narrow(node, "type"));
    read_entity(node, *out);
    out->file = reference(node, "file", out->meta_id == cutline_meta_id);
    out->source = reference(node, "source");
    out->visible = in_.flag(node, "visible", true);
    if (const pugi::xml_node data = node.child("attributes")) {
        out->data = std::make_unique<attr_data>();
        out->data->file = reference(data, "file");
        read_joins(data, *out->data);
    } else {
        // Projects need not store the table that belongs to a shape file.
        take_table_beside(*out);
    }
    if (const pugi::xml_node extras = node.child("extras")) read_extras(extras, out->extras);
    if (const pugi::xml_node style = node.child("style"))
        out->style = std::make_unique<style_manager>(read_style(style));
    if (const pugi::xml_node styles = node.child("styles")) {
        out->styles = std::make_unique<style_manager_list>(in_.narrow(styles, "type"));
        for (const pugi::xml_node item : styles) out->styles->managers.push_back(read_style(item));
    }
    read_plugin_data(node, *out);
    return out;
}

void element_reader::read_plugin_data(pugi::xml_node node, layer& out) {
    if (const pugi::xml_node members = node.child("members")) {
        out.members.emplace();
        for (const pugi::xml_node item : members) out.members->push_back(in_.text(item, "uuid"));
    }
    if (const pugi::xml_node legend = node.child("legend")) {
        out.legend = std::make_unique<scene>(dimension::flat);
        read_scene(legend, *out.legend);
    }
    if (const pugi::xml_node frame = node.child("frame"))
        frames_.push_back(&out.frame.emplace(in_.id(frame, "scene")));
}

void element_reader::read_table(pugi::xml_node node, table_data& out) {
    read_entity(node, out);
    out.file = reference(node, "file");
}

void element_reader::read_joins(pugi::xml_node node, attr_data& out) {
    for (const pugi::xml_node item : node.children("join"))
        out.joins.push_back(
            {reference(item, "source"), in_.whole(item, "base_field"), in_.whole(item, "other_field")});
}

void element_reader::read_extras(pugi::xml_node node, extra_table& out) {
    // The table's own look-up is linear, which many rows would make quadratic.
    std::unordered_set<std::string> keys;
    for (const pugi::xml_node item : node) {
        if (in_.failed()) return;
        std::string key = in_.narrow(item, "key");
        if (!keys.insert(key).second) in_.refuse_value(item, "key", u"a new key");
        out.rows().push_back({std::move(key), read_any(item)});
    }
}

any element_reader::read_any(pugi::xml_node node) {
    const std::string_view type = node.attribute("type").value();
    const bool is_tuple = type == "tuple";
    const bool has_value = !is_tuple && type != "empty";
    // The grammar knows which attributes an element may have, but not for which types they apply.
    const auto misplaced = [&](const char* name, bool wanted) {
        if (wanted == !node.attribute(name).empty()) return false;
        in_.refuse(node, u"element <" + from_utf8(node.name()) + u"> of type " + from_utf8(type) +
                             (wanted ? u" lacks attribute \"" : u" cannot have attribute \"") +
                             from_utf8(name) + u"\"");
        return true;
    };
    if (type != "int" && type != "double" && type != "bool" && type != "narrow" && type != "text" &&
        has_value) {
        in_.refuse_value(node, "type", u"empty, tuple, int, double, bool, narrow or text");
        return {};
    }
    if (misplaced("value", has_value) || misplaced("size", is_tuple)) return {};
    if (is_tuple) return any(read_tuple(node));
    if (node.first_child()) in_.refuse(node.first_child(), u"an item outside a tuple");
    if (type == "int") return any(in_.whole(node, "value"));
    if (type == "double") return any(in_.real(node, "value"));
    if (type == "bool") return any(in_.flag(node, "value", false));
    if (type == "narrow") return any(in_.narrow(node, "value"));
    return has_value ? any(in_.text(node, "value")) : any();
}

tuple element_reader::read_tuple(pugi::xml_node node) {
    tuple out;
    const std::uint32_t size = in_.count(node, "size");
    // Compared in this form because the sum of both could overflow.
    if (size > most_tuple_elements - tuple_elements_) {
        in_.refuse_value(node, "size", u"within the 16777216 elements that all tuples of a file may have");
        return out;
    }
    tuple_elements_ += size;
    out.elements.resize(size);
    std::uint32_t next = 0;
    for (const pugi::xml_node item : node) {
        if (in_.failed()) break;
        const std::uint32_t index = in_.count(item, "index");
        if (index < next || index >= size) {
            in_.refuse_value(item, "index", u"an ascending number below the size");
            break;
        }
        // Empty elements are not in the file, so the indexes may have gaps.
        out.elements[index] = read_any(item);
        next = index + 1;
    }
    return out;
}

style_manager element_reader::read_style(pugi::xml_node node) {
    style_manager out(in_.narrow(node, "type"));
    out.values = read_values(node);
    return out;
}

std::vector<style_value> element_reader::read_values(pugi::xml_node node) {
    std::vector<style_value> values;
    for (const pugi::xml_node item : node)
        values.push_back({in_.text(item, "name"), in_.text(item, "text"), read_values(item)});
    return values;
}

wide_string element_reader::reference(pugi::xml_node node, const char* name, bool behind_star) {
    return resolved_reference(folder_, in_.text(node, name), behind_star);
}

void element_reader::resolve_links() {
    if (in_.failed()) return;
    // Only here, because a parent can be later in the file than its child.
    for (const parent_link& link : parents_) {
        const auto found = known_.find(link.parent);
        if (found == known_.end())
            return in_.refuse_value(link.node, "parent", u"the uuid of an element of this file");
        link.child->parent = entity_link(found->second.object);
    }
    for (frame_scene* frame : frames_) {
        const auto found = known_.find(frame->id);
        // A frame may refer to a scene that is not in this file; it keeps the uuid.
        if (found == known_.end()) continue;
        if (auto* shown = dynamic_cast<scene*>(found->second.object)) frame->bind(*shown);
    }
}

} // namespace vestra::files
