// Which files make a data set, found by their names. Each function returns the main file first, exactly as
// requested, then the others in the requested folder with their names as spelled on the disk. Names are
// compared without regard to letter case.
#pragma once

#include <optional>
#include <vector>

#include "reference_host/model/counted.h"

namespace vestra::datasets {

using file_list = std::vector<wide_string>;

// Returns the existing companions of a shape file; only the main file is opened. Returns nothing if the file
// is not a shape file. The cost does not depend on the size of the folder.
std::optional<file_list> shape_family(const wide_string& path);

// For a grid whose folder has the same name as the file, returns all files of that folder; otherwise only the
// main file.
file_list grid_family(const wide_string& path);

// Returns all files of the folder that have the same stem. A folder is read once for all its families, and
// again when its entries have changed.
file_list same_stem_family(const wide_string& path);

// Returns the files of a set whose format keeps all of them under one stem, as the geodata library would,
// without opening them. Returns nothing if only the library can know: the format is another one, or a file of
// the same stem is not one of those that this format always uses. Rasters can also have metadata under fixed
// names in their folder; only in a large folder, where the library gets just the names near the file, that
// does not count.
std::optional<file_list> known_family(const wide_string& path);

// Returns the names in a large folder that begin with the file's stem. Returns nothing for a folder of up to
// 1000 files, which the caller can read as a whole.
std::optional<std::vector<wide_string>> near_names_in_large_folder(const wide_string& path);

} // namespace vestra::datasets
