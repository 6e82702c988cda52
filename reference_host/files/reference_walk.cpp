#include "reference_host/files/reference_walk.h"

#include "platform/path_text.h"
#include "reference_host/files/references.h"

namespace vestra::files {
namespace {

// Of a layer on a complex model: elements of a record among its extra values are files, relative to its own.
constexpr std::string_view model_record = "BumpsSettings";
constexpr std::size_t model_files[] = {9, 15, 39, 44};

// Unless the reference is a uuid: then it names a scene of the project.
bool shows_scene_file(const layer& shown) {
    return shown.type == "map_lr3d" || shown.type == "vs_scene_layer_meta_id";
}

class walk {
public:
    explicit walk(const reference_visitor& visitor) : visitor_(visitor) {}

    void visit(const project& all) {
        for (const auto* scenes : {&all.scenes_2d, &all.scenes_3d}) visit(*scenes, "scene");
        visit(all.layouts, "layout");
        for (const auto& sheets : all.plugin_scenes) visit(*sheets, "sheet");
        for (const auto& table : all.tables.members()) visit(*table, "table", *table);
        for (const auto& table : all.tos_tables.members()) tell({"table", table->caption, table->file});
    }

    void visit(const scene& shown, std::string_view kind) {
        tell({kind, shown.caption, shown.source});
        for (const auto& member : shown.members()) visit(*member, "layer");
        if (shown.page) visit(*shown.page, "page");
    }

    void visit(const layer& shown, std::string_view kind) {
        tell({kind, shown.caption, shown.file, shows_scene_file(shown)});
        if (shown.source != shown.file) tell({kind, shown.caption, shown.source});
        if (shown.data) visit(*shown.data, kind, shown);
        for (const extra& row : shown.extras.rows())
            if (row.key == model_record) visit_model(shown, row.value);
        if (shown.legend) visit(*shown.legend, "legend");
    }

private:
    void tell(const held_reference& held) const {
        if (!held.text.empty()) visitor_(held);
    }

    void visit(const scene_collection& scenes, std::string_view kind) {
        for (const auto& member : scenes.members()) visit(*member, kind);
    }

    // Of a table that stands behind a layer, that layer is the owner.
    void visit(const attr_data& table, std::string_view kind, const entity& owner) {
        tell({kind, owner.caption, table.file});
        for (const table_join& join : table.joins) tell({"joined table", owner.caption, join.other_source});
    }

    void visit_model(const layer& owner, const any& value) {
        const auto* record = std::get_if<tuple>(&value.value);
        const wide_view file(owner.file);
        const wide_string folder =
            vs::project_resave::path_head(file.starts_with(u'*') ? file.substr(1) : file);
        for (const std::size_t place : model_files) {
            if (!record || place >= record->elements.size()) continue;
            const wide_string* text = record->elements[place].as_text();
            if (text && !text->empty())
                tell({"model file", owner.caption, resolved_reference(folder, *text)});
        }
    }

    const reference_visitor& visitor_;
};

} // namespace

void visit_references(const project& all, const reference_visitor& visitor) { walk(visitor).visit(all); }

void visit_references(const layer& one, const reference_visitor& visitor) {
    walk(visitor).visit(one, "layer");
}

void visit_references(const scene& one, std::string_view kind, const reference_visitor& visitor) {
    walk(visitor).visit(one, kind);
}

} // namespace vestra::files
