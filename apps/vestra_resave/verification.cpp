// Checks the references and data sets of a project, its manifest and its copies.
#include "apps/vestra_resave/verification.h"

#include <algorithm>
#include <deque>
#include <unordered_set>

#include "apps/vestra_resave/data_set_files.h"
#include "apps/vestra_resave/elements.h"
#include "apps/vestra_resave/resave_report.h"
#include "apps/vestra_resave/words.h"
#include "operations/project_context.h"
#include "platform/path_text.h"
#include "platform/system.h"
#include "platform/text.h"
#include "reference_host/api/handles.h"
#include "reference_host/files/files.h"
#include "reference_host/files/references.h"

namespace vestra::command {

using namespace vs::project_resave;
using files::held_reference;

namespace {

struct file_kind {
    wide_view extension;
    bool is_layer;
    dimension dimensions;
};
// The files of the host that contain references.
constexpr file_kind file_kinds[] = {{u"._sn", false, dimension::flat},
                                    {u"._sc", false, dimension::solid},
                                    {u"._lr", true, dimension::flat},
                                    {u"._lrd", true, dimension::solid}};

const file_kind* kind_of(const wide_string& path) {
    const wide_string extension = path_extension(path);
    const auto found = std::ranges::find_if(file_kinds, [&](const file_kind& kind) {
        return platform::compare_no_case(extension, kind.extension) == 0;
    });
    return found == std::end(file_kinds) ? nullptr : found;
}

// The file that could not be read holds the references, so it is reported in place of an element.
problem unreadable(const char* what, const wide_string& path, const wide_string& reason) {
    return {own_kind::unreadable, {{}, path_file_name(path), {}}, path, {}, reason, what, path};
}

wide_string reason_of(const files::file_error& fault) {
    return fault.line == 0 ? fault.reason
                           : u"line " + decimal(static_cast<uint32_t>(fault.line)) + u": " + fault.reason;
}

// The project folder as it would be on another disk: at the same depth, under names that no folder has here.
// A reference that still resolves into it does not depend on the project's location. The depth must be the
// same, because a reference with ".." would otherwise lead to another place than it does here.
class other_place {
public:
    // `folder` ends with a separator. If `moved` is false, the place is the folder itself.
    other_place(const wide_string& folder, bool moved) : folder_(folder), place_(folder) {
        if (!moved) return;
        const size_t fixed = path_fixed_length(folder);
        place_.resize(fixed);
        for (const wide_string& name : path_split(wide_view(folder).substr(fixed), path_separators, true))
            place_ += name + mark + u'\\';
        // A project at the top of a drive: without a new name it would be where it is.
        if (place_.size() == fixed) place_ += wide_string{mark, u'\\'};
    }

    const wide_string& folder() const { return place_; }
    // Returns the moved path of a folder inside the project folder.
    wide_string there(const wide_string& below) const {
        const wide_string way = path_relative(folder_, below);
        return way.empty() ? place_ : path_with_separator(place_ + way);
    }
    // Returns the actual path for a moved one.
    wide_string here(const wide_string& path) const {
        // Outside the folder, a path can still have some of the new names, namely those of its parents.
        if (path.starts_with(place_)) return folder_ + path.substr(place_.size());
        wide_string text = path;
        std::erase(text, mark);
        return text;
    }

private:
    static constexpr char16_t mark = u'\uFFFE'; // not in any name
    wide_string folder_, place_;
};

const wide_string depends_on_place =
    u"it would not be found if the project folder were moved to another disk";

class verifier {
public:
    verifier(const verify_settings& settings, const std::function<bool()>& is_stopped, verification& found)
        : file_(found.project), home_(path_head(file_)), below_(path_key(home_) + u'\\'), walls_(home_),
          place_(home_, settings.elsewhere), below_place_(path_key(place_.folder()) + u'\\'),
          settings_(settings), is_stopped_(is_stopped), found_(found) {}

    void run(project_context& context, std::span<const wide_string> further) {
        project read_there;
        // Read again with another folder, because the loaded project has resolved its references already. If
        // that fails now, those are used.
        if (settings_.elsewhere && !files::read_project(file_, read_there, place_.folder()))
            files::visit_references(read_there, visitor_);
        else
            files::visit_references(*api::to_model(context.project_handle()), visitor_);
        for (const element& each : kept_by_services(context)) visit(each);
        for (const element& each : files_of_services(context)) visit(each);
        for (const wide_string& path : further)
            if (kind_of(path)) add_file(path);
        // Each file can add further ones, as a scene can show the scene files of maps.
        for (; !files_.empty() && !is_at_end(); files_.pop_front()) visit_file(files_.front());
    }

private:
    struct holder {
        std::string kind;
        element_name element;
    };

    // After a stop the rest is skipped.
    bool is_at_end() { return found_.stopped = found_.stopped || is_stopped_(); }

    void visit(const element& each, const wide_string& list = {}) {
        // How a bundle stores its paths is unknown, so these count as independent of the location.
        check({each.kind, {each.uuid, each.caption, list}}, path_in(each.file), true, false);
        for (const element& member : each.children) visit(member, each.caption);
    }

    void add_file(const wide_string& path) {
        if (seen_.insert(path_key(path)).second) files_.push_back(path);
    }

    // A file that a map layer shows can have any name; it is a 2D scene.
    void visit_file(const wide_string& path) {
        file_ = path;
        const file_kind* known = kind_of(path);
        const dimension kind = known ? known->dimensions : dimension::flat;
        const wide_string head = path_head(path);
        const wide_string folder = is_below(path) ? place_.there(head) : head;
        std::optional<files::file_error> fault;
        if (known && known->is_layer) {
            std::unique_ptr<layer> one;
            fault = files::read_layer(path, kind, one, folder);
            if (!fault) files::visit_references(*one, visitor_);
        } else {
            scene one(kind);
            fault = files::read_scene(path, one, folder);
            if (!fault) files::visit_references(one, "scene", visitor_);
        }
        if (fault) found_.astray.push_back(unreadable("file", path, reason_of(*fault)));
    }

