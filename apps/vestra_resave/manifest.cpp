// Reads, writes and compares manifests.
#include "apps/vestra_resave/manifest.h"

#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>
#include <unordered_set>

#include "apps/vestra_resave/continuation.h"
#include "apps/vestra_resave/file_content.h"
#include "apps/vestra_resave/verification.h"
#include "apps/vestra_resave/words.h"
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

using entry = earlier_file;

// Returns false if an item is not a valid entry.
bool add_entries(const ordered_json& list, const wide_string& folder, bool all, std::vector<entry>& entries) {
    for (const ordered_json& each : list) {
        const auto value = [&](const char* key) { return each.value(key, ordered_json()); };
        if (!each.is_object() || !value("path").is_string() || !value("bytes").is_number_unsigned() ||
            !value("sha256").is_string())
            return false;
        const auto text = [&](const char* key) { return platform::from_utf8(each[key].get<std::string>()); };
        // Somebody else's file that a copy happened to equal: a later update must not replace or remove it.
        if (!all && value("existed") == true) continue;
        entry found{.path = path_normalise(path_join(folder, text("path")))};
        found.bytes = each["bytes"].get<uint64_t>();
        found.sha256 = each["sha256"].get<std::string>();
        if (value("modified").is_number_integer()) found.modified = each["modified"].get<int64_t>();
        if (value("source").is_string()) found.source = text("source");
        found.state = found.source.empty() ? made_state::written : made_state::copied;
        entries.push_back(std::move(found));
    }
    return true;
}

enum class entries_wanted {
    referred, // files that the new project needs
    made      // files made by its resaves, even if nothing refers to them any more
};

// Returns nothing if the text is not a manifest of this project. Sets `source` to the project that was
// resaved.
std::optional<std::vector<entry>> entries_of(const std::string& text, const wide_string& project,
                                             entries_wanted wanted, wide_string* source = nullptr) {
    const auto manifest = ordered_json::parse(text, nullptr, false);
    const wide_string folder = path_head(project);
    if (!manifest.is_object() || !manifest.contains("files") || !manifest["files"].is_array() ||
        !manifest.contains("project") || !manifest["project"].is_string() ||
        // Files can be renamed, and a manifest next to another project says nothing about that.
        !path_same(platform::from_utf8(manifest["project"].get<std::string>()), path_file_name(project)))
        return std::nullopt;
    std::vector<entry> entries;
    const bool all = wanted == entries_wanted::referred;
    if (!add_entries(manifest["files"], folder, all, entries)) return std::nullopt;
    if (const auto from = manifest.find("source"); source && from != manifest.end() && from->is_string())
        *source = platform::from_utf8(from->get<std::string>());
    for (const char* const key : {"unreferenced", "changed_since"})
        if (const auto more = manifest.find(key); !all && more != manifest.end() && more->is_array())
            if (!add_entries(*more, folder, all, entries)) return std::nullopt;
    return entries;
}

// The scene file of a map has a source, but the run writes it instead of copying.
bool is_scene_file(const wide_string& path) {
    std::unique_ptr<platform::file> file;
    std::array<char, 128> first{};
    size_t count = 0;
    return platform::current_system().open(path, platform::access::read, platform::disposition::open_existing,
                                           file) &&
           file->read(first.data(), first.size(), count) &&
           std::string_view(first.data(), count).find("<scene_file") != std::string_view::npos;
}

// Collects the manifest entries of a saved project.
class manifest_writer {
public:
    manifest_writer(const run_state& run, continuation& earlier, const std::function<bool()>& is_stopped,
                    const std::unordered_map<wide_string, earlier_file>* known)
        : folder_(run.placement.new_folder), below_(path_key(folder_) + u'\\'), earlier_(earlier.disk()),
          is_stopped_(is_stopped), known_(known) {
        seen_.insert(path_key(run.placement.log_path)); // more lines can still be appended to it
    }

    // Files that the run made come first, so that those which only have a place in the project are known to
    // have existed.
    void add_all(const path_placement& placement) {
        for (const made_file& each : placement.made.files()) {
            made_.insert(path_key(each.path));
            add(each.source, each.path, true);
        }
        for (const placed_file& each : placement.placed)
            if (!each.old_path.empty())
                add(each.old_path, each.new_path, made_.contains(path_key(each.new_path)));
    }

