// Answers requests for the status and identity of files from earlier answers and folder listings.
#include "apps/vestra_resave/remembered_disk.h"

#include <algorithm>

#include "platform/text.h"

namespace vestra::command {

using namespace vs::project_resave;
using platform::entry_kind;
using platform::outcome;

namespace {

// Returns the folder of a path with its separator at the end.
std::u16string_view head_of(std::u16string_view path) {
    return path.substr(0, path.find_last_of(u"\\/") + 1); // empty for a name without a folder
}

// Names are kept as hashes to save memory. Two names with one hash only cost a request.
size_t key_of(std::u16string_view name) { return std::hash<wide_string>()(platform::folded(name)); }

// True for a name that a disk finds under exactly this name or not at all. Some disks have short names
// (AREA~1.SHP), ignore dots at the end, fold letters beyond ASCII by their own rules, or find folders that
// they do not list; the latter have no extension.
bool is_listed_if_there(std::u16string_view name) {
    const size_t dot = name.find_last_of(u'.');
    const bool has_extension = dot != 0 && dot < name.size() - 1 && dot != std::u16string_view::npos;
    return has_extension && !name.ends_with(u' ') &&
           std::ranges::all_of(name, [](char16_t c) { return c < 0x80 && c != u'~' && c != u':'; });
}

} // namespace

remembered_disk::known_folder& remembered_disk::folder_of(std::u16string_view path) {
    if (!known_) known_ = std::make_unique<knowledge>();
    auto& folders = known_->folders;
    // Most requests are for a folder that is known, so the key is copied only for a new one.
    if (const auto at = folders.find(path); at != folders.end()) return at->second;
    return folders.try_emplace(std::pmr::u16string(path, &known_->memory), &known_->memory).first->second;
}

// Returns the current answer, or an empty one.
remembered_disk::answer& remembered_disk::answer_for(known_folder& folder, std::u16string_view name) {
    auto at = folder.answers.find(name);
    if (at == folder.answers.end())
        at = folder.answers.try_emplace(std::pmr::u16string(name, &known_->memory)).first;
    answer& known = at->second;
    const bool is_file = known.has_status && known.status.kind == entry_kind::file;
    // An addition can create what was missing, but what is known of existing files stays true.
    if (!is_file && known.additions != additions_) known = {};
    known.additions = additions_;
    return known;
}

bool remembered_disk::is_absent(const known_folder& folder, std::u16string_view name) const {
    return folder.listed_at == additions_ && is_listed_if_there(name) &&
           !std::ranges::binary_search(folder.names, key_of(name));
}

// The names in a folder that cannot be listed are unknown, so each of them is requested.
void remembered_disk::learn_names(known_folder& folder, std::u16string_view path) {
    if (folder.listed_at == additions_ || path.empty()) return;
    std::vector<platform::folder_entry> entries;
    if (!inner().list(wide_string(path), entries)) return;
    folder.names.clear();
    folder.names.reserve(entries.size());
    for (const platform::folder_entry& each : entries) folder.names.push_back(key_of(each.name));
    std::ranges::sort(folder.names);
    folder.listed_at = additions_;
}

platform::entry_status remembered_disk::status_of(const wide_string& path) {
    if (!remembers_) return inner().status_of(path);
    const std::u16string_view head = head_of(path), name = std::u16string_view(path).substr(head.size());
    known_folder& folder = folder_of(head);
    if (is_absent(folder, name)) return {entry_kind::none, 0, platform::failure::missing};
    answer& known = answer_for(folder, name);
    if (known.has_status) return known.status;
    known.status = inner().status_of(path);
    known.has_status = true;
    if (known.status.identity) {
        known.identity = known.status.identity;
        known.has_identity = true;
    }
    // A listing costs as much as many requests, so it is read only once a name turns out to be missing:
    // usually others in the folder are, too, such as the companions of a file.
    if (known.status.reason.is(platform::failure::missing) && is_listed_if_there(name))
        learn_names(folder, head);
    return known.status;
}

platform::file_identity remembered_disk::identity_of(const wide_string& path) {
    if (!remembers_) return inner().identity_of(path);
    const std::u16string_view head = head_of(path), name = std::u16string_view(path).substr(head.size());
    answer& known = answer_for(folder_of(head), name);
    if (!known.has_identity) known.identity = inner().identity_of(path);
    known.has_identity = true;
    return known.identity;
}

remembered_disk::kept_answers::kept_answers(remembered_disk& disk)
    : disk_(disk), known_(std::move(disk.known_)) {}

remembered_disk::kept_answers::~kept_answers() {
    disk_.known_ = std::move(known_);
    disk_.note_addition();
}

void remembered_disk::note_addition() {
    ++additions_;
    if (ends_at_write_) remember(false);
}

void remembered_disk::note_change() {
    forget();
    if (ends_at_write_) remember(false);
}

std::filesystem::file_time_type remembered_disk::time_of_folder(const wide_string& path) {
    if (!remembers_) return inner().time_of_folder(path);
    known_folder& folder = folder_of(path);
    if (folder.timed_at != additions_) folder.time = inner().time_of_folder(path);
    folder.timed_at = additions_;
    return folder.time;
}

outcome remembered_disk::copy_file(const wide_string& source, const wide_string& target, bool replace) {
    // Before the call and even if it fails, because a failed call can have changed something, too.
    replace ? note_change() : note_addition();
    return inner().copy_file(source, target, replace);
}

outcome remembered_disk::delete_file(const wide_string& path) {
    note_change();
    return inner().delete_file(path);
}

outcome remembered_disk::create_folder(const wide_string& path) {
    note_addition();
    return inner().create_folder(path);
}

outcome remembered_disk::remove_folder(const wide_string& path) {
    note_change();
    return inner().remove_folder(path);
}

outcome remembered_disk::rename_over(const wide_string& from, const wide_string& to) {
    note_change();
    return inner().rename_over(from, to);
}

outcome remembered_disk::open(const wide_string& path, platform::access wanted, platform::disposition how,
                              std::unique_ptr<platform::file>& result) {
    if (how == platform::disposition::create_new)
        note_addition();
    else if (wanted != platform::access::read || how != platform::disposition::open_existing)
        note_change();
    return inner().open(path, wanted, how, result);
}

} // namespace vestra::command
