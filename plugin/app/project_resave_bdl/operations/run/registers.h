// The registers of a loaded project: how many kilobytes the current selection comes to, and what is selected.
//
// While the tree is built, each file is entered under the uuids of the units being built. A path is needed
// while at least one of the ways it was entered has all its uuids selected; it counts once however often it
// is needed.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <unordered_set>
#include <vector>

#include "host/types.h"
#include "operations/run/path_files.h"
#include "operations/run/text_map.h"
#include "platform/wide_string.h"

namespace vs::project_resave {

class size_register {
public:
    // Stack of the units being built. An empty uuid is refused and must not be popped.
    bool push_parent(const wide_string& uuid);
    void pop_parent();

    // Enters a file or folder under the present stack; its size is read when it is met first. What does not
    // exist counts 0 and stays known. The number stands for the path until `clear`.
    uint32_t add_file(const found_file& file);
    std::vector<uint32_t> add_files(const std::vector<found_file>& files);
    const wide_string& path(uint32_t number) const { return entries_.rows()[number].text; }
    void add_wstrings(const vs_wstrings* paths);
    // Files the path under the uuids of the stack, or under the one given, without counting it. Kept for
    // other bundles; nothing here calls them.
    void add_path_to_parents(const wide_string& path);
    void add_path_to_uuid(const wide_string& uuid, const wide_string& path);

    void set_uuid_selected(const wide_string& uuid, bool selected);
    double total_kb() const { return total_kb_; }
    struct counted_file {
        wide_string path;
        double size_kb;
    };
    // What is selected, each spelling once. With a uuid only what was entered under it.
    std::vector<counted_file> counted_files(const wide_string& uuid = {}) const;
    // The numbers of the files that were entered under this uuid, as often as they were.
    std::vector<uint32_t> files_of(const wide_string& uuid) const;
    // All that was entered, each spelling once, in no order.
    std::vector<wide_string> known_paths() const;
    size_t path_count() const { return entries_.rows().size(); }
    // Forgets all paths and the stack; keeps the callback and does not call it.
    void clear();
    // Called after each change of a known uuid's state; may be empty.
    void set_on_changed(std::function<void()> callback) { on_changed_ = std::move(callback); }

private:
    // One way a path was entered: needed while none of its uuids is left out.
    struct chain {
        uint32_t entry;
        uint32_t left_out = 0;
    };
    struct size_entry {
        double size_kb = 0;
        uint32_t fulfilled = 0; // how many of its chains are
        bool counted = false;
    };
    // The place of a uuid in a chain. The flag is its own: a path entered later starts selected.
    struct chain_link {
        uint32_t chain;
        bool selected = true;
    };
    struct uuid_row {
        void add_bare(const wide_string& path);

        std::vector<chain_link> links; // in each chain the first place of the uuid
        std::unique_ptr<std::unordered_set<wide_string>> bare_paths; // without a chain; null while none
    };

    void link_parents(uint32_t chain_index);
    void recount(size_entry& entry);

    text_map<size_entry> entries_; // by path
    std::deque<chain> chains_;
    std::vector<uuid_row*> parents_;
    text_map<uuid_row> files_of_uuid_;
    double total_kb_ = 0;
    std::function<void()> on_changed_;
};

// Which elements the user has left out, by the text of their uuid. What it never heard of is selected.
class selection_register {
public:
    // `told` learns of every change; not owned.
    explicit selection_register(size_register* told) : sizes_(told) {}

    bool is_selected(const wide_string& uuid) const { return !deselected_.contains(uuid); }
    // An empty uuid changes nothing.
    void set_selected(const wide_string& uuid, bool selected);
    // The uuids that are not selected, in no order.
    const std::unordered_set<wide_string>& left_out() const { return deselected_; }
    // Everything is selected again; the sizes are not told.
    void clear() { deselected_.clear(); }

private:
    size_register* sizes_;
    std::unordered_set<wide_string> deselected_;
};

} // namespace vs::project_resave