    // Adds unchanged files of earlier runs that the new project does not need.
    void add_left(const std::vector<earlier_file>& left) {
        if (left.empty()) return;
        const platform::system_override in_force(earlier_->below()); // the current disk hides these files
        for (entry file : left) {
            if (is_stopped_() || !seen_.insert(path_key(file.path)).second) continue;
            if (file.sha256.empty()) {
                file_digest digest;
                // A file that cannot be read is left out, so no later run removes it.
                if (!read_digest(file.path, is_stopped_, digest)) continue;
                file.bytes = digest.bytes, file.sha256 = digest.sha256;
                file.modified = platform::current_system().status_of(file.path).modified;
            }
            left_.push_back(json_of(file));
        }
    }

    // Adds changed files of earlier runs with their recorded state, so that no later run overwrites them.
    void add_changed(const std::vector<earlier_file>& changed) {
        for (const entry& file : changed)
            if (seen_.insert(path_key(file.path)).second) changed_.push_back(json_of(file));
    }

    platform::outcome write(const run_state& run, const wide_string& path) const {
        const path_placement& placement = run.placement;
        ordered_json all{{"project", platform::to_utf8(path_file_name(placement.new_project_path))}};
        all["source"] = platform::to_utf8(placement.source_project_path);
        all["files"] = files_;
        if (!left_.empty()) all["unreferenced"] = left_;
        if (!changed_.empty()) all["changed_since"] = changed_;
        const std::string text = all.dump(2) + '\n';
        std::string older;
        // An update without changes leaves even the time of the manifest as it is.
        if (read_text(path, older) && older == text) return {};
        return files::replace_file(
            path, [&](platform::file& file) { return file.write(text.data(), text.size()); });
    }

    std::vector<problem> unread;

private:
    void add(const wide_string& source, const wide_string& path, bool is_made) {
        if (is_stopped_() || !seen_.insert(path_key(path)).second || !path_key(path).starts_with(below_))
            return;
        const platform::entry_status status = platform::current_system().status_of(path);
        if (status.kind == entry_kind::folder) return add_folder(source, path, is_made);
        if (status.kind == entry_kind::none) return; // a failed copy is reported already
        entry made{.path = path, .source = source, .bytes = status.bytes, .modified = status.modified};
        const earlier_file* const kept = earlier_ ? earlier_->kept_file(path) : nullptr;
        // Unchanged since it was recorded, so it need not be read again.
        if (kept && !kept->sha256.empty()) {
            made = *kept;
        } else {
            // The digest of the source, not of the copy: then a copy that the disk damaged differs from its
            // entry. A file that the run wrote has no source with the same content.
            if (source.empty() || is_scene_file(path)) made.source.clear();
            if (const platform::outcome read = sum_up(made); !read)
                return unread.push_back({own_kind::source_unreadable, {}, source, path, read.text()});
        }
        files_.push_back(json_of(made));
        if (!kept && !is_made) files_.back()["existed"] = true; // made by someone else
    }

    platform::outcome sum_up(entry& made) const {
        if (known_) {
            if (const auto row = known_->find(path_key(made.path)); row != known_->end()) {
                made.bytes = row->second.bytes, made.sha256 = row->second.sha256;
                made.modified = row->second.modified;
                return {};
            }
        }
        file_digest digest;
        const platform::outcome read =
            read_digest(made.source.empty() ? made.path : made.source, is_stopped_, digest);
        made.bytes = digest.bytes, made.sha256 = digest.sha256;
        return read;
    }

    ordered_json json_of(const entry& file) const {
        std::string name = platform::to_utf8(path_relative(path_with_separator(folder_), file.path));
        // With "/", so that other programs can use the paths on every operating system.
        std::ranges::replace(name, '\\', '/');
        ordered_json all{{"path", name}, {"bytes", file.bytes}, {"sha256", file.sha256}};
        all["modified"] = file.modified;
        if (!file.source.empty()) all["source"] = platform::to_utf8(file.source);
        return all;
    }

    void add_folder(const wide_string& source, const wide_string& path, bool is_made) {
        const wide_string from = path_with_separator(source);
        for (const auto& each : platform::list_tree(platform::current_system(), from))
            if (!each.is_folder) add(each.path, path_join(path, path_relative(from, each.path)), is_made);
    }

    const wide_string folder_, below_;
    continued_disk* const earlier_; // can be null
    const std::function<bool()>& is_stopped_;
    const std::unordered_map<wide_string, earlier_file>* const known_; // may be null
    std::unordered_set<wide_string> seen_, made_;                      // path keys
    ordered_json files_ = ordered_json::array(), left_ = ordered_json::array(),
                 changed_ = ordered_json::array();
};

