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

constexpr const char16_t* is_read_only = u"an archive cannot be changed";

} // namespace

// A file in the archive. Bytes that are not in memory are read by going through the archive again from its
// beginning.
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
                return outcome::because(damaged);
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
    std::unique_ptr<archive_reader> reader_; // null until bytes are read that are not in memory
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
    if (!found || found->sha256.empty() || found->fault)
        return outcome::because(found && found->fault ? found->fault : damaged);
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

// Uses a volume number that no disk has.
platform::file_identity archive_view::identity_of(const wide_string& path) {
    if (!is_inside(path)) return inner().identity_of(path);
    const entry* const found = find(path);
    if (!found) return {};
    const bool is_folder = found->status.kind == entry_kind::folder;
    return {.volume = UINT64_MAX, .number = found->identity, .names = 1, .is_folder = is_folder};
}

bool archive_view::same_file(const wide_string& a, const wide_string& b) {
    if (!is_inside(a) && !is_inside(b)) return inner().same_file(a, b);
    const platform::file_identity one = identity_of(a);
    return one && one == identity_of(b);
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
    if (found->fault) return outcome::because(found->fault);
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
        return refused(place->archive, say("does not contain exactly one project; name it, as in %1",
                                           {printed(path_join(place->archive, u"NAME._vp"))}));
    typed = platform::to_utf8(path_join(place->archive, inside));
    in_force_.emplace(*view_);
    return std::nullopt;
}

} // namespace vestra::command
