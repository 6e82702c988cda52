// Data sets as bundles see them: the files of a data set, and its records if it has any.
#pragma once

#include "host/interfaces/stat_source.h"
#include "reference_host/files/file_error.h"
#include "reference_host/model/tables.h"

namespace vestra::datasets {

// Opens the data set at `source`, a drive path of a file or folder; if `source` is empty, at the file of the
// table `data`, which may be null. Returns the identity of a new referent that implements stat_source; the
// caller must take a ref to it at once. Returns null if the main file does not exist or no format opens it.
// `error`, if given, receives the reason if the file could not be read and is left unchanged if there is no
// such file.
//
// Formats are tried in this order: the host's own (TOS files, where a damaged one is an error, grids, seismic
// files), shape files by their names, everything the geodata library knows including folders, and last all
// files with the same stem. The main file is listed as requested, the others in the requested folder.
vs::project_resave::identity_pointer open_source(wide_view source, const table_data* data = nullptr,
                                                 files::file_error* error = nullptr);

} // namespace vestra::datasets
