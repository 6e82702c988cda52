// Reads the field names of a DBF table from the header of its file.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "reference_host/files/file_error.h"
#include "reference_host/model/counted.h"

namespace vestra::datasets {

// Returns the names in the order of the fields, in the current code page of the operating system. The code
// page of the file comes from the ".cpg" file next to it, otherwise from its header. Returns nothing if the
// file at the drive path cannot be read or is not a DBF table; `error`, if given, then receives the reason.
// Works on every target, because it does not use the geodata library.
std::optional<std::vector<std::string>> dbf_field_names(const wide_string& path,
                                                        files::file_error* error = nullptr);

} // namespace vestra::datasets
