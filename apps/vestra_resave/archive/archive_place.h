// Recognises paths of archives and of files in them. The commands that write and read "copy.zip" or
// "copy.tar.zst" see it as a folder; "copy.zip/area._vp" is a project in it.
#pragma once

#include <optional>

#include "apps/vestra_resave/archive/archive_file.h"
#include "apps/vestra_resave/commands.h"
#include "apps/vestra_resave/problems.h"

namespace vestra::command {

// An archive and the project in it that a path means.
struct archive_place {
    wide_string archive;
    archive_format format = archive_format::zip;
    wide_string inside; // path of the project in it; empty if only the archive is given

    // Returns the path of the project, as if the archive were a folder.
    wide_string project() const;
};

// True for the path of an archive and for paths in it; `archive_key` is the path key of the archive.
bool is_in_archive(const wide_string& path, const wide_string& archive_key);

// Returns the place if a name on the path, as typed by the user, ends in ".zip" or ".tar.zst" in any letter
// case and is not an existing folder. Of several such names the first one is the archive. Neither the archive
// nor the project in it need exist.
std::optional<archive_place> archive_in(const std::string& typed);

// Returns an error if the path of a project is that of an archive or in one: only `verify` and `list` read
// these, on a disk that shows the archive as a folder.
std::optional<refusal> refuse_packed_project(const wide_string& project);

// Returns why this resave must not write the archive: this program has no archive formats, its options cannot
// be combined with one, or an existing file must not be replaced, because --overwrite is missing or it is not
// an archive. Call it before the disk shows the archive as a folder.
std::optional<refusal> refuse_archive(const archive_place& place, const resave_request& request);

} // namespace vestra::command
