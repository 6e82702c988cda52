// Paths as text: no function here accesses a disk. Backslash and forward slash are both separators, "X:" at
// the start is a drive, and results have backslashes. Letter case matters unless a comment says otherwise. No
// function fails. All may be called from any thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/wide_string.h"

namespace vs::project_resave {

inline constexpr wide_view path_separators = u"\\/";

inline bool is_separator(char16_t c) { return c == u'\\' || c == u'/'; }

// Returns the path up to and including the last separator; empty if there is none.
wide_string path_head(wide_view path);
// Returns what follows the last separator; the whole path if there is none.
wide_string path_file_name(wide_view path);
// Returns the file name up to its last dot. A name whose only dot is its first character is all stem.
wide_string path_stem(wide_view path);
// Returns the rest of the file name, with its dot; empty if all of it is stem.
wide_string path_extension(wide_view path);

// Returns the path with another extension, given with or without its dot; an empty one removes the old one.
// Unlike in `path_extension`, the name ".tif" after a separator counts as an extension here; only a dot at
// the start of the whole text does not.
wide_string path_replace_extension(wide_view path, wide_view extension);
// Return the path with another stem, and with `suffix` added to its stem; folder and extension stay.
wide_string path_replace_stem(wide_view path, wide_view stem);
wide_string path_add_to_stem(wide_view path, wide_view suffix);
// Does the same in place.
inline void add_to_stem(wide_string& path, wide_view suffix) { path = path_add_to_stem(path, suffix); }

// True unless the path begins with a separator or has a colon as its second character.
bool path_is_relative(wide_view path);
// Returns the drive, as "C:" in the spelling of the path; empty if there is none.
wide_string path_root(wide_view path);
// Returns the length of the part at the start that cannot be created: "C:\", "\\server\share\", "\".
size_t path_fixed_length(wide_view path);

// Returns the pieces between separators, in order. An empty path has one empty piece, or none with
// `skip_empty`.
std::vector<wide_string> path_split(wide_view path, wide_view separators, bool skip_empty);
// Returns the path without ".", without "..", and without separator at the end. A ".." with nothing before it
// stays. "C:name" loses its name, and "C:\" its separator.
wide_string path_normalise(wide_view path);
// Returns the folder with a separator at the end, so that the name of an entry can be appended.
wide_string path_with_separator(wide_view folder);
// Returns `second` alone if it is not relative, else `first` and `second` with a separator between them.
wide_string path_join(wide_view first, wide_view second);
// Returns the path of `target` relative to the folder of the FILE `base`; so a folder given as base needs a
// separator at the end. Letter case is ignored. Returns the normalised `target` if one of them is relative or
// their drives differ, and an empty text for the folder itself.
wide_string path_relative(wide_view base, wide_view target);
// Returns the path normalised; a relative `path` starts from the folder of the FILE `base`.
wide_string path_resolve(wide_view base, wide_view path);

// True if both are the same path as text, after normalising and ignoring letter case.
bool path_same(wide_view first, wide_view second);
// Returns a key for look-up: two paths have equal keys exactly if `path_same` is true for them.
wide_string path_key(wide_view path);

// Returns a copy in which "_" replaces each character that no file name can contain; separators stay.
wide_string valid_name(wide_view name);
// Does the same, but keeps the colon of a drive.
wide_string valid_path(wide_view path);

// Returns a copy in which "_" replaces the dots of each piece that would lead above the start. So a caption
// can name a folder below another one, but none outside it.
wide_string held_below(wide_view name);

// The blanks that are cut off captions.
inline constexpr wide_view white_space = u" \t\n\r\v\f";
// Returns the text without the characters of `set` at its start and end.
wide_string trim(wide_view text, wide_view set);

// Returns the number in decimal.
wide_string decimal(uint32_t number);

} // namespace vs::project_resave
