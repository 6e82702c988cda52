// Missing files of a project, looked for by name below folders that a person names. What is found is used by
// the project as it is loaded; its file on the disk stays as it is.
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

// The files and folders below some folders, by name in any letter case. Each folder is listed once, though
// links lead to it as well.
class file_index {
public:
    // Ends early once the host is to stop reading.
    void add(const wide_string& folder);
    // Returns the first hundred that have the name of the path and, if there are such, of its folder.
    std::vector<wide_string> like(const wide_string& path) const;
    // What could not be listed.
    const std::vector<vs::project_resave::platform::unread_folder>& unread() const { return unread_; }

private:
    struct entry {
        size_t folder;
        wide_string name;
    };
    void list(const wide_string& folder, std::vector<wide_string>& inner, std::vector<wide_string>& linked);

    std::vector<wide_string> folders_;
    std::unordered_map<wide_string, std::vector<entry>> by_name_; // folded, and with that of the folder
    std::set<vs::project_resave::platform::file_identity> seen_;
    std::vector<vs::project_resave::platform::unread_folder> unread_;
};

// A file is found if one of its name is clearly the one. The project must not refer to that one already, and
// what the project misses of the same folder and stem must be next to it. Of several the one counts whose
// folders have the names of the lost path's farthest up; if that is no single one, all that do so must hold
// the same bytes. Two lost files are never found in one. One at a time.
class lost_file_search {
public:
    lost_file_search() = default;
    ~lost_file_search() { end(); }
    lost_file_search(const lost_file_search&) = delete;
    lost_file_search& operator=(const lost_file_search&) = delete;

    // Has the host use what is found below these folders from now on. The disk is walked when the first file
    // is missed. Returns why a folder cannot be searched.
    std::optional<refusal> begin(const std::vector<std::string>& folders);
    // What is read after this is left as it is.
    void end();

    // What was found, and what could not be searched: notices.
    std::vector<problem> notices() const;
    // The lost files that may be one of several, as problems of their own.
    std::vector<problem> undecided() const { return undecided_; }
    // Gives each lost source that may be one of several files the reason and the candidates.
    void explain(std::vector<problem>& all) const;

private:
    struct lost_file {
        problem about;                       // its path is the lost one
        wide_string family;                  // key of the path without extension
        std::vector<wide_string> candidates; // files and folders of its name, complete or not
        wide_string choice = {};             // empty if none of them is clearly the one
        size_t agreement = 0; // how many folders above it have the names of those above the lost path
    };

    // What is lost of one folder and stem.
    struct lost_family {
        std::vector<wide_string> names;
        std::unordered_map<wide_string, bool> is_complete_in; // all of it, by the key of the folder
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
    std::unordered_set<wide_string> used_;                 // path keys of what the project refers to and has
    std::unordered_map<wide_string, wide_string> decided_; // new path, or empty, by the key of the lost one
    std::unordered_map<wide_string, wide_string> moved_;   // new folder, by the family
    std::vector<problem> found_, undecided_;
};

} // namespace vestra::command
