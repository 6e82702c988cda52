// Reader of TOS files (docs/tos_format.md). Strict: a file that breaks a rule of the format is not read.
#pragma once

#include <optional>
#include <vector>

#include "reference_host/files/file_error.h"
#include "reference_host/model/counted.h"

namespace vestra::datasets {

struct tos_file {
    std::vector<wide_string> properties; // captions of the columns
    std::vector<wide_string> members;    // relative to the file's folder; those of its stem written out
};

// Reads the file of a drive path to its end; members are not opened and need not exist. Nothing if it cannot
// be read or breaks a rule; `error` then tells why, if it is asked.
std::optional<tos_file> read_tos(const wide_string& path, files::file_error* error = nullptr);

} // namespace vestra::datasets
