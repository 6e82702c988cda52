// Missing files of a project, searched by name in folders that the user gives. The loaded project uses the
// files found; the project file on the disk is not changed. Main thread only.
#pragma once

#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "apps/vestra_resave/companions.h"
#include "apps/vestra_resave/problems.h"
#include "platform/system.h"

namespace vestra::command {

// An index of the files and folders below given folders by name, ignoring letter case. Each folder is listed
// once, even if links lead to it.
class file_index {
public:
    // Adds everything below the folder, at any depth. Stops early if the host is to stop reading.
    void add(const wide_string& folder);
    // Returns at most a hundred paths with the same name; only those in a folder of the same name if there
    // are any.
    std::vector<wide_string> like(const wide_string& path) const;
    // Returns the folders that could not be listed.
    const std::vector<vs::project_resave::platform::unread_folder>& unread() const { return unread_; }

private:
    struct entry {
        size_t folder;
        wide_string name;
    };
    void list(const wide_string& folder, std::vector<wide_string>& inner, std::vector<wide_string>& linked);

    std::vector<wide_string> folders_;
    // By folded name, and by folder name and file name.
    std::unordered_map<wide_string, std::vector<entry>> by_name_;
    std::set<vs::project_resave::platform::file_identity> seen_;
    std::vector<vs::project_resave::platform::unread_folder> unread_;
};

// Decides which file replaces a lost one. A candidate must have the same name, the project must not refer to
// it already, and the other lost files of the same folder and stem must be next to it. Of several candidates,
// the one whose parent folders agree with the lost path over most levels is used; if several agree equally,
// they must have identical content. Two lost files never get the same candidate. Only one search can be
// active at a time.
class lost_file_search {
public:
    lost_file_search() = default;
    ~lost_file_search() { end(); }
    lost_file_search(const lost_file_search&) = delete;
    lost_file_search& operator=(const lost_file_search&) = delete;

    // Makes the host use files found below these folders from now on, in every project and scene that it
    // reads: it installs the callbacks `project_read` and `scene_read` of the host's settings. The disk is
    // searched when the first file is missing, so a project without losses costs nothing. Returns why a
    // folder cannot be searched; does nothing without folders.
    std::optional<refusal> begin(const std::vector<std::string>& folders);
    // Removes the callbacks: files read after this are left as they are. What was found stays available.
    void end();

    // Returns notices about what was found and what could not be searched.
    std::vector<problem> notices() const;
    // Returns the lost files with several possible candidates, as separate problems, for a command that
    // reports no other losses.
    std::vector<problem> undecided() const { return undecided_; }
    // Adds the reason and the candidates to each lost source in `all` that has several possible candidates,
    // for a command whose run reports the losses itself.
    void explain(std::vector<problem>& all) const;

private:
    struct lost_file {
        problem about;                       // `path` is the lost one
        wide_string family;                  // key of the path without extension
        std::vector<wide_string> candidates; // files and folders of its name, complete or not
        wide_string choice = {};             // empty if there is no clear candidate
        size_t agreement = 0;                // number of parent folders that agree with the lost path
    };

    // All lost files of one folder and stem.
    struct lost_family {
        std::vector<wide_string> names;
        // True if the folder has all of them; by folder key.
        std::unordered_map<wide_string, bool> is_complete_in;
    };

    template <class Model>
    void find_in(Model& model, bool model_files);
    void decide(std::vector<lost_file>& all);
    std::vector<wide_string> candidates_for(const wide_string& path);
    void choose(lost_file& lost, lost_family& family);
    void take_found(std::vector<lost_file>& all);
    bool hold_same_data(const std::vector<wide_string>& all);

    std::vector<wide_string> roots_;
    bool is_active_ = false, is_walked_ = false;
    file_index index_;
    listed_folders folders_;
    // Path keys of existing files that the project refers to.
    std::unordered_set<wide_string> used_;
    std::unordered_map<wide_string, wide_string> decided_; // new path, or empty; by the key of the lost path
    std::unordered_map<wide_string, wide_string> moved_;   // new folder, by the family
    std::vector<problem> found_, undecided_;
};

} // namespace vestra::command
