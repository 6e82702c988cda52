// A zip says twice what is in it: before each entry, and in a directory at its end. libarchive goes by the
// first, most other programs, Windows among them, by the second, so that damage to one of them would be seen
// in one program only.
#pragma once

#include "platform/wide_string.h"

namespace vestra::command {

// True if the directory of the zip at the drive path names each of its entries as the entry itself does, with
// the same method and checksum. Call it only for a zip: another archive can contain one that looks like its
// end.
bool has_true_directory(const vs::project_resave::wide_string& path);

} // namespace vestra::command
