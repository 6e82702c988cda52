// Writes journal records before and after each change that a run makes.
#include "apps/vestra_resave/journal_disk.h"

#include <utility>

#include "platform/path_text.h"
#include "platform/text.h"

namespace vestra::command {

using namespace vs::project_resave;
using platform::outcome;

namespace {

// Limits what is lost if the computer loses power: at most what was copied since the last flush.
constexpr uint64_t most_unsafe_bytes = uint64_t{1} << 30;
constexpr std::chrono::seconds most_unsafe_time{20};

} // namespace

journal_disk::journal_disk(platform::system& below, const wide_string& project)
    : forwarding_system(below), path_(journal_path(project)), folder_(path_head(project)),
      safe_at_(std::chrono::steady_clock::now()) {
    // Other runs can be active in these folders.
    next_name_ = static_cast<uint64_t>(safe_at_.time_since_epoch().count());
}

journal_disk::~journal_disk() {
    if (file_) end(false);
}

outcome journal_disk::begin(const std::string& request, bool goes_on) {
    const auto how = goes_on ? platform::disposition::open_existing : platform::disposition::create_new;
    outcome result = inner().open(path_, platform::access::read_write, how, file_);
    // It was interrupted before anything was made.
    if (result && goes_on && file_->size() < journal_title.size()) {
        file_.reset();
        result =
            inner().open(path_, platform::access::read_write, platform::disposition::create_always, file_);
    }
    if (result) result = file_->seek_end();
    if (!result) return result;
    // A line that was interrupted ends here.
    pending_ = file_->size() == 0 ? std::string(journal_title) : "\n";
    pending_ += journal_record({"boot", platform::boot_identity()});
    if (!request.empty()) pending_ += journal_record({"run", request});
    result = write();
    if (result) result = file_->flush();
    if (!result && !goes_on) end(true);
    return result;
}

void journal_disk::add_kept(const wide_string& path, const wide_string& source,
                            const platform::entry_status& status) {
    if (!file_) return;
    pending_ += journal_record({"copy", word(path), word(source)});
    pending_ += journal_record({"done", std::to_string(status.bytes), std::to_string(status.modified)});
}

outcome journal_disk::end(bool removes) {
    outcome result = removes || !file_ ? outcome() : write();
    if (file_) {
        const outcome closed = file_->close();
        if (result) result = closed;
        file_.reset();
    }
    const outcome ended = removes ? inner().delete_file(path_) : inner().flush(path_);
    return result ? ended : result;
}

outcome journal_disk::enter(const std::vector<std::string>& words) {
    if (!file_) return {};
    pending_ += journal_record(words);
    return write();
}

// After a failed write the next attempt starts a new line, so that nothing is read as the rest of the cut
// one.
outcome journal_disk::write() {
    if (pending_.empty()) return {};
    const outcome written = file_->write(pending_.data(), pending_.size());
    pending_ = written ? "" : "\n";
    return written;
}

void journal_disk::add_size(uint64_t bytes) {
    unsafe_bytes_ += bytes;
    if (unsafe_bytes_ > most_unsafe_bytes || std::chrono::steady_clock::now() - safe_at_ > most_unsafe_time)
        make_safe();
}

void journal_disk::make_safe() {
    unsafe_bytes_ = 0;
    if (write() && flush_volume(folder_) && enter({"safe"})) file_->flush();
    safe_at_ = std::chrono::steady_clock::now();
}

outcome journal_disk::flush_volume(const wide_string& folder) {
    const outcome flushed = inner().flush_volume(folder);
    if (kept_ && !flushed && !flushed.is(platform::failure::denied)) {
        kept_ = flushed;
        if (enter({"lost"}) && file_) file_->flush();
    }
    return kept_ ? flushed : kept_;
}

// The record that the copy is complete is written with the next change; until then it counts as possibly
// incomplete.
outcome journal_disk::copy_file(const wide_string& source, const wide_string& target, bool replace) {
    if (!file_) return forwarding_system::copy_file(source, target, replace);
    if (replace && inner().kind_of(target) == platform::entry_kind::file &&
        !inner().same_file(source, target))
        return copy_in_place_of(source, target);
    if (const outcome entered = enter({"copy", word(target), word(source)}); !entered) return entered;
    if (const outcome copied = inner().copy_file(source, target, replace); !copied) {
        pending_ += journal_record({"gone", word(target)});
        return copied;
    }
    has_made_ = true;
    const platform::entry_status status = inner().status_of(target);
    pending_ += journal_record({"done", std::to_string(status.bytes), std::to_string(status.modified)});
    add_size(status.bytes);
    return {};
}

// The copy first gets a temporary name that is in the journal, so that the next run finds it if this one is
// killed before the older file is replaced.
outcome journal_disk::copy_in_place_of(const wide_string& source, const wide_string& target) {
    outcome result = platform::failure::taken;
    wide_string fresh;
    while (result.is(platform::failure::taken)) {
        fresh = path_head(target) + wide_string(copy_name_begin) +
                platform::from_utf8(std::to_string(next_name_++)) + wide_string(copy_name_end);
        if (inner().kind_of(fresh) != platform::entry_kind::none) continue;
        if (const outcome entered = enter({"copy", word(fresh), word(source)}); !entered) return entered;
        result = inner().copy_file(source, fresh, false);
        if (result) {
            const platform::entry_status made = inner().status_of(fresh);
            result = enter({"replace", word(target), word(source), std::to_string(made.bytes),
                            std::to_string(made.modified)});
            if (result) result = inner().rename_over(fresh, target);
            if (!result) inner().delete_file(fresh);
            has_made_ |= bool(result);
            add_size(made.bytes);
        }
        pending_ += journal_record({"gone", word(fresh)});
    }
    return result;
}

outcome journal_disk::create_folder(const wide_string& path) {
    if (const outcome entered = enter({"folder", word(path)}); !entered) return entered;
    const outcome created = inner().create_folder(path);
    has_made_ |= bool(created);
    if (!created && file_) pending_ += journal_record({"gone", word(path)});
    return created;
}

outcome journal_disk::rename_over(const wide_string& from, const wide_string& to) {
    const platform::entry_status made = inner().status_of(from);
    const outcome entered =
        enter({"written", word(to), std::to_string(made.bytes), std::to_string(made.modified)});
    if (!entered) return entered;
    const outcome renamed = inner().rename_over(from, to);
    if (!renamed || !file_) return renamed;
    has_made_ = true;
    pending_ += journal_record({"gone", word(from)});
    write(); // later changes to it are no longer the run's
    return {};
}

outcome journal_disk::delete_file(const wide_string& path) {
    const outcome deleted = inner().delete_file(path);
    if (deleted && file_) pending_ += journal_record({"gone", word(path)});
    return deleted;
}

outcome journal_disk::remove_folder(const wide_string& path) {
    const outcome removed = inner().remove_folder(path);
    if (removed && file_) pending_ += journal_record({"gone", word(path)});
    return removed;
}

outcome journal_disk::open(const wide_string& path, platform::access wanted, platform::disposition how,
                           std::unique_ptr<platform::file>& result) {
    const bool is_taken = how == platform::disposition::create_new && // then the call fails
                          inner().kind_of(path) != platform::entry_kind::none;
    const bool creates = how != platform::disposition::open_existing && !is_taken;
    if (creates)
        if (const outcome entered = enter({"write", word(path)}); !entered) return entered;
    const outcome opened = inner().open(path, wanted, how, result);
    if (creates && !opened && file_) pending_ += journal_record({"gone", word(path)});
    return opened;
}

} // namespace vestra::command
