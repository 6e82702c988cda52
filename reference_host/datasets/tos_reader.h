// Reader of TOS files (docs/tos_format.md). Strict: a file that breaks a rule of the format is rejected.
#pragma once

#include <optional>
#include <vector>

#include "reference_host/files/file_error.h"
#include "reference_host/model/counted.h"

namespace vestra::datasets {

// The content of a TOS file, without its records.
struct tos_file {
    std::vector<wide_string> properties; // captions of the columns
    std::vector<wide_string> members;    // relative to the file's folder; the stem is filled in
};

// Reads the whole file at a drive path and checks every record, so the cost grows with the file. Members are
// not opened and need not exist. Returns nothing if the file cannot be read or breaks a rule; `error`, if
// given, then receives the reason.
std::optional<tos_file> read_tos(const wide_string& path, files::file_error* error = nullptr);

} // namespace vestra::datasets
