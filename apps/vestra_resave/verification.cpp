#include "apps/vestra_resave/verification.h"

#include <algorithm>
#include <deque>
#include <nlohmann/json.hpp>
#include <unordered_set>

#include "apps/vestra_resave/elements.h"
#include "apps/vestra_resave/resave_report.h"
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
using nlohmann::ordered_json;
using platform::to_utf8;

namespace {

struct file_kind {
    wide_view extension;
    bool is_layer;
    dimension dimensions;
};
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

class verifier {
public:
    verifier(const std::function<bool()>& is_stopped, verification& found)
        : file_(found.project), below_(path_key(path_head(file_)) + u'\\'), is_stopped_(is_stopped),
          found_(found) {}

    void run(project_context& context, std::span<const wide_string> further) {
        files::visit_references(*api::to_model(context.project_handle()), visitor_);
        for (const element& each : kept_by_services(context)) visit(each);
        for (const element& each : files_of_services(context)) visit(each);
        for (const wide_string& path : further)
            if (kind_of(path)) add_file(path);
        for (; !files_.empty() && !is_at_end(); files_.pop_front()) visit_file(files_.front());
    }

private:
    // After a stop what is left is passed over.
    bool is_at_end() { return found_.stopped = found_.stopped || is_stopped_(); }

    void visit(const element& each) {
        check({each.kind, each.caption, each.file});
        for (const element& member : each.children) visit(member);
    }

    void add_file(const wide_string& path) {
        if (seen_.insert(path_key(path)).second) files_.push_back(path);
    }

    // A file that a map layer shows may have any name; it is one of a 2D scene.
    void visit_file(const wide_string& path) {
        file_ = path;
        const file_kind* known = kind_of(path);
        const dimension kind = known ? known->dimensions : dimension::flat;
        std::optional<files::file_error> fault;
        if (known && known->is_layer) {
            std::unique_ptr<layer> one;
            fault = files::read_layer(path, kind, one);
            if (!fault) files::visit_references(*one, visitor_);
        } else {
            scene one(kind);
            fault = files::read_scene(path, one);
            if (!fault) files::visit_references(one, "scene", visitor_);
        }
        if (fault) found_.astray.push_back({"file", path_file_name(path), path, path, "unreadable"});
    }

    void check(const held_reference& held) {
        const std::optional<wide_string> path = path_in(held.text);
        if (!path || is_at_end()) return;
        ++found_.references;
        const bool is_outside = !path_key(*path).starts_with(below_);
        const bool is_missing = platform::current_system().kind_of(*path) == platform::entry_kind::none;
        if (held.is_scene && !is_missing) add_file(*path);
        if (!is_outside && !is_missing) return;
        const char* const one = is_missing ? "missing" : "outside";
        found_.astray.push_back({std::string(held.kind), wide_string(held.caption), *path, file_,
                                 is_outside && is_missing ? "both" : one});
    }

    wide_string file_; // in work
    const wide_string below_;
    const std::function<bool()>& is_stopped_;
    verification& found_;
    const files::reference_visitor visitor_ = [this](const held_reference& held) { check(held); };
    std::deque<wide_string> files_;        // scene and layer files still to be read
    std::unordered_set<wide_string> seen_; // path keys of all of them
};

} // namespace

void verify(project_context& context, std::span<const wide_string> further,
            const std::function<bool()>& is_stopped, verification& found) {
    found.project = context.placement.source_project_path;
    verifier(is_stopped, found).run(context, further);
}

std::vector<wide_string> files_beside(const project_context& context, verification& found) {
    std::vector<wide_string> all;
    std::vector<platform::unread_folder> unread;
    const wide_string folder = path_head(context.placement.source_project_path);
    for (auto& entry : platform::list_tree(platform::current_system(), folder, &unread))
        if (!entry.is_folder) all.push_back(std::move(entry.path));
    for (const auto& [path, reason] : unread)
        found.astray.push_back({"folder", path_file_name(path), path, path, "unreadable"});
    return all;
}

std::vector<std::string> lines_of(const verification& found) {
    std::vector<std::string> lines;
    for (const astray_reference& each : found.astray) {
        const bool is_plain = each.file == found.project || each.file == each.path;
        lines.push_back((each.reason == "both" ? "outside and missing" : each.reason) + ": " + each.kind +
                        " " + one_line(each.caption) + ": " + one_line(each.path) +
                        (is_plain ? "" : ", in " + one_line(each.file)));
    }
    for (const differing_copy& each : found.differing)
        lines.push_back("not as its source (" + each.reason + "): " + one_line(each.target) + ", from " +
                        one_line(each.source));
    return lines;
}

ordered_json json_of(const std::vector<astray_reference>& references) {
    ordered_json all = ordered_json::array();
    for (const astray_reference& each : references)
        all.push_back({{"kind", each.kind},
                       {"caption", to_utf8(each.caption)},
                       {"path", to_utf8(each.path)},
                       {"file", to_utf8(each.file)},
                       {"reason", each.reason}});
    return all;
}

ordered_json json_of(const std::vector<differing_copy>& copies) {
    ordered_json all = ordered_json::array();
    for (const differing_copy& each : copies)
        all.push_back(
            {{"source", to_utf8(each.source)}, {"target", to_utf8(each.target)}, {"reason", each.reason}});
    return all;
}

} // namespace vestra::command
