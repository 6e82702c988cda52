// Protects what a run must not change: the source project and everything that it uses. All code of the bundle
// that overwrites a file asks this object first; everything is removed through it. Main thread only.
#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "platform/system.h"

namespace vs::project_resave {

class size_register;

class source_guard {
public:
    // Protects the paths in the register, including the whole content of folders; the register must outlive
    // this object.
    explicit source_guard(const size_register* known) : known_(known) {}
    source_guard(const source_guard&) = delete;
    source_guard& operator=(const source_guard&) = delete;

    // Protects a file or folder that the register does not count, such as a joined table. Ignores an empty
    // path.
    void add(const wide_string& path);
    // Removes the added paths; the register is read again.
    void clear();
    // Reads the disk again when next asked, since names may lead to other files than in the last run.
    void renew() { knows_identities_ = knows_links_ = knows_companions_ = false; }

    // True for a file or folder of the source, for a companion of one, and for everything in such a folder,
    // under any name: another spelling, a link, a second drive letter. Also true where nothing exists yet,
    // and for a broken link. Nothing is read before the first call; after that the cost does not depend on
    // the number of files.
    bool protects(const wide_string& path);
    // True for a folder that is one data set, and for everything below it.
    bool is_inside(const wide_string& path);
    // True if a copy at this path, or a companion copied with it, could be taken for a file of the source.
    // Compares only names.
    bool claims_family(const wide_string& path);

    // Why a protected path is neither written nor removed.
    static constexpr const char16_t* reason = u"it belongs to the source project";
    // Each of these fails for a protected path, with that reason.
    //
    // Removes a file, or a link but not its target.
    platform::outcome remove_file(const wide_string& path);
    // Removes an empty folder.
    platform::outcome remove_folder(const wide_string& path);
    // Removes a file, or a folder with all its content; a link is removed without its target. Continues after
    // an entry that cannot be removed, and then fails with the first reason.
    platform::outcome remove_tree(const wide_string& path);

private:
    using path_keys = std::unordered_set<wide_string>;

    // Each of these reads what it needs once; the names again if paths were added.
    void learn_names();
    void learn_identities();
    void learn_identity(const wide_string& path);
    // True if the name in that folder belongs to the source or is a companion of one of its files.
    bool is_named(const wide_string& folder_key, const wide_string& name);
    // True if the path is below a folder that belongs to the source as a whole.
    bool is_in_known_folder(const wide_string& path);
    void learn_folder(const wide_string& path, const platform::file_identity& identity);
    void learn_links();
    // Returns the keys of the companions of all files in a folder of the source.
    const path_keys& companions_in(const wide_string& folder_key);
    // True if the identity is that of a companion, through a symbolic or hard link.
    bool is_linked_companion(const platform::file_identity& asked);
    // Removes a file, a link or an empty folder; fails for a protected path.
    platform::outcome remove_alone(const wide_string& path);

    const size_register* known_;
    std::vector<wide_string> added_;
    static constexpr size_t nothing = SIZE_MAX;
    size_t learned_ = nothing; // number of paths that the rest was computed from
    path_keys keys_;
    std::set<platform::file_identity> identities_;
    std::unordered_map<wide_string, std::vector<wide_string>> by_folder_; // paths, by the key of their folder
    std::unordered_map<wide_string, path_keys> companions_;               // by folder key; computed on demand
    std::multimap<platform::file_identity, wide_string> folders_;         // keys of by_folder_
    std::set<platform::file_identity> linked_companions_, named_companions_; // by symbolic links; by any name
    path_keys inner_folders_; // folders that belong to the source as a whole
    std::set<platform::file_identity> inner_identities_;
    bool knows_identities_ = false, knows_links_ = false, knows_companions_ = false;
};

} // namespace vs::project_resave
