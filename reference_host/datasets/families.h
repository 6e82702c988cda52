// Which files make a data set, told from their names. Each function tells the main file first, exactly as
// asked, and the others with the folder as asked and the names as they are spelled on the disk. Letter case
// is ignored when names are compared.
#pragma once

#include <optional>
#include <vector>

#include "reference_host/model/counted.h"

namespace vestra::datasets {

using file_list = std::vector<wide_string>;

// The companions that a shape file can have, without a look into any but the main file. None if that is no
// shape file. Costs the same in a folder of any size.
std::optional<file_list> shape_family(const wide_string& path);

// A grid that lives in a folder of its own, named as the file, with all files of that folder; else the main
// file alone.
file_list grid_family(const wide_string& path);

// All files of the folder that share the stem. A folder is read once for all its families, and again when
// its entries have changed.
file_list same_stem_family(const wide_string& path);

// The names in a large folder that begin with the file's stem. None for a folder of fair
// size, which whoever looks for companions can read whole.
std::optional<std::vector<wide_string>> near_names_in_large_folder(const wide_string& path);

} // namespace vestra::datasets