    void check(const held_reference& held) {
        const entity& owner = *held.holder;
        std::optional<wide_string> path = path_in(held.text);
        const bool stays_below = path && path_key(*path).starts_with(below_place_);
        if (path) path = place_.here(*path);
        check({std::string(held.kind), {owner.id.text(), owner.caption, wide_string(held.list)}}, path,
              stays_below, held.is_scene);
    }

    // `stays_below`: the path does not depend on the project's location.
    void check(const holder& who, const std::optional<wide_string>& path, bool stays_below, bool is_scene) {
        if (!path || is_at_end()) return;
        ++found_.references;
        // A scene file is read even if it is outside, for the references in it.
        const bool exists = exists_at(*path);
        if (is_scene && exists) add_file(*path);
        if (!report(who, *path, exists)) return;
        if (!stays_below || is_bound(*path)) add(own_kind::reference_outside, who, *path, depends_on_place);
        // Scene and layer files are no data sets; they are read on their own.
        if (!is_scene && !kind_of(*path)) check_data_set(who, *path);
    }

    // Returns true if the file exists inside the project folder; otherwise reports it.
    bool report(const holder& who, const wide_string& path, bool exists) {
        const bool is_linked = exists && is_below(path) && walls_.leads_out(path);
        const bool is_outside = !is_below(path) || is_linked;
        if (!is_outside && exists) return true;
        const char* const one = exists ? own_kind::reference_outside : own_kind::reference_missing;
        add(is_outside && !exists ? own_kind::reference_outside_and_missing : one, who, path,
            is_linked ? u"a link points there" : u"");
        return false;
    }

    // Each data set is checked once, even if several elements show it.
    void check_data_set(const holder& who, const wide_string& path) {
        if (!data_sets_.insert(path_key(path)).second) return;
        const data_set_files needs = files_of_data_set(path);
        if (needs.is_empty) add(own_kind::reference_empty, who, path, {});
        if (!needs.unread.empty()) found_.astray.push_back(unreadable("file", path, needs.unread));
        // The references of the data set are in its own file, not in the one being checked.
        const wide_string before = std::exchange(file_, path);
        std::vector<wide_string> there;
        for (const auto& each : needs.files) {
            if (!report(who, each.path, exists_at(each.path))) continue;
            there.push_back(each.path);
            if ((each.is_whole && settings_.elsewhere) || is_bound(each.path))
                add(own_kind::reference_outside, who, each.path, depends_on_place);
        }
        file_ = before;
        if (settings_.on_data_set) settings_.on_data_set(who.element, path, there);
    }

    bool is_bound(const wide_string& path) const { return settings_.elsewhere && walls_.is_bound(path); }

    void add(const char* kind, const holder& who, const wide_string& path, const wide_string& reason) {
        found_.astray.push_back({kind, who.element, path, {}, reason, who.kind, file_});
    }

    bool is_below(const wide_string& path) const { return path_key(path).starts_with(below_); }
    static bool exists_at(const wide_string& path) {
        return platform::current_system().kind_of(path) != platform::entry_kind::none;
    }

    wide_string file_; // the file being checked
    const wide_string home_, below_;
    const folder_walls walls_; // of home_
    const other_place place_;
    const wide_string below_place_;
    const verify_settings& settings_;
    const std::function<bool()>& is_stopped_;
    verification& found_;
    const files::reference_visitor visitor_ = [this](const held_reference& held) { check(held); };
    std::deque<wide_string> files_;                    // scene and layer files still to be read
    std::unordered_set<wide_string> seen_, data_sets_; // path keys: all of them; those checked
};

} // namespace

void verify(project_context& context, std::span<const wide_string> further, const verify_settings& settings,
            const std::function<bool()>& is_stopped, verification& found) {
    found.project = context.placement.source_project_path;
    verifier(settings, is_stopped, found).run(context, further);
}

std::vector<wide_string> files_beside(const project_context& context, verification& found) {
    std::vector<wide_string> all;
    std::vector<platform::unread_folder> unread;
    const wide_string folder = path_head(context.placement.source_project_path);
    for (auto& entry : platform::list_tree(platform::current_system(), folder, &unread))
        if (!entry.is_folder) all.push_back(std::move(entry.path));
    for (const auto& [path, reason] : unread)
        found.astray.push_back(unreadable("folder", path, reason.text()));
    return all;
}

namespace {

// Returns "outside and missing" for "reference_outside_and_missing".
std::string word_of(std::string kind) {
    constexpr std::string_view start = "reference_";
    if (kind.starts_with(start)) kind.erase(0, start.size());
    std::ranges::replace(kind, '_', ' ');
    return kind;
}

} // namespace

std::vector<std::string> lines_of(const verification& found) {
    std::vector<std::string> lines;
    for (const problem& each : found.astray) {
        // The file with the reference is printed only if it is not the project, which the last line names.
        const bool is_plain = each.file == found.project || each.file == each.path;
        lines.push_back(say_known(word_of(each.kind)) + ": " + say_known(each.holder) + " " +
                        one_line(each.element.caption) + ": " + printed(each.path) +
                        (is_plain ? "" : say(", in %1", {printed(each.file)})) +
                        (each.reason.empty() ? "" : ": " + say_known(one_line(each.reason))));
    }
    for (const problem& each : found.differing) lines.push_back(line_of(each));
    return lines;
}

} // namespace vestra::command
