// Host library vsk_file_tos4: reading of TOS files.
#pragma once

#include "host/types.h"

extern "C" {

// `mode` is 1: reading. Null if the file cannot be read as a TOS file.
vs_tos4_file* vs_tos4_file_open_w(const char16_t* path, int32_t mode);
// Takes a file that is not null.
void vs_tos4_file_close(vs_tos4_file* file);
// 0 for a null file.
uint32_t vs_tos4_get_prop_count(vs_tos4_file* file);
void vs_tos4_get_prop_caption_w(vs_tos4_file* file, uint32_t index, vs_string_adp* out);
}
