// Storage of the bundle's data: extra values of the project's layers, so that the host reads and writes them
// with the project. A value is a tuple of rows; a row is a text, or a tuple of texts.
#pragma once

#include "host/types.h"
#include "platform/wide_string.h"

namespace sample {

using vs::project_resave::wide_string;

// Returns the rows that a layer has under this key; null if it has none. They belong to the layer and are
// valid until its value is changed.
vs_tuple* rows_of(vs_lr* layer, const char* key);

// Returns a text of a row; empty if there is none.
wide_string text_at(vs_tuple* row, uint32_t place);

} // namespace sample
