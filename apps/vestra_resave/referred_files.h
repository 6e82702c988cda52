// Files of an earlier project without a manifest: which belong to it, and which of them are needed by others.
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

// Returns the files in the folder of `project`, which is loaded, that it refers to, and their companions,
// each once. Nothing else is known of them, except that scene files that are not newer than the project were
// saved with it. Lists the folder of each.
std::vector<earlier_file> referred_files(vs::project_resave::project_context& context,
                                         const wide_string& project);

// Files next to those of the loaded project that may belong to them: their name begins with the stem of a
// source file, or a virtual source reads them. The guard only knows the names of common companions, while
// this class asks the disk and the formats. Uses the state of the disk at the first call.
class source_neighbours {
public:
    // `sources` are the paths that the loaded project refers to; a run clears the register that knows them.
    explicit source_neighbours(std::vector<wide_string> sources) : sources_(std::move(sources)) {}
    // True if the file at `path` may belong to a source, under any name or link. The first call lists all
    // folders of the project and reads its virtual data sets.
    bool contain(const wide_string& path);

private:
    void learn();

    const std::vector<wide_string> sources_;
    bool is_learned_ = false;
    std::set<platform::file_identity> identities_;
};

// Finds out whether a file that the project at `project` no longer refers to is needed by the loaded project,
// or by another project or scene in the folder. For the latter only names are compared, up to their first
// dot, so rather too many files count as needed; if one of those projects and scenes cannot be read, all do.
// Projects and scenes in `going` are ignored. The current disk must show the files. The constructor reads all
// projects, scenes and layers below the folder.
class other_users {
public:
    // `sources` as above.
    other_users(vs::project_resave::project_context& context, const wide_string& project,
                std::vector<wide_string> sources, const std::vector<wide_string>& going);
    // True if the file at `path` is needed by anything but the project.
    bool need(const wide_string& path);

private:
    void add_names_in(const wide_string& path);

    vs::project_resave::project_context& context_;
    source_neighbours neighbours_;
    const wide_string folder_;
    std::unordered_set<wide_string> named_; // folded names up to their first dot
    bool has_unread_ = false;
};

// The copies of a run, to find out which other file next to them is read with one of them.
class placed_copies {
public:
    explicit placed_copies(const vs::project_resave::placed_files& placed);
    // Returns the copy that programs would read together with the file at `path`, as its index or projection;
    // null if there is none.
    const wide_string* read_with(const wide_string& path) const;

private:
    std::unordered_map<wide_string, const wide_string*> by_name_, by_whole_name_; // by path key
};

} // namespace vestra::command
