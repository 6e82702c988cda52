#include "apps/vestra_resave/archive/archive_view.h"

#include <algorithm>
#include <cstring>

#include "apps/vestra_resave/words.h"
#include "platform/path_text.h"
#include "platform/text.h"

namespace vestra::command {

using namespace vs::project_resave;
using platform::entry_kind;
using platform::outcome;

namespace {

constexpr size_t piece = 256 * 1024;
constexpr const char16_t* is_damaged = u"it is damaged in the archive";
constexpr const char16_t* is_read_only = u"an archive is only read";

// What commands read of a file: of one of the project's own kinds all, of a table the names of its fields, of
// any other the mark by which its kind is known.
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

// More than any of the formats makes of a byte, however often it repeats.
constexpr uint64_t most_bytes_of_one = 40'000;

// No disk has longer paths; and none of so many folders is worth the memory.
constexpr size_t longest_name = 4096;

// Why an entry of this name is not below the archive; null if it is.
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

// A file as the archive has it. What is not held is read from the archive, again from the beginning.
class archive_view::entry_file final : public platform::file {
public:
    entry_file(const archive_view& all, const entry& one) : all_(all), one_(one) {}

    outcome read(void* buffer, size_t length, size_t& count) override {
        count = static_cast<size_t>(std::min<uint64_t>(length, size() - std::min(size(), position_)));
        const size_t held = one_.beginning.size();
        if (position_ + count <= held) {
            if (count != 0) std::memcpy(buffer, one_.beginning.data() + position_, count);
        } else {
            size_t taken = 0;
            if (!go_to_position() || !reader_->read(buffer, count, taken) || taken != count) {
                count = 0;
                reader_.reset();
                return outcome::because(is_damaged);
            }
            reader_at_ += taken;
        }
        position_ += count;
        return {};
    }
    outcome write(const void*, size_t) override { return outcome::because(is_read_only); }
    outcome seek_end() override {
        position_ = size();
        return {};
    }
    uint64_t size() override { return one_.status.bytes; }
    outcome close() override { return {}; }

private:
    bool go_to_position() {
        if (!reader_ && !open_entry()) return false;
        std::string passed(piece, '\0');
        while (reader_at_ < position_) {
            const auto length = static_cast<size_t>(std::min<uint64_t>(piece, position_ - reader_at_));
            size_t taken = 0;
            if (!reader_->read(passed.data(), length, taken) || taken != length) return false;
            reader_at_ += taken;
        }
        return true;
    }

    bool open_entry() {
        wide_string reason;
        reader_ = archive_reader::open(all_.archive_, reason);
        reader_at_ = 0;
        packed_entry found;
        for (uint64_t number = 0; reader_ && number < one_.number; ++number)
            if (reader_->next(found) != archive_reader::step::entry) reader_.reset();
        return reader_ && found.bytes == one_.status.bytes;
    }

