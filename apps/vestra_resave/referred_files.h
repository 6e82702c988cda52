// Which files of an earlier project are its own, where no manifest tells, and which of them others need.
#pragma once

#include <set>
#include <unordered_set>
#include <vector>

#include "apps/vestra_resave/earlier_files.h"
#include "platform/system.h"

namespace vs::project_resave {
class project_context;
}

namespace vestra::command {

// The files below `folder` that the loaded project refers to, with what lies next to them as their companion.
// Nothing is known of them but that.
std::vector<earlier_file> referred_files(vs::project_resave::project_context& context,
                                         const wide_string& folder);

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

// Who needs a file that the project at `project` refers to no more: the loaded project, or another one in the
// same folder that has a manifest. The disk in force must show the file.
class other_users {
public:
    other_users(vs::project_resave::project_context& context, const wide_string& project);
    bool need(const wide_string& path);

private:
    vs::project_resave::project_context& context_;
    source_neighbours neighbours_;
    std::unordered_set<wide_string> named_; // path keys, by other manifests
};

} // namespace vestra::command
