#include "apps/vestra_resave/referred_files.h"

#include "apps/vestra_resave/companions.h"
#include "apps/vestra_resave/data_set_files.h"
#include "apps/vestra_resave/elements.h"
#include "apps/vestra_resave/folder_files.h"
#include "apps/vestra_resave/manifest.h"
#include "operations/project_context.h"
#include "operations/run/path_files.h"
#include "platform/path_text.h"

namespace vestra::command {

using namespace vs::project_resave;
using platform::entry_kind;

namespace {

class referred_collector {
public:
    explicit referred_collector(const wide_string& folder) : below_(path_key(folder) + u'\\') {}

    void add_all(project_context& context) {
        for (const wide_string& path : context.sizes.known_paths())
            if (!path_same(path, context.placement.source_project_path)) add_data_set(path);
        add_elements(elements_of(context)); // joined tables are known to the elements alone
    }

    std::vector<earlier_file> files;

private:
    void add(const wide_string& path) {
        const wide_string key = path_key(path);
        // Scene files are written with the project, and belong to it.
        const bool is_written = path_extension(path).starts_with(u"._");
        if (key.starts_with(below_) && seen_.insert(key).second)
            files.push_back({.path = path, .state = is_written ? made_state::writing : made_state::referred});
    }

    void add_elements(const std::vector<element>& elements) {
        for (const element& each : elements) {
            if (each.exists.value_or(false)) add_data_set(path_in(each.file).value());
            add_elements(each.children);
        }
    }

    void add_data_set(const wide_string& path) {
        if (platform::current_system().kind_of(path) != entry_kind::folder) return add_family(path);
        for (const auto& each : platform::list_tree(platform::current_system(), path))
            if (!each.is_folder) add(each.path);
    }

    void add_family(const wide_string& path) {
        add(path);
        const wide_string head = path_head(path), stem = path_stem(path), name = path_file_name(path);
        const folder_files& near = folders_.files_of(head);
        for (const wide_string& each : companion_files(path))
            if (const wide_string* found = near.find(path_file_name(each))) add(head + *found);
        for (const wide_string* text : {&stem, &name})
            for (const wide_string& each : near.beginning_with(*text))
                if (is_known_companion(wide_view(each).substr(text->size() + 1))) add(head + each);
        for (const wide_string& ending : world_endings(path_extension(path)))
            if (const wide_string* found = near.find(path_replace_extension(stem + u'.', ending)))
                add(head + *found);
    }

    const wide_string below_;
    std::unordered_set<wide_string> seen_; // path keys
    listed_folders folders_;
};

} // namespace

std::vector<earlier_file> referred_files(project_context& context, const wide_string& folder) {
    referred_collector found(folder);
    found.add_all(context);
    return std::move(found.files);
}

void source_neighbours::learn() {
    is_learned_ = true;
    platform::system& disk = platform::current_system();
    listed_folders folders;
    std::unordered_set<wide_string> seen;
    for (const wide_string& source : context_.sizes.known_paths()) {
        if (path_extension(source).starts_with(u"._")) continue; // a file of the host has no companions
        const wide_string head = path_head(source), stem = path_stem(source);
        if (seen.insert(path_key(head + stem)).second)
            for (const wide_string& name : folders.files_of(head).beginning_with(stem))
                identities_.insert(disk.identity_of(head + name));
        for (const auto& each : virtual_sources(source)) identities_.insert(disk.identity_of(each.path));
    }
}

bool source_neighbours::contain(const wide_string& path) {
    const platform::file_identity asked = platform::current_system().identity_of(path);
    if (!asked) return false;
    if (!is_learned_) learn();
    return identities_.contains(asked);
}

other_users::other_users(project_context& context, const wide_string& project)
    : context_(context), neighbours_(context) {
    const wide_string folder = path_head(project), own = path_file_name(manifest_path(project));
    for (const platform::folder_entry& each : platform::entries_or_none(platform::current_system(), folder)) {
        const size_t end = each.name.rfind(u".manifest.json");
        if (end == wide_string::npos || end + 14 != each.name.size() || path_same(each.name, own)) continue;
        std::vector<earlier_file> files;
        if (read_manifest(folder + each.name.substr(0, end) + u"._vp", files)) continue;
        for (const earlier_file& file : files) named_.insert(path_key(file.path));
    }
}

bool other_users::need(const wide_string& path) {
    return named_.contains(path_key(path)) || context_.guard.protects(path) || neighbours_.contain(path);
}

} // namespace vestra::command
