// Which files of an earlier project are its own, where no manifest tells, and which of them others need.
#pragma once

#include <set>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "apps/vestra_resave/earlier_files.h"
#include "operations/run/path_placement.h"
#include "platform/system.h"

namespace vs::project_resave {
class project_context;
}

namespace vestra::command {

// The files in the folder of `project`, which is loaded, that it refers to, with what lies next to them as
// their companions. Nothing is known of them but that; of scene files, that they were saved with the project
// if they are not younger.
std::vector<earlier_file> referred_files(vs::project_resave::project_context& context,
                                         const wide_string& project);

// The files beside those of the loaded project that may belong to them: they begin, under some name, with the
// stem of a source file, or a virtual source reads them. The guard knows only the names of usual companions;
// this asks the disk and the formats. As the disk was when it was asked first.
class source_neighbours {
public:
    explicit source_neighbours(const vs::project_resave::project_context& context) : context_(context) {}
    bool contain(const wide_string& path);

private:
    void learn();

    const vs::project_resave::project_context& context_;
    bool is_learned_ = false;
    std::set<platform::file_identity> identities_;
};

// Who needs a file that the project at `project` refers to no more: the loaded project, or another project or
// scene in the folder, of which only names are compared; those among `going` do not count. The disk in force
// must show the files.
class other_users {
public:
    other_users(vs::project_resave::project_context& context, const wide_string& project,
                const std::vector<wide_string>& going);
    bool need(const wide_string& path);

private:
    void add_names_in(const wide_string& path);

    vs::project_resave::project_context& context_;
    source_neighbours neighbours_;
    std::unordered_set<wide_string> named_; // folded names up to their first dot
};

// The copies of a run, for the question which file beside them is read with one of them.
class placed_copies {
public:
    explicit placed_copies(const vs::project_resave::placed_files& placed);
    // The copy with which programs would read the file at `path`, as its index or its projection; null if
    // there is none.
    const wide_string* read_with(const wide_string& path) const;

private:
    std::unordered_map<wide_string, const wide_string*> by_name_, by_projection_; // by path key
};

} // namespace vestra::command
