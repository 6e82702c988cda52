#include "apps/vestra_resave/verification.h"

#include <algorithm>
#include <deque>
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

// What could not be read is what holds the references, so it stands for the element, too.
problem unreadable(const char* what, const wide_string& path, const wide_string& reason) {
    return {own_kind::unreadable, {{}, path_file_name(path), {}}, path, {}, reason, what, path};
}

wide_string reason_of(const files::file_error& fault) {
    return fault.line == 0 ? fault.reason
                           : u"line " + decimal(static_cast<uint32_t>(fault.line)) + u": " + fault.reason;
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

    void visit(const element& each, const wide_string& list = {}) {
        check(each.kind, {each.uuid, each.caption, list}, each.file, false);
        for (const element& member : each.children) visit(member, each.caption);
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
        if (fault) found_.astray.push_back(unreadable("file", path, reason_of(*fault)));
    }

    void check(const held_reference& held) {
        const entity& holder = *held.holder;
        check(std::string(held.kind), {holder.id.text(), holder.caption, wide_string(held.list)}, held.text,
              held.is_scene);
    }

    void check(const std::string& holder, const element_name& element, wide_view reference, bool is_scene) {
        const std::optional<wide_string> path = path_in(reference);
        if (!path || is_at_end()) return;
        ++found_.references;
        const bool is_outside = !path_key(*path).starts_with(below_);
        const bool is_missing = platform::current_system().kind_of(*path) == platform::entry_kind::none;
        if (is_scene && !is_missing) add_file(*path);
        if (!is_outside && !is_missing) return;
        const char* const one = is_missing ? own_kind::reference_missing : own_kind::reference_outside;
        const char* const kind = is_outside && is_missing ? own_kind::reference_outside_and_missing : one;
        found_.astray.push_back({kind, element, *path, {}, {}, holder, file_});
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
        found.astray.push_back(unreadable("folder", path, reason.text()));
    return all;
}

std::vector<std::string> lines_of(const verification& found) {
    std::vector<std::string> lines;
    for (const problem& each : found.astray) {
        const bool is_plain = each.file == found.project || each.file == each.path;
        lines.push_back((each.kind == own_kind::unreadable ? each.kind : text_of(each.kind)) + ": " +
                        each.holder + " " + one_line(each.element.caption) + ": " + one_line(each.path) +
                        (is_plain ? "" : ", in " + one_line(each.file)) +
                        (each.reason.empty() ? "" : ": " + one_line(each.reason)));
    }
    for (const problem& each : found.differing) lines.push_back(line_of(each));
    return lines;
}

} // namespace vestra::command
