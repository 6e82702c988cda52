#include "reference_host/files/references.h"

#include <algorithm>

#include "platform/path_text.h"
#include "platform/text.h"

namespace vestra::files {
namespace {

using namespace vs::project_resave;

constexpr char16_t verbatim_mark = u'=';

bool looks_relative(wide_view stored) {
    return !stored.empty() && wide_view(u"\\/*=").find(stored.front()) == wide_view::npos &&
           stored.find(u':') == wide_view::npos;
}

wide_string with_backslashes(wide_view path) {
    wide_string text(path);
    std::replace(text.begin(), text.end(), u'/', u'\\');
    return text;
}

bool is_below(wide_view folder, wide_view path) {
    if (folder.empty() || path.size() <= folder.size()) return false;
    const wide_string head = with_backslashes(path.substr(0, folder.size()));
    return platform::compare_no_case(head, with_backslashes(folder)) == 0;
}

wide_string folder_above(wide_view folder) { return path_head(folder.substr(0, folder.size() - 1)); }

wide_string joined(wide_view folder, wide_view relative) {
    wide_string path(folder);
    while (!relative.empty()) {
        const std::size_t end = std::min(relative.find_first_of(path_separators), relative.size());
        const wide_view name = relative.substr(0, end);
        const wide_view piece = relative.substr(0, end + 1);
        if (name == u"..") {
            if (path.size() > path_fixed_length(path)) path = folder_above(path);
        } else if (name != u".") {
            path += piece;
        }
        relative.remove_prefix(piece.size());
    }
    return path;
}

// Relative to the nearest folder above that holds it too; empty if there is none.
wide_string climbing_reference(wide_view folder, wide_view reference) {
    const std::size_t root = path_fixed_length(folder);
    wide_string up = u"..\\";
    for (wide_string above(folder); above.size() > root; up += u"..\\") {
        above = folder_above(above);
        if (above.size() <= root || !is_below(above, reference)) continue;
        const wide_view rest = reference.substr(above.size());
        // Only what reads back as the same path.
        return joined(folder, up + wide_string(rest)) == above + wide_string(rest) ? up + wide_string(rest)
                                                                                   : wide_string();
    }
    return {};
}

} // namespace

wide_string stored_reference(wide_view folder, wide_view reference, bool behind_star, nearness near) {
    if (behind_star && reference.starts_with(u'*'))
        return u"*" + stored_reference(folder, reference.substr(1), false, near);
    if (is_below(folder, reference)) {
        const wide_view rest = reference.substr(folder.size());
        // Only what reads back as the same path; "sub\..\..\x" for one is not below the folder at all.
        if (looks_relative(rest) && joined(folder, rest) == wide_string(folder) + wide_string(rest))
            return wide_string(rest);
    } else if (near == nearness::beside && !looks_relative(reference)) {
        const wide_string climbing = climbing_reference(folder, reference);
        if (!climbing.empty()) return climbing;
    }
    if (looks_relative(reference) || reference.starts_with(verbatim_mark))
        return verbatim_mark + wide_string(reference);
    return wide_string(reference);
}

wide_string resolved_reference(wide_view folder, wide_view stored, bool behind_star) {
    if (behind_star && stored.starts_with(u'*')) return u"*" + resolved_reference(folder, stored.substr(1));
    if (stored.starts_with(verbatim_mark)) return wide_string(stored.substr(1));
    return looks_relative(stored) ? joined(folder, stored) : wide_string(stored);
}

} // namespace vestra::files
