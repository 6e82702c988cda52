#include "tests/support/references_of.h"

#include "core/paths.h"
#include "platform/text.h"
#include "reference_host/files/files.h"

namespace vs::project_resave {

namespace {

class walk {
public:
    void scene(const vestra::scene& shown) {
        path(shown.caption, shown.source);
        for (const auto& member : shown.members()) layer(*member);
        if (shown.page) layer(*shown.page);
    }
    void table(const wide_string& owner, const vestra::attr_data& data) {
        path(owner, data.file);
        for (const vestra::table_join& join : data.joins) path(owner, join.other_source);
    }
    // What names a service or an element is no path.
    void path(const wide_string& owner, wide_string text) {
        if (text.starts_with(u'*')) text.erase(0, 1);
        if (!path_root(text).empty() || text.starts_with(u"\\")) found.push_back({owner, text});
    }

    std::vector<reference> found;

private:
    void layer(const vestra::layer& shown) {
        path(shown.caption, shown.file);
        path(shown.caption, shown.source);
        if (shown.data) table(shown.caption, *shown.data);
        for (const vestra::extra& extra : shown.extras.rows()) model_files(shown, extra.value);
        if (shown.legend) scene(*shown.legend);
        if (path_extension(shown.file) == u"._sn") scene_file(shown.file);
    }
    // Texts in a tuple are files, relative to that of the layer.
    void model_files(const vestra::layer& owner, const vestra::any& value) {
        const auto* record = std::get_if<vestra::tuple>(&value.value);
        if (!record) return;
        for (const vestra::any& element : record->elements)
            if (const wide_string* text = element.as_text())
                path(owner.caption, path_resolve(owner.file, *text));
    }
    void scene_file(const wide_string& file) {
        vestra::scene shown(vestra::dimension::flat);
        if (!vestra::files::read_scene(file, shown)) scene(shown);
    }
};

} // namespace

std::vector<reference> references_of(const vestra::project& project) {
    walk all;
    for (const auto* scenes : {&project.scenes_2d, &project.scenes_3d, &project.layouts})
        for (const auto& member : scenes->members()) all.scene(*member);
    for (const auto& collection : project.plugin_scenes)
        for (const auto& member : collection->members()) all.scene(*member);
    for (const auto& table : project.tables.members()) all.table(table->caption, *table);
    for (const auto& table : project.tos_tables.members()) all.path(table->caption, table->file);
    return std::move(all.found);
}

namespace {

class outline {
public:
    explicit outline(wide_view folder) : folder_(folder) {}

    void scenes(const vestra::scene_collection& all) {
        for (const auto& scene : all.members()) {
            text += scene->caption + u":";
            if (!scene->source.empty()) path(u" ", scene->source);
            for (const auto& layer : scene->members()) {
                text += u" " + layer->caption;
                if (!layer->file.empty()) path(u"=", layer->file);
                if (layer->data) table(u"+", *layer->data);
            }
            for (uint32_t index = 0; scene->groups && index < scene->groups->count(); ++index)
                text += u" [" + scene->groups->at(index)->caption + u"]";
            text += u"\n";
        }
    }
    void table(wide_view mark, const vestra::attr_data& data) {
        path(mark, data.file);
        for (const vestra::table_join& join : data.joins) path(u">", join.other_source);
    }

    wide_string text;

private:
    void path(wide_view mark, wide_view whole) {
        text += mark;
        text += whole.starts_with(folder_) ? whole.substr(folder_.size()) : whole;
    }
    const wide_view folder_;
};

} // namespace

std::string outline_of(const vestra::project& project, wide_view folder) {
    outline made(folder);
    for (const auto* scenes : {&project.scenes_2d, &project.scenes_3d, &project.layouts})
        made.scenes(*scenes);
    for (const auto& sheets : project.plugin_scenes) made.scenes(*sheets);
    for (const auto& table : project.tables.members()) {
        made.text += table->caption;
        made.table(u"=", *table);
        made.text += u"\n";
    }
    return platform::to_utf8(made.text);
}

} // namespace vs::project_resave
