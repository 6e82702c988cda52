// Data sets as bundles see them: which files make one, and the records of those that have some.
#pragma once

#include "host/interfaces/stat_source.h"
#include "reference_host/files/file_error.h"
#include "reference_host/model/tables.h"

namespace vestra::datasets {

// Opens the data set of a source text, a drive path of a file or folder; where that is empty, the file of the
// table `data`, which may be null. Answers the identity of a fresh referent that speaks stat_source, of which
// the caller takes a ref at once; null if the main file does not exist or nothing can open it: `error`, if it
// is asked, then tells why it could not be read, and stays as it was if there is no such file.
//
// Asked first are the host's own formats: TOS files (a damaged one does not open), grids, seismic files. Then
// come shape files by their names, what the library of geodata formats knows, folders too, and for any other
// file the files of the same stem. The main file is told as asked, the others in the folder as asked.
vs::project_resave::identity_pointer open_source(wide_view source, const table_data* data = nullptr,
                                                 files::file_error* error = nullptr);

} // namespace vestra::datasets