    const archive_view& all_;
    const entry& one_;
    uint64_t position_ = 0, reader_at_ = 0;
    std::unique_ptr<archive_reader> reader_; // null as long as what is held was enough
};

archive_view::archive_view(const wide_string& archive)
    : archive_(archive), archive_key_(path_key(archive)), archive_bytes_(inner().file_size(archive)) {
    entry& top = entries_[archive_key_];
    top.path = archive;
    top.status.kind = entry_kind::folder;
    top.identity = entries_.size();
}

std::unique_ptr<archive_view> archive_view::open(const wide_string& archive, bool sums,
                                                 const std::function<bool()>& is_stopped,
                                                 wide_string& reason) {
    std::unique_ptr<archive_view> view(new archive_view(archive));
    return view->read_all(sums, is_stopped, reason) ? std::move(view) : nullptr;
}

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
        ++entries_read_;
        read_entry(*reader, found, sums, is_stopped);
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
        if (!add_folders(path)) report(found.name, u"a file of this name is there, too");
        return;
    }
    if (!add_folders(path_normalise(path_head(path)))) return report(found.name, u"its folder is a file");
    entry* const one = add(path, entry_kind::file);
    if (!one) return report(found.name, u"its name is there twice");
    one->status.bytes = found.bytes, one->status.modified = found.modified;
    one->is_damaged =
        found.bytes / most_bytes_of_one > archive_bytes_ || !read_content(from, *one, sums, is_stopped);
    if (one->is_damaged) report(found.name, is_damaged);
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

// Null if something has the name.
archive_view::entry* archive_view::add(const wide_string& path, entry_kind kind) {
    const wide_string key = path_key(path);
    const auto [row, is_new] = entries_.try_emplace(key);
    if (!is_new) return nullptr;
    row->second.path = path;
    row->second.status.kind = kind;
    row->second.identity = entries_.size();
    row->second.number = entries_read_;
    inside_[path_key(path_normalise(path_head(path)))].push_back(key);
    return &row->second;
}

// Adds a folder with those that it is in. False if one of them is a file.
bool archive_view::add_folders(const wide_string& path) {
    if (const entry* known = find(path)) return known->status.kind == entry_kind::folder;
    return add_folders(path_normalise(path_head(path))) && add(path, entry_kind::folder) != nullptr;
}

bool archive_view::is_inside(const wide_string& path) const {
    const wide_string key = path_key(path);
    return key.starts_with(archive_key_) &&
           (key.size() == archive_key_.size() || is_separator(key[archive_key_.size()]));
}

const archive_view::entry* archive_view::find(const wide_string& path) const {
    const auto found = entries_.find(path_key(path));
    return found == entries_.end() ? nullptr : &found->second;
}

bool archive_view::find_project(wide_string& inside) const {
    std::vector<const entry*> all, top;
    for (const auto& [key, each] : entries_) {
        if (each.status.kind != entry_kind::file || platform::folded(path_extension(each.path)) != u"._vp")
            continue;
        all.push_back(&each);
        if (path_same(path_head(each.path), archive_ + u'\\')) top.push_back(&each);
    }
    const std::vector<const entry*>& found = top.empty() ? all : top;
    if (found.size() != 1) return false;
    inside = found.front()->path.substr(archive_.size() + 1);
    return true;
}

outcome archive_view::digest_of(const wide_string& path, file_digest& digest) const {
    const entry* const found = find(path);
    if (!found || found->sha256.empty() || found->is_damaged) return outcome::because(is_damaged);
    digest = {found->status.bytes, found->sha256};
    return {};
}

platform::entry_status archive_view::status_of(const wide_string& path) {
    if (!is_inside(path)) return inner().status_of(path);
    const entry* const found = find(path);
    return found ? found->status : platform::entry_status{entry_kind::none, 0, platform::failure::missing};
}

outcome archive_view::list(const wide_string& path, std::vector<platform::folder_entry>& entries) {
    if (!is_inside(path)) return inner().list(path, entries);
    entries.clear();
    const entry* const folder = find(path);
    if (!folder || folder->status.kind != entry_kind::folder) return platform::failure::missing;
    if (const auto keys = inside_.find(path_key(path)); keys != inside_.end())
        for (const wide_string& key : keys->second) {
            const entry& each = entries_.at(key);
            entries.push_back({path_file_name(each.path), each.status.kind == entry_kind::folder, false});
        }
    std::ranges::sort(entries, {}, &platform::folder_entry::name);
    return {};
}

bool archive_view::true_name(const wide_string& folder, const wide_string& name, wide_string& spelling) {
    if (!is_inside(path_join(folder, name))) return inner().true_name(folder, name, spelling);
    const entry* const found = find(path_join(folder, name));
    if (!found) return false;
    spelling = name == u"." || name == u".." ? name : path_file_name(found->path);
    return true;
}

// A volume that no disk has.
platform::file_identity archive_view::identity_of(const wide_string& path) {
    if (!is_inside(path)) return inner().identity_of(path);
    const entry* const found = find(path);
    if (!found) return {};
    const bool is_folder = found->status.kind == entry_kind::folder;
    return {.volume = UINT64_MAX, .number = found->identity, .names = 1, .is_folder = is_folder};
}

outcome archive_view::open(const wide_string& path, platform::access wanted, platform::disposition how,
                           std::unique_ptr<platform::file>& result) {
    if (!is_inside(path)) return inner().open(path, wanted, how, result);
    result.reset();
    if (wanted != platform::access::read || how != platform::disposition::open_existing)
        return outcome::because(is_read_only);
    const entry* const found = find(path);
    if (!found) return platform::failure::missing;
    if (found->status.kind == entry_kind::folder) return outcome::because(u"is a folder");
    if (found->is_damaged) return outcome::because(is_damaged);
    result = std::make_unique<entry_file>(*this, *found);
    return {};
}

outcome archive_view::copy_file(const wide_string& source, const wide_string& target, bool replace) {
    if (is_inside(source) || is_inside(target)) return outcome::because(is_read_only);
    return inner().copy_file(source, target, replace);
}

outcome archive_view::delete_file(const wide_string& path) {
    return is_inside(path) ? outcome::because(is_read_only) : inner().delete_file(path);
}

outcome archive_view::create_folder(const wide_string& path) {
    return is_inside(path) ? outcome::because(is_read_only) : inner().create_folder(path);
}

outcome archive_view::remove_folder(const wide_string& path) {
    return is_inside(path) ? outcome::because(is_read_only) : inner().remove_folder(path);
}

outcome archive_view::rename_over(const wide_string& from, const wide_string& to) {
    if (is_inside(from) || is_inside(to)) return outcome::because(is_read_only);
    return inner().rename_over(from, to);
}

std::optional<refusal> read_archive_scope::begin(session& host, std::string& typed, bool sums) {
    const std::optional<archive_place> place = archive_in(typed);
    if (!place || platform::current_system().kind_of(place->archive) != entry_kind::file) return std::nullopt;
    wide_string inside = place->inside, reason;
    const auto is_stopped = [&] { return host.interrupted(); };
    const shown_transfer shown(host.screen(), platform::current_system().file_size(place->archive),
                               reading_caption());
    view_ = archive_view::open(place->archive, sums, is_stopped, reason);
    if (!view_) return refusal{wrong_use, {{own_kind::not_loaded, {}, place->archive, {}, reason}}};
    if (is_stopped()) return refusal{stopped, {{own_kind::interrupted, {}, {}, {}}}};
    if (inside.empty() && !view_->find_project(inside))
        return refused(place->archive, say("does not hold exactly one project; name it, as in %1",
                                           {printed(path_join(place->archive, u"NAME._vp"))}));
    typed = platform::to_utf8(path_join(place->archive, inside));
    in_force_.emplace(*view_);
    return std::nullopt;
}

} // namespace vestra::command
