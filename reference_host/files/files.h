// Reads and writes the files of the host: projects ("._vp"), scenes ("._sn" 2D, "._sc" 3D) and layers ("._lr"
// 2D, "._lrd" 3D). docs/project_format.md describes the format. Paths have their Windows form and go through
// the current system of the platform layer. A bad file never throws; functions return an error, or nothing on
// success.
//
// Reading changes `out` only if the whole file is valid. Relative references are resolved. Writing
// creates a new file next to the target and then replaces the target in one step; after a failure the target
// is unchanged and the new file is removed.
#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "platform/system.h"
#include "reference_host/files/file_error.h"
#include "reference_host/model/project.h"

namespace vestra::files {

// Relative references are resolved against `folder`, which ends with its separator, or against the file's own
// folder if it is empty.
//
// Sets the file name of the project to the path.
std::optional<file_error> read_project(const wide_string& path, project& out, wide_view folder = {});
// Fails if the file does not hold a scene of the kind of `out`.
std::optional<file_error> read_scene(const wide_string& path, scene& out, wide_view folder = {});
// Sets `out` to a new layer.
std::optional<file_error> read_layer(const wide_string& path, dimension kind, std::unique_ptr<layer>& out,
                                     wide_view folder = {});

// Calls `write` with a new file next to the path, which then replaces it in one step. After a failure the old
// file is intact and the new one is removed. Fails if the path exists and is not a file, such as a pipe.
vs::project_resave::platform::outcome replace_file(
    const wide_string& path,
    const std::function<vs::project_resave::platform::outcome(vs::project_resave::platform::file&)>& write);

// Fail if two entities have the same uuid, or if the result would be nested too deep or be too large to be
// read back. A parent that is not in the same file is omitted.
std::optional<file_error> write_project(const wide_string& path, const project& in);
std::optional<file_error> write_scene(const wide_string& path, const scene& in);
std::optional<file_error> write_layer(const wide_string& path, const layer& in);

} // namespace vestra::files
