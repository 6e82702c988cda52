// What a run must not touch: the source project and everything that it uses. Whatever in the bundle writes
// over a file or removes one asks here first; removing goes through here alone. Main thread only.
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
    // Protects what the register knows, with all that is in a folder among it; the register must outlive
    // this object.
    explicit source_guard(const size_register* known) : known_(known) {}
    source_guard(const source_guard&) = delete;
    source_guard& operator=(const source_guard&) = delete;

    // Protects a file or folder that the register does not count, such as a joined table. Nothing for an
    // empty path.
    void add(const wide_string& path);
    // Forgets what was added; the register is asked anew.
    void clear();
    // Has the disk asked anew: names may lead to other files than at the last run.
    void renew() { knows_identities_ = knows_links_ = knows_companions_ = false; }

    // True for a file or folder of the source, for a companion of one and for all that is in a folder of it,
    // under whatever name: another spelling, a link, a second drive letter; also where nothing exists yet,
    // and for a link that leads nowhere. Nothing is read until somebody asks; later answers cost the same
    // however many files there are.
    bool protects(const wide_string& path);
    // True for what is below a folder that is one data set, and for such a folder.
    bool is_inside(const wide_string& path);
    // True if a copy at this path, or a companion that comes along, would pass for a file of the source. Only
    // names are compared.
    bool claims_family(const wide_string& path);

    // Why what is protected is neither written nor removed.
    static constexpr const char16_t* reason = u"it belongs to the source project";
    // Each fails for what is protected, for that reason.
    //
    // Removes a file, or a link but not its target.
    platform::outcome remove_file(const wide_string& path);
    // Removes an empty folder.
    platform::outcome remove_folder(const wide_string& path);
    // Removes a file, or a folder with all it holds; a link goes without what it leads to. Goes on past what
    // cannot be removed, and then fails with the first reason.
    platform::outcome remove_tree(const wide_string& path);

private:
    using path_keys = std::unordered_set<wide_string>;

    void learn_names();
    void learn_identities();
    void learn_identity(const wide_string& path);
    bool is_named(const wide_string& folder_key, const wide_string& name);
    bool is_in_known_folder(const wide_string& path);
    void learn_folder(const wide_string& path, const platform::file_identity& identity);
    void learn_links();
    const path_keys& companions_in(const wide_string& folder_key);
    bool is_linked_companion(const platform::file_identity& asked);
    platform::outcome remove_alone(const wide_string& path);

    const size_register* known_;
    std::vector<wide_string> added_;
    static constexpr size_t nothing = SIZE_MAX;
    size_t learned_ = nothing; // how many paths the rest was made from
    path_keys keys_;
    std::set<platform::file_identity> identities_;
    std::unordered_map<wide_string, std::vector<wide_string>> by_folder_; // paths, by the key of their folder
    std::unordered_map<wide_string, path_keys> companions_;               // made when a folder is asked for
    std::multimap<platform::file_identity, wide_string> folders_;         // keys of by_folder_
    std::set<platform::file_identity> linked_companions_, named_companions_; // by symbolic links; by any name
    path_keys inner_folders_; // folders of the source, whatever is in them
    std::set<platform::file_identity> inner_identities_;
    bool knows_identities_ = false, knows_links_ = false, knows_companions_ = false;
};

} // namespace vs::project_resave
