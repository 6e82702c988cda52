// Counts the size of the selection while the user checks and unchecks elements, without looking at the disk
// again.

#include "operations/run/registers.h"

#include <algorithm>

#include "framework/border/visitors.h"
#include "host/vsk_basic.h"
#include "platform/system.h"

namespace vs::project_resave {

namespace {

constexpr double kb_per_byte = 0.0009765625;

// Returns a file's size; for a folder, the size of all files below it.
double kilobytes(const found_file& file) {
    platform::system& system = platform::current_system();
    const bool is_known = file.status.kind != platform::entry_kind::none;
    const platform::entry_status status = is_known ? file.status : system.status_of(file.path);
    if (status.kind != platform::entry_kind::folder) return static_cast<double>(status.bytes) * kb_per_byte;
    double sum = 0;
    for (const platform::tree_entry& entry : platform::list_tree(system, file.path))
        if (!entry.is_folder) sum += static_cast<double>(system.file_size(entry.path)) * kb_per_byte;
    return sum;
}

} // namespace

bool size_register::push_parent(const wide_string& uuid) {
    if (uuid.empty()) return false;
    parents_.push_back(&files_of_uuid_[files_of_uuid_.enter(uuid).first]);
    return true;
}

void size_register::pop_parent() { parents_.pop_back(); }

void size_register::recount(size_entry& entry) {
    const bool needed = entry.fulfilled != 0;
    // Adds or subtracts only on a change, so that a path needed twice counts once.
    if (needed != entry.counted) total_kb_ += needed ? entry.size_kb : -entry.size_kb;
    entry.counted = needed;
}

// A unit that occurs twice in the stack counts once.
void size_register::link_parents(uint32_t chain_index) {
    for (size_t place = 0; place < parents_.size(); ++place)
        if (std::find(parents_.begin(), parents_.begin() + static_cast<ptrdiff_t>(place), parents_[place]) ==
            parents_.begin() + static_cast<ptrdiff_t>(place))
            parents_[place]->links.push_back({chain_index, true});
}

uint32_t size_register::add_file(const found_file& file) {
    const auto [index, is_new] = entries_.enter(file.path);
    size_entry& entry = entries_[index];
    if (is_new) entry.size_kb = kilobytes(file);
    chains_.push_back({index});
    ++entry.fulfilled;
    recount(entry);
    link_parents(static_cast<uint32_t>(chains_.size() - 1));
    return index;
}

std::vector<uint32_t> size_register::add_files(const std::vector<found_file>& files) {
    std::vector<uint32_t> numbers;
    numbers.reserve(files.size());
    for (const found_file& file : files) numbers.push_back(add_file(file));
    return numbers;
}

void size_register::add_wstrings(const vs_wstrings* paths) {
    const uint32_t count = vs_wstrings_get_size(paths);
    for (uint32_t index = 0; index < count; ++index)
        add_file(wide_string(text_or_empty(vs_wstrings_get_str(paths, index))));
}

void size_register::uuid_row::add_bare(const wide_string& path) {
    if (!bare_paths) bare_paths = std::make_unique<std::unordered_set<wide_string>>();
    bare_paths->insert(path);
}

void size_register::add_path_to_parents(const wide_string& path) {
    for (uuid_row* parent : parents_) parent->add_bare(path);
}

void size_register::add_path_to_uuid(const wide_string& uuid, const wide_string& path) {
    files_of_uuid_[files_of_uuid_.enter(uuid).first].add_bare(path);
}

void size_register::set_uuid_selected(const wide_string& uuid, bool selected) {
    uuid_row* const row = files_of_uuid_.find(uuid);
    if (row == nullptr || (row->links.empty() && !row->bare_paths)) return;
    for (chain_link& link : row->links) {
        if (link.selected == selected) continue;
        link.selected = selected;
        chain& way = chains_[link.chain];
        size_entry& entry = entries_[way.entry];
        // A chain is needed again when its last left-out uuid is selected.
        if (selected && --way.left_out == 0) ++entry.fulfilled;
        if (!selected && way.left_out++ == 0) --entry.fulfilled;
        recount(entry);
    }
    // A path that was entered without being counted becomes known here, with size 0.
    if (row->bare_paths)
        for (const wide_string& path : *row->bare_paths) entries_.enter(path);
    if (on_changed_) on_changed_();
}

std::vector<size_register::counted_file> size_register::counted_files(const wide_string& uuid) const {
    std::vector<counted_file> files;
    if (uuid.empty()) {
        for (const auto& row : entries_.rows())
            if (row.content.counted) files.push_back({row.text, row.content.size_kb});
    } else if (const uuid_row* const found = files_of_uuid_.find(uuid)) {
        std::unordered_set<uint32_t> seen;
        for (const chain_link& link : found->links) {
            const chain& one = chains_[link.chain];
            const auto& row = entries_.rows()[one.entry];
            if (one.left_out == 0 && seen.insert(one.entry).second)
                files.push_back({row.text, row.content.size_kb});
        }
    }
    return files;
}

std::vector<uint32_t> size_register::files_of(const wide_string& uuid) const {
    std::vector<uint32_t> numbers;
    if (const uuid_row* const row = files_of_uuid_.find(uuid))
        for (const chain_link& link : row->links) numbers.push_back(chains_[link.chain].entry);
    return numbers;
}

std::vector<wide_string> size_register::known_paths() const {
    std::vector<wide_string> paths;
    paths.reserve(entries_.rows().size());
    for (const auto& entry : entries_.rows()) paths.push_back(entry.text);
    return paths;
}

void size_register::clear() {
    entries_.clear();
    chains_.clear();
    parents_.clear();
    files_of_uuid_.clear();
    total_kb_ = 0;
}

void selection_register::set_selected(const wide_string& uuid, bool selected) {
    if (uuid.empty()) return;
    if (selected)
        deselected_.erase(uuid);
    else
        deselected_.insert(uuid);
    sizes_->set_uuid_selected(uuid, selected);
}

} // namespace vs::project_resave
