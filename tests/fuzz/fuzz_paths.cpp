// Laws of paths as texts: the input is two paths separated by a line feed; the second one is also used as
// part of one.
#include "platform/path_text.h"
#include "tests/fuzz/fuzz_input.h"

using namespace vs::project_resave;

namespace {

bool goes_above_its_top(const wide_string& path) {
    for (const wide_string& piece : path_split(path_normalise(path), path_separators, true))
        if (piece == u"..") return true;
    return false;
}

// A share without a name has no normal form.
bool is_normal(const wide_string& path) { return path == u"\\" || path_normalise(path) == path; }

// True if none of its parts climbs above its start, even with trailing dots or spaces.
bool is_held(const wide_string& name) {
    size_t depth = 0;
    for (const wide_string& piece : path_split(name, path_separators, true)) {
        const bool leads_up = piece.starts_with(u"..") && trim(piece, u". ").empty();
        if (leads_up && depth == 0) return false;
        if (leads_up)
            --depth;
        else if (piece != u".")
            ++depth;
    }
    return true;
}

void of_one(const wide_string& path) {
    const wide_string head = path_head(path), stem = path_stem(path), extension = path_extension(path);
    hold(head + path_file_name(path) == path, "head and file name make the path");
    hold(stem + extension == path_file_name(path), "stem and extension make the name");
    // At the front it would be taken for a drive.
    const bool is_named = path.find(u':', 2) == wide_string::npos;
    hold(!is_named || is_normal(path_normalise(path)), "normal is normal");
    hold(!is_named || is_normal(path_resolve(u"C:\\x", path)), "resolved is normal");
    hold(valid_path(valid_path(path)) == valid_path(path), "valid is valid");
    hold(valid_name(path).size() == path.size(), "a valid name is as long");
    hold(valid_name(path).find_first_of(u"<>:\"|?*") == wide_string::npos, "a valid name is valid");
    hold(path_fixed_length(path) <= path.size(), "the fixed part is a part");
    hold(path.starts_with(path_root(path)), "the root stands in front");
    hold(path_root(path).empty() || !path_is_relative(path), "what has a drive is whole");
    hold(trim(trim(path, white_space), white_space) == trim(path, white_space), "trimmed is trimmed");
    hold(extension.empty() || path_replace_stem(path, stem) == path, "a stem in place of itself");
    hold(extension.empty() || path_replace_extension(path, extension) == path, "an extension likewise");
    hold(path.starts_with(path_replace_extension(path, u"")), "without its extension");
    const wide_string held = held_below(path);
    hold(is_held(held) && held.size() == path.size(), "held below is below, and as long");
    hold(is_held(path) ? held == path : held_below(held) == held, "held below is held");
    const auto number = static_cast<uint32_t>(path.size());
    hold(decimal(number) == platform::from_utf8(std::to_string(number)), "a number in decimal");
    size_t length = 0;
    for (const wide_string& piece : path_split(path, path_separators, false)) length += piece.size() + 1;
    hold(length == path.size() + 1, "pieces and separators make the path");
}

// `part` is inserted into a path: after the stem, or as an extension.
void of_part(const wide_string& path, const wide_string& part) {
    if (part.find_first_of(path_separators) != wide_string::npos) return;
    hold(path_add_to_stem(path, part) == path_head(path) + path_stem(path) + part + path_extension(path),
         "it stands behind the stem");
    const wide_string other = path_replace_extension(path, part);
    hold(path_head(other) == path_head(path) && other.ends_with(part),
         "another extension in the same folder");
    if (part.rfind(u'.') != wide_string::npos && part.rfind(u'.') != 0) return;
    hold(part.empty() || other.front() == u'.' || path_replace_extension(other, part) == other,
         "an extension takes the place of another");
}

void of_two(const wide_string& a, const wide_string& b) {
    hold(path_same(a, b) == (path_key(a) == path_key(b)), "same by key");
    hold(path_is_relative(b) || path_join(a, b) == b, "joined with a whole path");
    const wide_string base = u"C:\\" + a, target = u"C:\\p\\" + b;
    if (goes_above_its_top(base) || goes_above_its_top(target)) return;
    // Not valid in a name, and alone it would be taken for a drive.
    if (b.find(u':') != wide_string::npos) return;
    const wide_string way = path_relative(base, target);
    hold(way.empty() || path_same(path_resolve(base, way), target), "the way leads there");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const wide_string text = wide_of(bytes_of(bytes, size));
    const size_t end = text.find(u'\n');
    const wide_string a = text.substr(0, end), b = end == wide_string::npos ? a : text.substr(end + 1);
    of_one(a);
    of_part(a, b);
    of_two(a, b);
    return 0;
}
