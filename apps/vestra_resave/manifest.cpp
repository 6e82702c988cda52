#include "apps/vestra_resave/manifest.h"

#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>
#include <unordered_set>

#include "apps/vestra_resave/file_content.h"
#include "apps/vestra_resave/verification.h"
#include "operations/run/path_files.h"
#include "operations/run/run_state.h"
#include "platform/path_text.h"
#include "platform/system.h"
#include "platform/text.h"
#include "reference_host/files/files.h"

namespace vestra::command {

using namespace vs::project_resave;
using nlohmann::ordered_json;
using platform::entry_kind;

namespace {

// Nothing if it is no manifest.
struct entry {
    wide_string path;
    uint64_t bytes = 0;
    std::string sha256;
};
std::optional<std::vector<entry>> entries_of(const std::string& text, const wide_string& folder) {
    const auto all = ordered_json::parse(text, nullptr, false);
    if (!all.is_object() || !all.contains("files") || !all["files"].is_array()) return std::nullopt;
    std::vector<entry> entries;
    for (const ordered_json& each : all["files"]) {
        const auto value = [&](const char* key) { return each.value(key, ordered_json()); };
        if (!each.is_object() || !value("path").is_string() || !value("bytes").is_number_unsigned() ||
            !value("sha256").is_string())
            return std::nullopt;
        const wide_string path = platform::from_utf8(each["path"].get<std::string>());
        entries.push_back({path_normalise(path_join(folder, path)), each["bytes"].get<uint64_t>(),
                           each["sha256"].get<std::string>()});
    }
    return entries;
}

// The scene file of a map has a source, but the run writes it anew.
bool is_scene_file(const wide_string& path) {
    std::unique_ptr<platform::file> file;
    std::array<char, 128> first{};
    size_t count = 0;
    return platform::current_system().open(path, platform::access::read, platform::disposition::open_existing,
                                           file) &&
           file->read(first.data(), first.size(), count) &&
           std::string_view(first.data(), count).find("<scene_file") != std::string_view::npos;
}

// Collects the entries of a saved project.
class manifest_writer {
public:
    manifest_writer(const run_state& run, const std::function<bool()>& is_stopped)
        : folder_(run.placement.new_folder), below_(path_key(folder_) + u'\\'), is_stopped_(is_stopped) {
        seen_.insert(path_key(run.placement.log_path)); // lines may still be added to it
    }

    void add_all(const path_placement& placement) {
        for (const made_file& each : placement.made.files()) add(each.source, each.path);
        for (const placed_file& each : placement.placed)
            if (!each.old_path.empty()) add(each.old_path, each.new_path);
    }

    platform::outcome write(const wide_string& project, const wide_string& path) const {
        const ordered_json all{{"project", platform::to_utf8(path_file_name(project))}, {"files", files_}};
        const std::string text = all.dump(2) + '\n';
        return files::replace_file(
            path, [&](platform::file& file) { return file.write(text.data(), text.size()); });
    }

    std::vector<problem> unread;

private:
    void add(const wide_string& source, const wide_string& path) {
        if (is_stopped_() || !seen_.insert(path_key(path)).second || !path_key(path).starts_with(below_))
            return;
        const entry_kind kind = platform::current_system().kind_of(path);
        if (kind == entry_kind::folder) return add_folder(source, path);
        if (kind == entry_kind::none) return; // a copy that failed is a problem already
        file_digest digest;
        const bool is_written = source.empty() || is_scene_file(path);
        const platform::outcome read = read_digest(is_written ? path : source, is_stopped_, digest);
        if (!read) return unread.push_back({own_kind::source_unreadable, {}, source, path, read.text()});
        std::string name = platform::to_utf8(path_relative(path_with_separator(folder_), path));
        std::ranges::replace(name, '\\', '/');
        files_.push_back({{"path", name}, {"bytes", digest.bytes}, {"sha256", digest.sha256}});
    }

    void add_folder(const wide_string& source, const wide_string& path) {
        const wide_string from = path_with_separator(source);
        for (const auto& each : platform::list_tree(platform::current_system(), from))
            if (!each.is_folder) add(each.path, path_join(path, path_relative(from, each.path)));
    }

    const wide_string folder_, below_;
    const std::function<bool()>& is_stopped_;
    std::unordered_set<wide_string> seen_; // path keys
    ordered_json files_ = ordered_json::array();
};

// True if another file has the name, which is not to be lost.
bool is_in_the_way(run_state& run, const wide_string& path) {
    if (run.guard.protects(path)) return true;
    std::string text;
    return path_exists(path) && (!read_text(path, text) || !entries_of(text, {}));
}

const char* difference_of(const entry& wanted, const std::function<bool()>& is_stopped,
                          platform::outcome& reason) {
    const platform::entry_status status = platform::current_system().status_of(wanted.path);
    if (status.kind != entry_kind::file) return own_kind::manifest_missing;
    if (status.bytes != wanted.bytes) return own_kind::manifest_size_differs;
    file_digest digest;
    reason = read_digest(wanted.path, is_stopped, digest);
    if (!reason) return own_kind::unreadable;
    return digest.sha256 == wanted.sha256 ? nullptr : own_kind::manifest_content_differs;
}

} // namespace

wide_string manifest_path(const wide_string& project) {
    return path_head(project) + path_stem(project) + u".manifest.json";
}

std::vector<problem> write_manifest(run_state& run, const std::function<bool()>& is_stopped) {
    const wide_string& project = run.placement.new_project_path;
    const wide_string path = manifest_path(project);
    if (is_in_the_way(run, path))
        return {{own_kind::not_created, {}, {}, path, u"another file has this name"}};
    manifest_writer writer(run, is_stopped);
    writer.add_all(run.placement);
    if (is_stopped()) return {{own_kind::not_created, {}, {}, path, u"interrupted"}};
    if (const platform::outcome written = writer.write(project, path); !written)
        writer.unread.push_back({own_kind::not_created, {}, {}, path, written.text()});
    return std::move(writer.unread);
}

std::optional<refusal> compare_with_manifest(const wide_string& project,
                                             const std::function<void(uint64_t bytes)>& begins,
                                             const std::function<bool()>& is_stopped, verification& found) {
    const wide_string path = manifest_path(project);
    std::string text;
    if (const platform::outcome read = read_text(path, text); !read)
        return refusal{wrong_use, {{own_kind::unreadable, {}, path, {}, read.text()}}};
    const auto entries = entries_of(text, path_head(project));
    if (!entries) return refused(path, "is no manifest");
    uint64_t bytes = 0;
    for (const entry& each : *entries) bytes += each.bytes;
    begins(bytes);
    for (const entry& each : *entries) {
        if (found.stopped = found.stopped || is_stopped(); found.stopped) break;
        platform::outcome reason;
        const char* const kind = difference_of(each, is_stopped, reason);
        if (kind && !is_stopped()) found.differing.push_back({kind, {}, each.path, {}, reason.text()});
    }
    return std::nullopt;
}

} // namespace vestra::command
