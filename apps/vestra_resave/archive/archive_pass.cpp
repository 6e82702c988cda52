// Reads all entries of an archive in one pass and checks each of them, because an archive can be malicious.
#include <algorithm>

#include "apps/vestra_resave/archive/archive_view.h"
#include "apps/vestra_resave/archive/zip_directory.h"
#include "platform/path_text.h"
#include "platform/text.h"

namespace vestra::command {

using namespace vs::project_resave;
using platform::entry_kind;

namespace {

// The bytes that commands read of a file: all of a project, scene or layer file and of other text files
// that they need, the field names of a table, and the signature of any other file.
constexpr size_t mark_bytes = 1024, table_bytes = 16 * 1024;
constexpr size_t most_of_one = size_t{64} << 20;
constexpr uint64_t most_of_all = uint64_t{512} << 20;

size_t bytes_to_hold(const wide_string& path) {
    constexpr wide_view whole[] = {u"._vp", u"._sn",  u"._sc", u"._lr", u"._lrd",
                                   u".tos", u".json", u".vrt", u".ers", u".cpg"};
    const wide_string extension = platform::folded(path_extension(path));
    if (std::ranges::find(whole, extension) != std::end(whole)) return most_of_one;
    return extension == u".dbf" ? table_bytes : mark_bytes;
}

// No format expands one byte of the archive to more bytes than this.
constexpr uint64_t most_bytes_of_one = 40'000;

// No disk has longer paths. A few bytes of an archive can name millions of folders, so all paths together
// have a limit, too: the characters that a million files need.
constexpr size_t longest_name = 4096;
constexpr uint64_t most_of_names = uint64_t{128} << 20;

// Returns why an entry cannot have this name; null if the name is valid.
const char16_t* fault_in(const std::string& name) {
    if (name.empty() || platform::to_utf8(platform::from_utf8(name)) != name) return u"its name is not UTF-8";
    if (name.size() > longest_name) return u"its name is too long";
    if (is_separator(static_cast<unsigned char>(name.front())) || name.find(':') != std::string::npos)
        return u"its name is an absolute path";
    for (const wide_string& each : path_split(platform::from_utf8(name), path_separators, true))
        if (each == u"..") return u"its name leads out of the archive";
    return nullptr;
}

} // namespace

bool archive_view::read_all(bool sums, const std::function<bool()>& is_stopped, wide_string& reason) {
    const auto reader = archive_reader::open(archive_, reason);
    if (!reader) return false;
    packed_entry found;
    for (uint64_t shown = 0;;) {
        const archive_reader::step step = reader->next(found);
        if (const uint64_t taken = std::min(reader->bytes_taken(), archive_bytes_); taken > shown) {
            platform::note_transfer(taken - shown);
            shown = taken;
        }
        if (step == archive_reader::step::damaged) reason = reader->reason();
        if (step != archive_reader::step::entry || is_stopped()) return step != archive_reader::step::damaged;
        if (entries_read_++ == 0 && reader->is_zip() && !has_true_directory(archive_)) {
            reason = u"its directory does not match its entries";
            return false;
        }
        read_entry(*reader, found, sums, is_stopped);
        if ((name_characters_ += found.name.size()) > most_of_names) {
            reason = u"its names are too many or too long";
            return false;
        }
    }
}

void archive_view::report(const std::string& name, const char16_t* why) {
    problems_.push_back(
        {own_kind::archive_entry, {}, path_join(archive_, platform::from_utf8(name)), {}, why});
}

void archive_view::read_entry(archive_reader& from, const packed_entry& found, bool sums,
                              const std::function<bool()>& is_stopped) {
    if (const char16_t* fault = fault_in(found.name)) return report(found.name, fault);
    if (found.kind == packed_entry::type::other) return report(found.name, u"it is a link or a device");
    const wide_string path = path_normalise(path_join(archive_, platform::from_utf8(found.name)));
    if (found.kind == packed_entry::type::folder) {
        if (!add_folders(path)) report(found.name, u"the archive also has a file with this name");
        return;
    }
    if (!add_folders(path_normalise(path_head(path)))) return report(found.name, u"its folder is a file");
    entry* const one = add(path, entry_kind::file);
    if (!one) return report(found.name, u"another entry has the same name");
    one->status.bytes = found.bytes, one->status.modified = found.modified;
    if (found.is_encrypted)
        one->fault = encrypted;
    else if (found.bytes / most_bytes_of_one > archive_bytes_ || !read_content(from, *one, sums, is_stopped))
        one->fault = damaged;
    if (one->fault) report(found.name, one->fault);
}

bool archive_view::read_content(archive_reader& from, entry& into, bool sums,
                                const std::function<bool()>& is_stopped) {
    uint64_t wanted = std::min<uint64_t>(into.status.bytes, bytes_to_hold(into.path));
    if (held_bytes_ + wanted > most_of_all) wanted = 0;
    std::string buffer(piece, '\0');
    sha256 sum;
    uint64_t done = 0;
    for (size_t count = piece; count == piece && !is_stopped() && (sums || done < wanted);) {
        const size_t length = sums ? piece : static_cast<size_t>(std::min<uint64_t>(piece, wanted - done));
        if (!from.read(buffer.data(), length, count)) return false;
        const auto kept = static_cast<size_t>(std::min<uint64_t>(count, wanted - std::min(wanted, done)));
        into.beginning.append(buffer, 0, kept);
        if (sums) sum.add(buffer.data(), count);
        if ((done += count) > into.status.bytes) return false;
        if (!sums && count != length) return false;
    }
    held_bytes_ += into.beginning.size();
    if (sums) into.sha256 = sum.text();
    return !sums || done == into.status.bytes || is_stopped();
}

// Adds an entry. Returns null if the name is taken.
archive_view::entry* archive_view::add(const wide_string& path, entry_kind kind) {
    const wide_string key = path_key(path);
    const auto [row, is_new] = entries_.try_emplace(key);
    if (!is_new) return nullptr;
    name_characters_ += path.size();
    row->second.path = path;
    row->second.status.kind = kind;
    row->second.identity = entries_.size();
    row->second.number = entries_read_;
    inside_[path_key(path_normalise(path_head(path)))].push_back(key);
    return &row->second;
}

// Adds a folder and its parents. Returns false if one of them is a file.
bool archive_view::add_folders(const wide_string& path) {
    if (const entry* known = find(path)) return known->status.kind == entry_kind::folder;
    return add_folders(path_normalise(path_head(path))) && add(path, entry_kind::folder) != nullptr;
}

} // namespace vestra::command
