// Converts references between their stored and absolute forms, and visits all references of a project.
#include "reference_host/files/references.h"

#include <algorithm>
#include <utility>

#include "platform/path_text.h"
#include "platform/system.h"
#include "platform/text.h"

namespace vestra::files {

namespace {

using namespace vs::project_resave;

constexpr char16_t verbatim_mark = u'=';

// A colon belongs to a drive, a link or a connection; the other characters begin a full path or a marked
// text.
bool looks_relative(wide_view stored) {
    return !stored.empty() && wide_view(u"\\/*=").find(stored.front()) == wide_view::npos &&
           stored.find(u':') == wide_view::npos;
}

wide_string with_backslashes(wide_view path) {
    wide_string text(path);
    std::replace(text.begin(), text.end(), u'/', u'\\');
    return text;
}

bool is_below(wide_view folder, wide_view path) {
    if (folder.empty() || path.size() <= folder.size()) return false;
    const wide_string head = with_backslashes(path.substr(0, folder.size()));
    return platform::compare_no_case(head, with_backslashes(folder)) == 0;
}

// The separator at the end is skipped, so the result ends with one, too.
wide_string folder_above(wide_view folder) { return path_head(folder.substr(0, folder.size() - 1)); }

wide_string joined(wide_view folder, wide_view relative) {
    wide_string path(folder);
    // ".." never leads above the drive or share.
    while (!relative.empty()) {
        const std::size_t end = std::min(relative.find_first_of(path_separators), relative.size());
        const wide_view name = relative.substr(0, end);
        const wide_view piece = relative.substr(0, end + 1);
        if (name == u"..") {
            if (path.size() > path_fixed_length(path)) path = folder_above(path);
        } else if (name != u".") {
            path += piece;
        }
        relative.remove_prefix(piece.size());
    }
    return path;
}

// Returns the reference relative to the nearest common parent folder; empty if there is none.
wide_string climbing_reference(wide_view folder, wide_view reference) {
    const std::size_t root = path_fixed_length(folder);
    wide_string up = u"..\\";
    // The nearest folder first, so that the reference climbs as little as possible. The drive or share alone
    // does not count: it would tie together what was never moved together.
    for (wide_string above(folder); above.size() > root; up += u"..\\") {
        above = folder_above(above);
        if (above.size() <= root || !is_below(above, reference)) continue;
        const wide_view rest = reference.substr(above.size());
        // Only if it resolves to the same path again.
        return joined(folder, up + wide_string(rest)) == above + wide_string(rest) ? up + wide_string(rest)
                                                                                   : wide_string();
    }
    return {};
}

} // namespace

wide_string stored_reference(wide_view folder, wide_view reference, bool behind_star, nearness near) {
    if (behind_star && reference.starts_with(u'*'))
        return u"*" + stored_reference(folder, reference.substr(1), false, near);
    if (is_below(folder, reference)) {
        const wide_view rest = reference.substr(folder.size());
        // Only if it resolves to the same path again; "sub\..\..\x", for example, is not below the folder.
        if (looks_relative(rest) && joined(folder, rest) == wide_string(folder) + wide_string(rest))
            return wide_string(rest);
    } else if (near == nearness::beside && !looks_relative(reference)) {
        wide_string climbing = climbing_reference(folder, reference);
        if (!climbing.empty()) return climbing;
    }
    // What is stored as it is must not be taken for a relative path or a marked text when it is read.
    if (looks_relative(reference) || reference.starts_with(verbatim_mark))
        return verbatim_mark + wide_string(reference);
    return wide_string(reference);
}

wide_string resolved_reference(wide_view folder, wide_view stored, bool behind_star) {
    if (behind_star && stored.starts_with(u'*')) return u"*" + resolved_reference(folder, stored.substr(1));
    if (stored.starts_with(verbatim_mark)) return wide_string(stored.substr(1));
    return looks_relative(stored) ? joined(folder, stored) : wide_string(stored);
}

namespace {

// Layers on a complex model: some elements of this record in their extra values are files, relative to the
// layer's file.
constexpr std::string_view model_record = "BumpsSettings";
constexpr std::size_t model_files[] = {9, 15, 39, 44};

// Unless the reference is a uuid, which names a scene of the project.
bool shows_scene_file(const layer& shown) {
    return shown.type == "map_lr3d" || shown.type == "vs_scene_layer_meta_id";
}

class walk {
public:
    explicit walk(const reference_change& change) : change_(change) {}

