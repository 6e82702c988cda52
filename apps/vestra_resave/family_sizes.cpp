// Computes sizes once for each file and folder, however many elements use them.
#include "apps/vestra_resave/family_sizes.h"

#include "apps/vestra_resave/companions.h"
#include "operations/run/registers.h"
#include "platform/path_text.h"
#include "platform/system.h"

namespace vestra::command {

using namespace vs::project_resave;

void family_sizes::set_bytes(element& shown) {
    if (shown.exists.value_or(false)) {
        path_keys counted;
        shown.bytes = add_family(path_in(shown.file).value(), counted);
        // Also the files that the run would copy for the element and that are not next to its file.
        for (const uint32_t number : known_.files_of(shown.uuid))
            shown.bytes += add_family(known_.path(number), counted);
    }
    for (element& member : shown.children) set_bytes(member);
}

uint64_t family_sizes::add_family(const wide_string& path, path_keys& counted) {
    const wide_string key = path_key(path), head = path_head(path);
    const bool is_new = !counted.contains(key);
    uint64_t sum = add(path, counted);
    if (!files_.contains(key)) return sum; // a folder has no companions
    const folder_files& files = beside_.files_of(head);
    // Files that came with another file have all their companions counted already, except those with their
    // full name.
    if (!is_new && files.beginning_with(path_file_name(path)).empty()) return sum;
    const auto [family, is_first] = families_.try_emplace(path_key(head) + path_file_name(path));
    // By the spelled name: names that differ only in letter case can have different families.
    if (is_first) family->second = family_of(path, files);
    for (const wide_string& name : family->second) sum += add(head + name, counted);
    return sum;
}

uint64_t family_sizes::add(const wide_string& path, path_keys& counted) {
    const wide_string key = path_key(path);
    if (!counted.insert(key).second) return 0;
    if (const auto row = files_.find(key); row != files_.end()) return row->second;
    const auto [folder, is_new] = folders_.try_emplace(key);
    if (is_new) {
        const platform::entry_status status = platform::current_system().status_of(path);
        if (status.kind == platform::entry_kind::file) {
            folders_.erase(folder);
            files_.emplace(key, status.bytes);
            bytes_ += status.bytes;
            return status.bytes;
        }
        if (status.kind == platform::entry_kind::folder)
            for (auto& entry : platform::list_tree(platform::current_system(), path))
                if (!entry.is_folder) folder->second.push_back(std::move(entry.path));
    }
    uint64_t sum = 0;
    // A copy, because `add` can enter further folders, which makes `folder` invalid.
    for (const wide_string& file : std::vector(folder->second)) sum += add(file, counted);
    return sum;
}

} // namespace vestra::command
