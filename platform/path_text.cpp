// Paths are taken apart and put together as text here, once for both targets: the standard library's paths
// would split them differently on each.

#include "platform/path_text.h"

#include <algorithm>
#include <string>

#include "platform/text.h"

namespace vs::project_resave {

namespace {

wide_view file_name_of(wide_view path) {
    const size_t last = path.find_last_of(path_separators);
    return last == wide_view::npos ? path : path.substr(last + 1);
}

// Returns where the extension of a file name begins; its length if it has none.
size_t extension_start(wide_view file_name) {
    const size_t dot = file_name.rfind(u'.');
    return dot == wide_view::npos || dot == 0 ? file_name.size() : dot;
}

using piece_views = std::vector<wide_view>;

piece_views pieces_of(wide_view path, wide_view separators = path_separators, bool skip_empty = true) {
    piece_views pieces;
    for (size_t start = 0; start <= path.size();) {
        const size_t end = std::min(path.find_first_of(separators, start), path.size());
        if (end > start || !skip_empty) pieces.push_back(path.substr(start, end - start));
        start = end + 1;
    }
    return pieces;
}

void append_pieces(wide_string& path, const piece_views& pieces, size_t first) {
    for (size_t i = first; i < pieces.size(); ++i) path.append(pieces[i]).push_back(u'\\');
}

void drop_last_character(wide_string& path) {
    if (!path.empty()) path.pop_back();
}

// True for a path with a drive that normalising would not change, as for most paths: they need no work.
bool is_normal(wide_view path) {
    const auto is_letter = [](char16_t c) { return (c | 0x20) >= u'a' && (c | 0x20) <= u'z'; };
    if (path.size() < 4 || !is_letter(path[0]) || path[1] != u':' || path[2] != u'\\') return false;
    char16_t before = u':';
    for (const char16_t c : path.substr(2)) {
        if (c == u'/' || (before == u'\\' && (c == u'\\' || c == u'.'))) return false;
        before = c;
    }
    return before != u'\\';
}

// Returns "C:\a" for "C:\a\", as the folder of a path is given.
wide_view without_last_separator(wide_view path) {
    return path.size() > 3 && path.back() == u'\\' ? path.substr(0, path.size() - 1) : path;
}

bool same_piece(wide_view a, wide_view b) { return platform::compare_no_case(a, b) == 0; }

} // namespace

wide_string path_head(wide_view path) {
    return wide_string(path.substr(0, path.size() - file_name_of(path).size()));
}

wide_string path_file_name(wide_view path) { return wide_string(file_name_of(path)); }

wide_string path_stem(wide_view path) {
    const wide_view name = file_name_of(path);
    return wide_string(name.substr(0, extension_start(name)));
}

wide_string path_extension(wide_view path) {
    const wide_view name = file_name_of(path);
    return wide_string(name.substr(extension_start(name)));
}

wide_string path_replace_extension(wide_view path, wide_view extension) {
    // Kept as users know it: the extension is searched in the whole text, so the dot of a name like ".tif"
    // counts after a separator.
    const size_t end = path.find_last_of(u".\\/");
    const bool has_extension = end != wide_view::npos && end != 0 && path[end] == u'.';
    wide_string result(path.substr(0, has_extension ? end : path.size()));
    if (!extension.empty() && !extension.starts_with(u'.')) result += u'.';
    return result.append(extension);
}

wide_string path_replace_stem(wide_view path, wide_view stem) {
    return path_head(path).append(stem).append(path_extension(path));
}

wide_string path_add_to_stem(wide_view path, wide_view suffix) {
    return path_head(path).append(path_stem(path)).append(suffix).append(path_extension(path));
}

bool path_is_relative(wide_view path) {
    if (path.empty()) return true;
    return !is_separator(path[0]) && !(path.size() > 1 && path[1] == u':');
}

wide_string path_root(wide_view path) {
    if (path.size() < 2 || path[1] != u':') return {};
    const char16_t letter = path[0];
    const bool is_drive = (letter >= u'A' && letter <= u'Z') || (letter >= u'a' && letter <= u'z');
    return is_drive ? wide_string(path.substr(0, 2)) : wide_string();
}

size_t path_fixed_length(wide_view path) {
    const auto behind_separator = [&](size_t from) {
        const size_t separator = path.find_first_of(path_separators, from);
        return separator == wide_view::npos ? path.size() : separator + 1;
    };
    if (!path_root(path).empty()) return path.size() > 2 && is_separator(path[2]) ? 3 : 2;
    if (path.empty() || !is_separator(path[0])) return 0;
    if (path.size() == 1 || !is_separator(path[1])) return 1;
    return behind_separator(behind_separator(2));
}

std::vector<wide_string> path_split(wide_view path, wide_view separators, bool skip_empty) {
    const piece_views pieces = pieces_of(path, separators, skip_empty);
    return {pieces.begin(), pieces.end()};
}

wide_string path_normalise(wide_view path) {
    if (const wide_view bare = without_last_separator(path); is_normal(bare)) return wide_string(bare);
    const wide_string root = path_root(path);
    const piece_views pieces = pieces_of(path);
    piece_views kept;
    // The first piece is the drive, with whatever follows its colon; so "C:name" loses its name.
    for (size_t i = root.empty() ? 0 : 1; i < pieces.size(); ++i) {
        if (pieces[i] == u".") continue;
        if (pieces[i] == u".." && !kept.empty() && kept.back() != u"..")
            kept.pop_back();
        else
            kept.push_back(pieces[i]);
    }
    wide_string result;
    result.reserve(path.size() + 1);
    if (!path.empty() && is_separator(path[0])) {
        result += u'\\';
        // A network path begins with two separators, which must not become one.
        if (path.size() > 1 && is_separator(path[1])) result += u'\\';
    }
    if (!root.empty()) result.append(root).push_back(u'\\');
    append_pieces(result, kept, 0);
    drop_last_character(result);
    return result;
}

wide_string path_with_separator(wide_view folder) {
    wide_string result(folder);
    if (result.empty() || !is_separator(result.back())) result += u'\\';
    return result;
}

wide_string path_join(wide_view first, wide_view second) {
    if (second.empty()) return wide_string(first);
    if (first.empty() || !path_is_relative(second)) return wide_string(second);
    return path_with_separator(first).append(second);
}

wide_string path_relative(wide_view base, wide_view target) {
    const wide_string folder = path_normalise(path_head(base));
    wide_string normal = path_normalise(target);
    if (path_is_relative(folder) || path_is_relative(normal)) return normal;
    const wide_string base_root = path_root(folder);
    const wide_string root = path_root(normal);
    // Without a drive the target is on the drive of the base.
    if (!root.empty() && !same_piece(base_root, root)) return normal;

    const piece_views from = pieces_of(wide_view(folder).substr(base_root.size()));
    const piece_views to = pieces_of(wide_view(normal).substr(root.size()));
    const auto parting = std::ranges::mismatch(from, to, same_piece);
    wide_string result;
    for (auto piece = parting.in1; piece != from.end(); ++piece) result += u"..\\";
    append_pieces(result, to, static_cast<size_t>(parting.in2 - to.begin()));
    drop_last_character(result);
    return result;
}

wide_string path_resolve(wide_view base, wide_view path) {
    return path_normalise(path_is_relative(path) ? path_join(path_head(base), path) : wide_string(path));
}

bool path_same(wide_view first, wide_view second) {
    const wide_view a = without_last_separator(first), b = without_last_separator(second);
    if (is_normal(a) && is_normal(b)) return same_piece(a, b);
    return same_piece(path_normalise(first), path_normalise(second));
}

wide_string path_key(wide_view path) {
    const wide_view bare = without_last_separator(path);
    return platform::folded(is_normal(bare) ? bare : wide_view(path_normalise(path)));
}

// Dots and blanks at the end of a piece are dropped by some operating systems, so ".. " leads upwards, too.
wide_string held_below(wide_view name) {
    wide_string result(name);
    size_t depth = 0; // folders below the start
    for (size_t start = 0; start <= result.size();) {
        const size_t end = std::min(result.find_first_of(path_separators, start), result.size());
        const wide_view piece = wide_view(result).substr(start, end - start);
        // For the same reason more than two dots lead upwards.
        const bool leads_up = piece.starts_with(u"..") && piece.find_first_not_of(u". ") == wide_view::npos;
        if (leads_up && depth == 0)
            std::replace(result.begin() + static_cast<ptrdiff_t>(start),
                         result.begin() + static_cast<ptrdiff_t>(end), u'.', u'_');
        if (leads_up && depth > 0)
            --depth;
        else if (!piece.empty() && piece != u".")
            ++depth;
        start = end + 1;
    }
    return result;
}

wide_string valid_name(wide_view name) {
    wide_string result(name);
    for (char16_t& c : result)
        if (wide_view(u"<>:\"|?*").find(c) != wide_view::npos) c = u'_';
    return result;
}

wide_string valid_path(wide_view path) {
    const wide_string drive = path_root(path);
    return drive + valid_name(path.substr(drive.size()));
}

wide_string trim(wide_view text, wide_view set) {
    const size_t first = text.find_first_not_of(set);
    if (first == wide_view::npos) return {};
    return wide_string(text.substr(first, text.find_last_not_of(set) - first + 1));
}

wide_string decimal(uint32_t number) {
    const std::string digits = std::to_string(number);
    return {digits.begin(), digits.end()};
}

} // namespace vs::project_resave
