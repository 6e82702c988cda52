#include "apps/vestra_resave/archive/archive_place.h"

#include <array>
#include <string_view>

#include "apps/vestra_resave/output_file.h"
#include "apps/vestra_resave/words.h"
#include "platform/path_text.h"
#include "platform/text.h"
#include "platform/volumes.h"

namespace vestra::command {

using namespace vs::project_resave;
using platform::entry_kind;

namespace {

struct named_format {
    wide_view ending;
    archive_format format;
};
constexpr named_format formats[] = {{u".zip", archive_format::zip}, {u".tar.zst", archive_format::tar_zst}};

std::optional<archive_format> format_of(const wide_string& name) {
    const wide_string folded = platform::folded(name);
    for (const named_format& each : formats)
        if (folded.size() > each.ending.size() && folded.ends_with(each.ending)) return each.format;
    return std::nullopt;
}

// True if the file begins with the signature of a zip or of zstd. A zip without entries begins with the
// signature of the record that ends other zips.
bool is_archive(const wide_string& path) {
    std::unique_ptr<platform::file> file;
    std::array<char, 4> first{};
    if (!platform::current_system().open(path, platform::access::read, platform::disposition::open_existing,
                                         file) ||
        !file->read_whole(first.data(), first.size()))
        return false;
    const std::string_view mark(first.data(), first.size());
    return mark == "PK\3\4" || mark == "PK\5\6" || mark == "\x28\xB5\x2F\xFD";
}

} // namespace

wide_string archive_place::project() const { return path_join(archive, inside); }

bool is_in_archive(const wide_string& path, const wide_string& archive_key) {
    const wide_string key = path_key(path);
    return key.starts_with(archive_key) &&
           (key.size() == archive_key.size() || is_separator(key[archive_key.size()]));
}

std::optional<archive_place> archive_in(const std::string& typed) {
    const wide_string path = path_normalise(platform::drive_path(typed));
    for (size_t end = path_fixed_length(path); end < path.size();) {
        end = std::min(path.find(u'\\', end + 1), path.size());
        const wide_string upper = path.substr(0, end);
        const auto format = format_of(path_file_name(upper));
        if (!format || platform::current_system().kind_of(upper) == entry_kind::folder) continue;
        return archive_place{upper, *format, end < path.size() ? path.substr(end + 1) : wide_string()};
    }
    return std::nullopt;
}

std::optional<refusal> refuse_packed_project(const wide_string& project) {
    const std::optional<archive_place> place = archive_in(platform::to_utf8(project));
    if (!place || !is_archive(place->archive)) return std::nullopt;
    return refused(place->archive, say("is an archive; unpack it first"));
}

std::optional<refusal> refuse_archive(const archive_place& place, const resave_request& request) {
    const wide_string& archive = place.archive;
    if (!has_archives()) return refused(archive, say("this program cannot write archives"));
    if (request.mode != run_mode::anew)
        return refused(archive, say("--update and --resume cannot be combined with an archive"));
    if (request.verify)
        return refused(
            archive,
            say("--verify cannot be combined with an archive; compare it with its manifest afterwards"));
    if (auto early = refuse_output(platform::to_utf8(archive))) return early;
    if (platform::current_system().identity_of(archive).is_link)
        return refused(archive, say("is a link; give the name of a file"));
    if (platform::current_system().kind_of(archive) == entry_kind::none) return std::nullopt;
    if (!request.overwrite) return refused(archive, say("already exists; use --overwrite to replace it"));
    if (!is_archive(archive)) return refused(archive, say("exists and is not an archive"));
    return std::nullopt;
}

} // namespace vestra::command
