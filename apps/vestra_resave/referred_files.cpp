// Decides which files in an earlier project's folder belong to it, and which of them others still need.
#include "apps/vestra_resave/referred_files.h"

#include <algorithm>
#include <cctype>
#include <pugixml.hpp>

#include "apps/vestra_resave/companions.h"
#include "apps/vestra_resave/data_set_files.h"
#include "apps/vestra_resave/elements.h"
#include "apps/vestra_resave/file_content.h"
#include "apps/vestra_resave/folder_files.h"
#include "operations/project_context.h"
#include "operations/run/path_files.h"
#include "platform/path_text.h"
#include "platform/text.h"

namespace vestra::command {

using namespace vs::project_resave;
using platform::entry_kind;

namespace {

class referred_collector {
public:
    // Only what is below the project's folder can be its copy; all other files are somebody else's.
    explicit referred_collector(const wide_string& project)
        : below_(path_key(path_head(project)) + u'\\'),
          saved_(platform::current_system().status_of(project).modified) {}

    void add_all(project_context& context) {
        for (const wide_string& path : context.sizes.known_paths())
            if (!path_same(path, context.placement.source_project_path)) add_data_set(path);
        add_elements(elements_of(context)); // joined tables appear only in the elements
    }

    std::vector<earlier_file> files;

private:
    void add(const wide_string& path, const wide_string& data_set = {}) {
        const wide_string key = path_key(path);
        if (!key.starts_with(below_) || !seen_.insert(key).second) return;
        // A scene file that is newer than the project was changed by the user after the resave.
        const bool is_written = path_extension(path).starts_with(u"._") &&
                                platform::current_system().status_of(path).modified <= saved_;
        files.push_back({.path = path,
                         .state = is_written ? made_state::writing : made_state::referred,
                         .data_set = data_set});
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
            if (!each.is_folder) add(each.path, path_normalise(path));
    }

    void add_family(const wide_string& path) {
        add(path);
        for (const wide_string& name : family_of(path, folders_.files_of(path_head(path))))
            add(path_head(path) + name);
    }

    const wide_string below_;
    const int64_t saved_;                  // when the project was saved
    std::unordered_set<wide_string> seen_; // path keys
    listed_folders folders_;
};

// False if the text declares an encoding other than the one its names are read in. Names that were read
// wrongly would match nothing, and files would be removed that are needed.
bool is_utf8_by_name(const std::string& text) {
    std::string head = text.substr(0, text.find("?>"));
    std::ranges::transform(head, head.begin(),
                           [](unsigned char each) { return static_cast<char>(std::tolower(each)); });
    return !head.starts_with("<?xml") || head.find("encoding") == std::string::npos ||
           head.find("utf-8") != std::string::npos;
}

// Returns the part of the name that all files of a data set share.
wide_string first_name(const wide_string& path) {
    const wide_string name = path_file_name(path);
    return name.substr(0, name.find(u'.'));
}

} // namespace

std::vector<earlier_file> referred_files(project_context& context, const wide_string& project) {
    referred_collector found(project);
    found.add_all(context);
    return std::move(found.files);
}

void source_neighbours::learn() {
    is_learned_ = true;
    platform::system& disk = platform::current_system();
    listed_folders folders;
    std::unordered_set<wide_string> seen;
    for (const wide_string& source : sources_) {
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

other_users::other_users(project_context& context, const wide_string& project,
                         std::vector<wide_string> sources, const std::vector<wide_string>& going)
    : context_(context), neighbours_(std::move(sources)), folder_(path_head(project)) {
    std::unordered_set<wide_string> own{path_key(project)};
    for (const wide_string& path : going) own.insert(path_key(path));
    // The scene and layer files of this run refer only to its own copies.
    for (const made_file& each : context.placement.made.files()) own.insert(path_key(each.path));
    for (const auto& each : platform::list_tree(platform::current_system(), path_head(project)))
        if (path_extension(each.path).starts_with(u"._") && !own.contains(path_key(each.path)))
            add_names_in(each.path);
}

// Treats every text of the file as a possible name, because a wrong one does no harm: one more file is kept.
// So this does not depend on what files of later versions look like.
void other_users::add_names_in(const wide_string& path) {
    std::string text;
    pugi::xml_document document;
    const bool is_read =
        read_text(path, text) && is_utf8_by_name(text) && document.load_buffer(text.data(), text.size());
    if (!is_read) has_unread_ = true; // it may refer to any file
    struct : pugi::xml_tree_walker {
        bool for_each(pugi::xml_node& node) override {
            take(node.value());
            for (const pugi::xml_attribute attribute : node.attributes()) take(attribute.value());
            return true;
        }
        void take(std::string_view value) {
            // A text without any of these is a caption or a number.
            if (value.find_first_of("\\/.") != std::string_view::npos)
                names->insert(platform::folded(first_name(platform::from_utf8(value))));
        }
        std::unordered_set<wide_string>* names = nullptr;
    } walker;
    walker.names = &named_;
    document.traverse(walker);
}

placed_copies::placed_copies(const placed_files& placed) {
    for (const placed_file& each : placed) {
        const wide_string& path = each.new_path;
        if (each.old_path.empty() || path_extension(path).starts_with(u"._")) continue;
        // A companion's name continues the whole name or the stem.
        for (const wide_string& name : {path_file_name(path), path_stem(path)})
            by_name_.try_emplace(path_key(path_head(path) + name), &path);
        by_whole_name_.try_emplace(path_key(projection_file_name(path)), &path);
        for (const wide_string& partner : partners_of(path))
            by_whole_name_.try_emplace(path_key(partner), &path);
        // The logs of a database have no dot after its name.
        for (const wide_view log : {u"-wal", u"-shm", u"-journal"})
            by_whole_name_.try_emplace(path_key(path + wide_string(log)), &path);
    }
}

const wide_string* placed_copies::read_with(const wide_string& path) const {
    const auto find = [](const auto& all, const wide_string& key) {
        const auto row = all.find(key);
        return row == all.end() ? nullptr : row->second;
    };
    if (const wide_string* const found = find(by_whole_name_, path_key(path))) return found;
    const wide_string head = path_head(path), name = path_file_name(path);
    // Each dot can end the name of the main file: "a.b.tif.aux.xml" belongs to "a.b.tif".
    for (size_t dot = name.find(u'.'); dot != wide_string::npos; dot = name.find(u'.', dot + 1)) {
        const wide_string* const found = find(by_name_, path_key(head + name.substr(0, dot)));
        if (!found) continue;
        const wide_string rest = platform::folded(name.substr(dot + 1));
        if (is_known_companion(rest)) return found;
        for (const wide_string& ending : world_endings(path_extension(*found)))
            if (rest == ending) return found;
    }
    return nullptr;
}

bool other_users::need(const wide_string& path) {
    if (has_unread_ || context_.guard.protects(path) || neighbours_.contain(path)) return true;
    // Also the folders above the file, since a project can refer to a folder as one data set.
    for (wide_string level = path; level.size() > folder_.size(); level = path_normalise(path_head(level)))
        if (named_.contains(platform::folded(first_name(level)))) return true;
    return false;
}

} // namespace vestra::command
