// Paths as text: nothing here looks at a disk. Backslash and forward slash are both separators, "X:" at the
// start is a drive, results have backslashes. Letter case counts unless a comment says otherwise. No function
// fails.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/wide_string.h"

namespace vs::project_resave {

inline constexpr wide_view path_separators = u"\\/";

inline bool is_separator(char16_t c) { return c == u'\\' || c == u'/'; }

// Up to and including the last separator; empty if there is none.
wide_string path_head(wide_view path);
// After the last separator; all of it if there is none.
wide_string path_file_name(wide_view path);
// The file name up to its last dot. A name whose only dot is its first character is all stem.
wide_string path_stem(wide_view path);
// The rest of the file name, with its dot; empty if all of it is stem.
wide_string path_extension(wide_view path);

// `extension` is given with or without its dot; empty removes the old one. Unlike for `path_extension` the
// name ".tif" after a separator counts as an extension here: only a dot at the start of the whole text does
// not.
wide_string path_replace_extension(wide_view path, wide_view extension);
wide_string path_replace_stem(wide_view path, wide_view stem);
wide_string path_add_to_stem(wide_view path, wide_view suffix);
// The same in place.
inline void add_to_stem(wide_string& path, wide_view suffix) { path = path_add_to_stem(path, suffix); }

// False for a path that begins with a separator, and for one with a colon as its second character.
bool path_is_relative(wide_view path);
// The drive, as "C:" in the spelling of the path; empty if there is none.
wide_string path_root(wide_view path);
// Length of the part at the start that nobody can create: "C:\", "\\server\share\", "\".
size_t path_fixed_length(wide_view path);

// The pieces between separators, in order; an empty path has one empty piece, or none with `skip_empty`.
std::vector<wide_string> path_split(wide_view path, wide_view separators, bool skip_empty);
// Without "." and, where something precedes it, without ".."; no separator at the end. A ".." at the top
// stays. "C:name" loses its name, and "C:\" its separator.
wide_string path_normalise(wide_view path);
// With a separator at the end, so that the name of an entry can follow.
wide_string path_with_separator(wide_view folder);
// `second` alone if it is not relative, else after `first` with a separator between them.
wide_string path_join(wide_view first, wide_view second);
// The way from the folder of the FILE `base` to `target`, so a folder given as base needs its separator at
// the end. Letter case is ignored. The normalised `target` if one of them is relative or their drives differ;
// empty for the folder itself.
wide_string path_relative(wide_view base, wide_view target);
// Normalised; a relative `path` starts from the folder of the FILE `base`.
wide_string path_resolve(wide_view base, wide_view path);

// True if both name the same place as text: normalised, letter case ignored.
bool path_same(wide_view first, wide_view second);
// Two texts have equal keys exactly if `path_same` finds them the same.
wide_string path_key(wide_view path);

// A copy in which each character that no file name can contain is "_"; separators stay.
wide_string valid_name(wide_view name);
// The same; the colon of a drive stays.
wide_string valid_path(wide_view path);

// A copy in which the dots of each piece that would lead above the start are "_": a caption can name a folder
// below another one, but none outside it.
wide_string held_below(wide_view name);

// Blanks as they are cut off captions.
inline constexpr wide_view white_space = u" \t\n\r\v\f";
// Without the characters of `set` at the start and the end.
wide_string trim(wide_view text, wide_view set);

// A number in decimal.
wide_string decimal(uint32_t number);

} // namespace vs::project_resave
