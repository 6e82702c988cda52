// NAME.manifest.json beside a saved project: each of its files with the size and the SHA-256 of the bytes
// that it is to hold. So a copy can be checked long after its source is gone.
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

// The path of the manifest that belongs to a project file.
wide_string manifest_path(const wide_string& project);

// Writes the manifest of a project that the run has just saved; one that exists is replaced, any other file
// of the name is not. A copied file is entered as its source is now, read once more; what the run wrote
// itself as it was written, and the log not at all; what was there before is marked. What an earlier run left
// and nothing refers to is named apart. Returns what could not be read or written; after a stop nothing is
// written. Files that are `known`, by the path keys of their copies, are entered as they are there and not
// read.
std::vector<problem> write_manifest(vs::project_resave::run_state& run, continuation& earlier,
                                    const std::function<bool()>& is_stopped,
                                    const std::unordered_map<wide_string, earlier_file>* known = nullptr);
// Sets `files` to what resaves of a project have made, by its manifest, and `source`, unless it is null, to
// the project that was resaved; both stay empty if there is none. Returns why one that exists is of no use.
std::optional<refusal> read_manifest(const wide_string& project, std::vector<earlier_file>& files,
                                     wide_string* source = nullptr);

using digest_reader =
    std::function<vs::project_resave::platform::outcome(const wide_string& path, file_digest& digest)>;
// Adds to what was found each file of the manifest that is missing or no longer as it was entered. Returns
// why there is nothing to compare with, if the manifest could not be read.
// `begins` is called before the first file is read, with the number of bytes of all; `read` sets the digest
// of a file.
std::optional<refusal> compare_with_manifest(const wide_string& project,
                                             const std::function<void(uint64_t bytes)>& begins,
                                             const digest_reader& read,
                                             const std::function<bool()>& is_stopped, verification& found);

} // namespace vestra::command
