// Which paths lead into an archive: "copy.zip" and "copy.tar.zst" are folders to the commands that write and
// read them, and "copy.zip/area._vp" is a project in one.
#pragma once

#include <optional>

#include "apps/vestra_resave/archive/archive_file.h"
#include "apps/vestra_resave/commands.h"
#include "apps/vestra_resave/problems.h"

namespace vestra::command {

struct archive_place {
    wide_string archive;
    archive_format format = archive_format::zip;
    wide_string inside; // path of the project below it; empty where the archive alone is named

    wide_string project() const;
};

// Returns the place if one of the names on a path as a person types it ends in ".zip" or ".tar.zst", in any
// letter case, and is no folder that exists.
std::optional<archive_place> archive_in(const std::string& typed);

// Returns why this resave does not write an archive at its place: its options make no sense there, or
// something exists that is not to be replaced. To be called before the disk shows the archive as a folder.
std::optional<refusal> refuse_archive(const archive_place& place, const resave_request& request);

} // namespace vestra::command