// True if the name is taken by another file, which must not be replaced.
bool is_in_the_way(run_state& run, const wide_string& path) {
    if (run.guard.protects(path) || run.placement.made.is_copy(path)) return true;
    std::string text;
    return path_exists(path) && (!read_text(path, text) ||
                                 !entries_of(text, run.placement.new_project_path, entries_wanted::referred));
}

const char* difference_of(const entry& wanted, const digest_reader& read, platform::outcome& reason) {
    const platform::entry_status status = platform::current_system().status_of(wanted.path);
    if (status.kind != entry_kind::file) return own_kind::manifest_missing;
    // Without reading the file.
    if (status.bytes != wanted.bytes) return own_kind::manifest_size_differs;
    file_digest digest;
    reason = read(wanted.path, digest);
    if (!reason) return own_kind::unreadable;
    return digest.sha256 == wanted.sha256 ? nullptr : own_kind::manifest_content_differs;
}

} // namespace

wide_string manifest_path(const wide_string& project) {
    return path_head(project) + path_stem(project) + u".manifest.json";
}

std::vector<problem> write_manifest(run_state& run, continuation& earlier,
                                    const std::function<bool()>& is_stopped,
                                    const std::unordered_map<wide_string, earlier_file>* known) {
    const wide_string& project = run.placement.new_project_path;
    const wide_string path = manifest_path(project);
    if (is_in_the_way(run, path))
        return {{own_kind::not_created, {}, {}, path, u"another file has this name"}};
    manifest_writer writer(run, earlier, is_stopped, known);
    writer.add_all(run.placement);
    writer.add_left(earlier.left());
    writer.add_changed(earlier.changed());
    if (is_stopped()) return {{own_kind::not_created, {}, {}, path, u"interrupted"}};
    if (const platform::outcome written = writer.write(run, path); !written)
        writer.unread.push_back({own_kind::not_created, {}, {}, path, written.text()});
    return std::move(writer.unread);
}

std::optional<refusal> read_manifest(const wide_string& project, std::vector<earlier_file>& files,
                                     wide_string* source) {
    const wide_string path = manifest_path(project);
    if (!path_exists(path)) return std::nullopt;
    std::string text;
    if (const platform::outcome read = read_text(path, text); !read)
        return refusal{wrong_use, {{own_kind::unreadable, {}, path, {}, read.text()}}};
    auto entries = entries_of(text, project, entries_wanted::made, source);
    if (!entries) return refused(path, say("is not a manifest of this project"));
    files = std::move(*entries);
    return std::nullopt;
}

std::optional<refusal> compare_with_manifest(const wide_string& project,
                                             const std::function<void(uint64_t bytes)>& begins,
                                             const digest_reader& read_file,
                                             const std::function<bool()>& is_stopped, verification& found) {
    const wide_string path = manifest_path(project);
    std::string text;
    if (const platform::outcome read = read_text(path, text); !read)
        return refusal{wrong_use, {{own_kind::unreadable, {}, path, {}, read.text()}}};
    auto entries = entries_of(text, project, entries_wanted::referred);
    if (!entries) return refused(path, say("is not a manifest of this project"));
    // A manifest without its project has lost entries, and says nothing about the files of the copy.
    if (std::ranges::none_of(*entries, [&](const entry& each) { return path_same(each.path, project); }))
        found.differing.push_back({own_kind::manifest_lacks, {}, project, {}, {}});
    const wide_string below = path_with_separator(path_key(path_head(project)));
    const auto outside = std::stable_partition(entries->begin(), entries->end(), [&](const entry& each) {
        return path_key(each.path).starts_with(below);
    });
    // Not even looked up, as printing a path would: it may be any file of this computer.
    for (auto each = outside; each != entries->end(); ++each)
        found.differing.push_back({own_kind::manifest_outside, {}, path, {}, each->path});
    entries->erase(outside, entries->end());
    uint64_t bytes = 0;
    for (const entry& each : *entries) bytes += each.bytes;
    begins(bytes);
    for (const entry& each : *entries) {
        if (found.stopped = found.stopped || is_stopped(); found.stopped) break;
        platform::outcome reason;
        const char* const kind = difference_of(each, read_file, reason);
        if (kind && !is_stopped()) found.differing.push_back({kind, {}, each.path, {}, reason.text()});
    }
    return std::nullopt;
}

} // namespace vestra::command
