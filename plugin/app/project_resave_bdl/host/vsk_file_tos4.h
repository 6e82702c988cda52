// Host library vsk_file_tos4: reading of TOS files, the files of OAT tables. Implemented by the host, called
// by bundles on the main thread. host/types.h has the rules on null handles, ownership, texts and indexes.
#pragma once

#include "host/types.h"

extern "C" {

// Opens the file; `mode` is vs_open_for_reading. The caller owns the result. Null if the file cannot be read
// or is malformed, or for another mode.
vs_tos4_file* vs_tos4_file_open_w(const char16_t* path, int32_t mode);
// Closes the file, which frees the handle. Do not pass null: a host need not accept it here.
void vs_tos4_file_close(vs_tos4_file* file);
// Returns the number of properties, which are the table's columns; 0 for a null file.
uint32_t vs_tos4_get_prop_count(vs_tos4_file* file);
// Passes the caption of a property; the empty text at and beyond the count.
void vs_tos4_get_prop_caption_w(vs_tos4_file* file, uint32_t index, vs_string_adp* out);
}
