// NAME.manifest.json next to a saved project lists each of its files with the expected size and SHA-256, so
// that a copy can be checked after its source is gone. docs/commands.md describes its keys. A later --update
// takes from it which files belong to the copy and what they were.
#pragma once

#include <functional>
#include <optional>
#include <unordered_map>
#include <vector>

#include "apps/vestra_resave/problems.h"

namespace vestra::command {

struct verification;
struct earlier_file;
struct file_digest;
class continuation;

// Returns the path of the manifest of a project file.
wide_string manifest_path(const wide_string& project);

// Writes the manifest of the project that the run has just saved. An existing manifest is replaced, another
// file with this name is not. A copied file is recorded with the digest of its source, a file written by the
// run with its own; the log is left out. Files that existed before are marked, and files of earlier runs that
// nothing refers to are listed separately. Files in `known`, by the path keys of their copies, are recorded
// as they are there and not read. Returns what could not be read or written.
// Writes nothing after a stop.
std::vector<problem> write_manifest(vs::project_resave::run_state& run, continuation& earlier,
                                    const std::function<bool()>& is_stopped,
                                    const std::unordered_map<wide_string, earlier_file>* known = nullptr);
// Sets `files` to the files that resaves of the project made, as its manifest lists them, and `source`, if
// not null, to the project that was resaved. Both stay empty if there is no manifest. Returns why an existing
// manifest cannot be used.
std::optional<refusal> read_manifest(const wide_string& project, std::vector<earlier_file>& files,
                                     wide_string* source = nullptr);

// Sets the digest of a file, or fails with the reason. Called once for each file of the manifest that exists
// in the expected size.
using digest_reader =
    std::function<vs::project_resave::platform::outcome(const wide_string& path, file_digest& digest)>;
// Adds each file of the manifest that is missing or has changed to `found`. Returns an error if the manifest
// cannot be read. `begins` is called with the total number of bytes before the first file is read; `read`
// reads each file.
std::optional<refusal> compare_with_manifest(const wide_string& project,
                                             const std::function<void(uint64_t bytes)>& begins,
                                             const digest_reader& read,
                                             const std::function<bool()>& is_stopped, verification& found);

} // namespace vestra::command
