// The registers of a loaded project: how many kilobytes are selected, and which elements are. Main thread
// only.
//
// While the tree is built, each file is entered under the uuids of the units being built. A path is needed
// while all uuids of at least one of its entries are selected; it counts once however often it is needed.
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
    // The stack of units being built. Returns false and pushes nothing for an empty uuid, which then must not
    // be popped.
    bool push_parent(const wide_string& uuid);
    // Removes the last uuid pushed.
    void pop_parent();

    // Enters a file or folder under the current stack and returns its number, which identifies the path until
    // `clear`. Its size is read the first time; a path that does not exist counts 0 and stays known.
    uint32_t add_file(const found_file& file);
    // Does the same for each file; returns their numbers.
    std::vector<uint32_t> add_files(const std::vector<found_file>& files);
    // Returns the path with this number.
    const wide_string& path(uint32_t number) const { return entries_.rows()[number].text; }
    // Enters each text of the list as a path.
    void add_wstrings(const vs_wstrings* paths);
    // Enter the path under the uuids of the stack, or under the given one, without counting it. Kept for
    // other bundles; nothing here calls them.
    void add_path_to_parents(const wide_string& path);
    void add_path_to_uuid(const wide_string& uuid, const wide_string& path);

    // Adds or removes the files under a uuid and calls the observer; ignores a uuid without files.
    void set_uuid_selected(const wide_string& uuid, bool selected);
    // Returns the size of the selection in kilobytes (1024 bytes).
    double total_kb() const { return total_kb_; }
    // A path as it was entered, and its size in kilobytes.
    struct counted_file {
        wide_string path;
        double size_kb;
    };
    // Returns the files that are selected, each spelling once; with a uuid, only those entered under it.
    std::vector<counted_file> counted_files(const wide_string& uuid = {}) const;
    // Returns the numbers of the files entered under this uuid, with repetitions.
    std::vector<uint32_t> files_of(const wide_string& uuid) const;
    // Returns all paths that were entered, each spelling once, in no particular order.
    std::vector<wide_string> known_paths() const;
    // Returns the number of known paths.
    size_t path_count() const { return entries_.rows().size(); }
    // Removes all paths and the stack; keeps the callback without calling it.
    void clear();
    // Sets the function called after each change of a known uuid's state; may be empty.
    void set_on_changed(std::function<void()> callback) { on_changed_ = std::move(callback); }

private:
    // One entry of a path: it is needed while none of its uuids is left out.
    struct chain {
        uint32_t entry;
        uint32_t left_out = 0;
    };
    struct size_entry {
        double size_kb = 0;
        uint32_t fulfilled = 0; // how many of its chains are needed
        bool counted = false;
    };
    // A uuid's position in a chain. The flag belongs to the position: a path entered later starts as
    // selected.
    struct chain_link {
        uint32_t chain;
        bool selected = true;
    };
    struct uuid_row {
        void add_bare(const wide_string& path);

        std::vector<chain_link> links; // for each chain, the first position of the uuid
        std::unique_ptr<std::unordered_set<wide_string>> bare_paths; // paths without a chain; null if none
    };

    // Enters a chain under each uuid of the stack.
    void link_parents(uint32_t chain_index);
    // Updates the total after a change of `fulfilled`.
    void recount(size_entry& entry);

    text_map<size_entry> entries_; // by path
    std::deque<chain> chains_;
    std::vector<uuid_row*> parents_;
    text_map<uuid_row> files_of_uuid_;
    double total_kb_ = 0;
    std::function<void()> on_changed_;
};

// The elements that the user has left out, by uuid text. An unknown uuid counts as selected.
class selection_register {
public:
    // `told` is informed of every change; not owned.
    explicit selection_register(size_register* told) : sizes_(told) {}

    // True unless the element was left out.
    bool is_selected(const wide_string& uuid) const { return !deselected_.contains(uuid); }
    // Selects or leaves out an element; ignores an empty uuid.
    void set_selected(const wide_string& uuid, bool selected);
    // Returns the uuids that are not selected, in no particular order.
    const std::unordered_set<wide_string>& left_out() const { return deselected_; }
    // Selects everything again, without informing the size register.
    void clear() { deselected_.clear(); }

private:
    size_register* sizes_;
    std::unordered_set<wide_string> deselected_;
};

} // namespace vs::project_resave
