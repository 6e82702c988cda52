// The laws of paths as texts: two paths, divided by a line feed.
#include "core/paths.h"
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

void of_one(const wide_string& path) {
    hold(path_head(path) + path_file_name(path) == path, "head and file name make the path");
    hold(path_stem(path) + path_extension(path) == path_file_name(path), "stem and extension make the name");
    hold(is_normal(path_normalise(path)), "normal is normal");
    hold(path_same(path, path), "same as itself");
    hold(valid_path(valid_path(path)) == valid_path(path), "valid is valid");
    hold(valid_name(path).size() == path.size(), "a valid name is as long");
    hold(path_fixed_length(path) <= path.size(), "the fixed part is a part");
    hold(path.starts_with(path_root(path)), "the root stands in front");
    hold(trim(trim(path, white_space), white_space) == trim(path, white_space), "trimmed is trimmed");
    hold(is_normal(path_resolve(u"C:\\x", path)), "resolved is normal");
    if (!path_extension(path).empty())
        hold(path_replace_stem(path, path_stem(path)) == path, "a stem in place of itself");
}

void of_two(const wide_string& a, const wide_string& b) {
    hold(path_same(a, b) == path_same(b, a), "same in both directions");
    hold(path_same(a, b) == (path_key(a) == path_key(b)), "same by key");
    hold(path_is_relative(b) || path_join(a, b) == b, "joined with a whole path");
    const wide_string base = u"C:\\" + a, target = u"C:\\p\\" + b;
    if (goes_above_its_top(base) || goes_above_its_top(target)) return;
    const wide_string way = path_relative(base, target);
    hold(way.empty() || path_same(path_resolve(base, way), target), "the way leads there");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const wide_string text = wide_of(bytes_of(bytes, size));
    const size_t end = text.find(u'\n');
    const wide_string a = text.substr(0, end), b = end == wide_string::npos ? a : text.substr(end + 1);
    of_one(a);
    of_two(a, b);
    return 0;
}
