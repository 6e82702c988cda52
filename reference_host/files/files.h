// Reading and writing the files of the host: projects ("._vp"), scenes ("._sn" 2D, "._sc" 3D) and layers
// ("._lr" 2D, "._lrd" 3D). The format is told in docs/project_format.md. Paths have their Windows form and
// go through the current system of the platform layer. Nothing throws for a bad file; an error is answered.
//
// Reading fills `out` only when all of the file is good; otherwise `out` stays as it was. References come
// out whole. Writing goes to a new file beside the target, which then takes the target's place in one step;
// after a failure the target is as it was before and nothing else is left.
#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "platform/system.h"
#include "reference_host/files/file_error.h"
#include "reference_host/model/project.h"

namespace vestra::files {

// With `folder`, which ends with its separator, references come out as if the file were in that folder; empty
// means its own.
//
// Sets the file of the project to the path.
std::optional<file_error> read_project(const wide_string& path, project& out, wide_view folder = {});
// The file must hold a scene of the kind of `out`.
std::optional<file_error> read_scene(const wide_string& path, scene& out, wide_view folder = {});
// `out` becomes a new layer.
std::optional<file_error> read_layer(const wide_string& path, dimension kind, std::unique_ptr<layer>& out,
                                     wide_view folder = {});

// Has `write` fill a new file beside the path, which then takes its place in one step: whatever fails, the
// file that was there is whole, and nothing else is left. Fails for what is no file, such as a pipe.
vs::project_resave::platform::outcome replace_file(
    const wide_string& path,
    const std::function<vs::project_resave::platform::outcome(vs::project_resave::platform::file&)>& write);

// Refused are an object in which two entities have one uuid, and what would nest too deep or be too large to
// be read again. A parent that is not in the file itself is left out.
std::optional<file_error> write_project(const wide_string& path, const project& in);
std::optional<file_error> write_scene(const wide_string& path, const scene& in);
std::optional<file_error> write_layer(const wide_string& path, const layer& in);

} // namespace vestra::files
