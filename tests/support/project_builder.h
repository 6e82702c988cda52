// A project written by hand, in the order of reading:
//
//     project_builder()
//         .scene_2d(u"Area 1").layer("shp_pln_lr2d", u"Roads", u"C:\\maps\\roads.shp")
//         .table(u"Owners", u"C:\\data\\owners.dbf")
//         .save(u"C:\\prj\\area._vp");
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string_view>

#include "platform/path_text.h"
#include "reference_host/files/files.h"

namespace vs::project_resave {

class project_builder {
public:
    // Each begins a scene, to which the following layers are added.
    project_builder& scene_2d(wide_view caption) { return begin(model.scenes_2d.make_scene(), caption); }
    project_builder& scene_3d(wide_view caption) { return begin(model.scenes_3d.make_scene(), caption); }
    project_builder& layout(wide_view caption) { return begin(model.layouts.make_scene(), caption); }
    // A collection of sheets that a plug-in stores, with one sheet.
    project_builder& sheet(const char* meta_id, wide_view caption, wide_view source) {
        vestra::scene_collection& sheets = model.add_plugin_scenes(meta_id);
        sheets.id = vestra::uuid::random();
        vestra::scene& made = sheets.make_scene();
        made.source = source;
        return begin(made, caption);
    }
    // A layer with a shape file has the table next to it.
    project_builder& layer(const char* type, wide_view caption, wide_view file = {}) {
        vestra::layer& made = scene_->make_layer(type);
        identify(made, caption);
        made.file = file;
        table_ = nullptr;
        if (std::string_view(type).starts_with("shp_")) {
            made.data = std::make_unique<vestra::attr_data>();
            made.data->file = path_replace_extension(file, u"dbf");
            table_ = made.data.get();
        }
        return *this;
    }
    // A layer that refers to other elements by their captions; they can be added later.
    project_builder& compound(wide_view caption, const std::vector<wide_string>& members) {
        layer("prf_compound_lr2d", caption);
        for (const wide_string& member : members) last().members.emplace().push_back(id(member));
        return *this;
    }
    project_builder& frame(wide_view caption, const wide_string& shown) {
        layer("layout_scene_frame", caption);
        last().frame.emplace(*vestra::uuid::parse(id(shown)));
        return *this;
    }
    // The page of the layout, which is not among the layers.
    project_builder& page(wide_view caption, wide_view file) {
        scene_->page = std::make_unique<vestra::layer>(vestra::dimension::flat, "layout_page");
        identify(*scene_->page, caption);
        scene_->page->file = file;
        return *this;
    }
    // A legend of the layout with its signs. Its layer and the scene in it have this caption.
    struct sign {
        const char* type;
        wide_view caption, file;
    };
    project_builder& legend(wide_view caption, const std::vector<sign>& signs) {
        layer("vs_layout_legend_layer_meta_id", caption);
        vestra::layer& made = last();
        made.legend = std::make_unique<vestra::scene>(vestra::dimension::flat);
        vestra::scene* const layout = scene_;
        begin(*made.legend, caption);
        for (const sign& each : signs) layer(each.type, each.caption, each.file);
        scene_ = layout;
        return *this;
    }
    project_builder& table(wide_view caption, wide_view file) {
        table_ = &model.tables.make();
        identify(*table_, caption);
        table_->file = file;
        return *this;
    }
    // Joins to the table, or the table of the layer, that was added last, by the field with the number of the
    // join.
    project_builder& join(const wide_string& other) {
        table_->joins.push_back({other, static_cast<int32_t>(table_->joins.size()), 0});
        return *this;
    }

    // Returns the uuid of the first element with this caption, which can be added later.
    wide_string id(const wide_string& caption) {
        return ids_.try_emplace(caption, vestra::uuid::random()).first->second.text();
    }
    void save(const wide_string& path) {
        const auto error = vestra::files::write_project(path, model);
        EXPECT_FALSE(error) << platform::to_utf8(error->text());
    }
    // Saves only the scene as a scene file.
    void save_scene(const wide_string& path) { EXPECT_FALSE(vestra::files::write_scene(path, *scene_)); }
    // Starts again; an element with the same caption gets the same uuid.
    void clear() {
        for (auto* scenes : {&model.scenes_2d, &model.scenes_3d, &model.layouts}) scenes->clear();
        model.tables.clear();
        named_.clear();
    }
    vestra::layer& last() { return *scene_->members().back(); }

    vestra::project model;

private:
    project_builder& begin(vestra::scene& scene, wide_view caption) {
        identify(scene, caption);
        scene_ = &scene;
        return *this;
    }
    void identify(vestra::entity& made, wide_view caption) {
        made.caption = caption;
        const bool is_first = named_.insert(made.caption).second;
        made.id = is_first ? *vestra::uuid::parse(id(made.caption)) : vestra::uuid::random();
    }

    vestra::scene* scene_ = nullptr;
    vestra::attr_data* table_ = nullptr;
    std::map<wide_string, vestra::uuid> ids_;
    std::set<wide_string> named_;
};

} // namespace vs::project_resave
