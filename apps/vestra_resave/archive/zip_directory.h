// A zip describes its entries twice: before each entry, and in a directory at its end. libarchive uses the
// first description, most other programs, Windows among them, the second. If the two differ, by damage or by
// intent, these programs see another content.
#pragma once

#include "platform/wide_string.h"

namespace vestra::command {

// True if the directory of the zip at the drive path names each of its entries as the entry itself does, with
// the same method and checksum. Call it only for a zip: another archive can contain one that looks like its
// end.
bool has_true_directory(const vs::project_resave::wide_string& path);

} // namespace vestra::command