    void visit(project& all) {
        for (auto* scenes : {&all.scenes_2d, &all.scenes_3d}) visit(*scenes, "scene");
        visit(all.layouts, "layout");
        for (const auto& sheets : all.plugin_scenes) visit(*sheets, "sheet");
        const in_list tables(*this, all.tables);
        for (const auto& table : all.tables.members()) visit(*table, "table", *table);
        const in_list tos_tables(*this, all.tos_tables);
        for (const auto& table : all.tos_tables.members()) tell("table", *table, table->file);
    }

    void visit(scene& shown, std::string_view kind) {
        tell(kind, shown, shown.source);
        const in_list members(*this, shown);
        for (const auto& member : shown.members()) visit(*member, "layer");
        if (shown.page) visit(*shown.page, "page");
    }

    void visit(layer& shown, std::string_view kind) {
        // Layers that have the same text in both places are visited once, and both places get the new
        // reference.
        const bool is_source = shown.source == shown.file;
        // Before the table is visited, so that the table of the new file counts.
        if (tell(kind, shown, shown.file, shows_scene_file(shown))) take_table_beside(shown);
        if (!is_source) tell(kind, shown, shown.source);
        if (is_source && shown.source != shown.file) shown.source = shown.file;
        if (shown.data) visit(*shown.data, kind, shown);
        for (extra& row : shown.extras.rows())
            if (row.key == model_record) visit_model(shown, row.value);
        if (shown.legend) visit(*shown.legend, "legend");
    }

private:
    // Sets the current list to `list` for the lifetime of the object.
    class in_list {
    public:
        in_list(walk& all, const entity& list) : all_(all), before_(std::exchange(all.list_, list.caption)) {}
        ~in_list() { all_.list_ = before_; }
        in_list(const in_list&) = delete;
        in_list& operator=(const in_list&) = delete;

    private:
        walk& all_;
        wide_view before_;
    };

    // Passes the reference to the caller's function. Returns true if it changed the reference.
    bool tell(std::string_view kind, const entity& holder, wide_string& text, bool is_scene = false) const {
        if (text.empty()) return false;
        wide_string changed = change_({kind, &holder, list_, text, is_scene});
        if (changed.empty()) return false;
        text = std::move(changed);
        return true;
    }

    void visit(scene_collection& scenes, std::string_view kind) {
        const in_list members(*this, scenes);
        for (const auto& member : scenes.members()) visit(*member, kind);
    }

    // For the table of a layer, `owner` is the layer.
    void visit(attr_data& table, std::string_view kind, const entity& owner) {
        tell(kind, owner, table.file);
        for (table_join& join : table.joins) tell("joined table", owner, join.other_source);
    }

    void visit_model(const layer& owner, any& value) {
        auto* record = value.as_tuple();
        const wide_view file(owner.file);
        const wide_string folder =
            vs::project_resave::path_head(file.starts_with(u'*') ? file.substr(1) : file);
        for (const std::size_t place : model_files) {
            if (!record || place >= record->elements.size()) continue;
            auto* text = std::get_if<wide_string>(&record->elements[place].value);
            if (!text || text->empty()) continue;
            // Relative to the layer's file, and the file was visited before: it is the new one.
            const wide_string whole = resolved_reference(folder, *text);
            wide_string changed = whole;
            tell("model file", owner, changed);
            // A reference that is kept also keeps its relative form.
            if (changed != whole) *text = std::move(changed);
        }
    }

    const reference_change& change_;
    wide_view list_; // caption of the current list
};

// Visits without changing anything, so it also works on const objects.
template <class Model, class... Kind>
void only_visit(const Model& model, const reference_visitor& visitor, Kind... kind) {
    const reference_change keep = [&](const held_reference& held) {
        visitor(held);
        return wide_string();
    };
    walk(keep).visit(const_cast<Model&>(model), kind...);
}

} // namespace

void take_table_beside(layer& shown) {
    if (shown.data || !shown.is_shape() || path_is_relative(shown.file)) return; // empty, or no path
    const wide_string table = table_beside(shown.file);
    if (platform::current_system().kind_of(table) != platform::entry_kind::file) return;
    shown.data = std::make_unique<attr_data>();
    shown.data->file = table;
}

void visit_references(const project& all, const reference_visitor& visitor) { only_visit(all, visitor); }

void visit_references(const layer& one, const reference_visitor& visitor) {
    only_visit(one, visitor, "layer");
}

void visit_references(const scene& one, std::string_view kind, const reference_visitor& visitor) {
    only_visit(one, visitor, kind);
}

void change_references(project& all, const reference_change& change) { walk(change).visit(all); }

void change_references(scene& one, const reference_change& change) { walk(change).visit(one, "scene"); }

} // namespace vestra::files
