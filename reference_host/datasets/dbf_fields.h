// The field names of a DBF table, read from its header alone.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "reference_host/files/file_error.h"
#include "reference_host/model/counted.h"

namespace vestra::datasets {

// The names in the order of the fields, in the system's code page. The file's own code page is told by the
// ".cpg" file beside it, else by the mark in its header. Nothing if the file of the drive path cannot be read
// or is no DBF table; `error` then tells why, if it is asked. Needs no library of geodata formats, so it
// answers on every target.
std::optional<std::vector<std::string>> dbf_field_names(const wide_string& path,
                                                        files::file_error* error = nullptr);

} // namespace vestra::datasets
