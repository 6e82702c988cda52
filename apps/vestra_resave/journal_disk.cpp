// Writes journal records before and after each change that a run makes.
#include "apps/vestra_resave/journal_disk.h"

#include <optional>
#include <utility>

#include "apps/vestra_resave/file_content.h"
#include "platform/path_text.h"
#include "platform/text.h"

namespace vestra::command {

using namespace vs::project_resave;
using platform::outcome;

namespace {

// Limits what is lost if the computer loses power: at most what was copied since the last flush.
constexpr uint64_t most_unsafe_bytes = uint64_t{1} << 30;
constexpr std::chrono::seconds most_unsafe_time{20};

// Computes the digest of what is copied while it exists.
struct digest_of_copy {
    sha256 sum;
    uint64_t seen = 0;
    platform::content_watch watch{[this](const void* bytes, size_t length) {
        sum.add(bytes, length);
        seen += length;
    }};
};

} // namespace

journal_disk::journal_disk(platform::system& below, const wide_string& project)
    : forwarding_system(below), path_(journal_path(project)), folder_(path_head(project)),
      safe_at_(std::chrono::steady_clock::now()) {
    // Other runs can be active in these folders, and their temporary names must differ.
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
    // A journal that was created for nothing would refuse the next run.
    if (!result && !goes_on) end(true);
    return result;
}

void journal_disk::add_kept(const wide_string& path, const wide_string& source,
                            const platform::entry_status& status, const std::string& sha256) {
    if (!file_) return;
    // Not written at once: losing this record only means that the file is compared again.
    pending_ += journal_record({"copy", word(path), word(source)});
    const earlier_file made{
        .path = path, .bytes = status.bytes, .modified = status.modified, .sha256 = sha256};
    pending_ += journal_record(finished({"done"}, made));
}

// The words of a record with the size, the time and, if it is known, the digest of a copy.
std::vector<std::string> journal_disk::finished(std::vector<std::string> words, const earlier_file& made) {
    words.push_back(std::to_string(made.bytes));
    words.push_back(std::to_string(made.modified));
    if (!made.sha256.empty()) words.push_back(made.sha256);
    return words;
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
    // The data must be on the disk before the record that says so. Where only an administrator may flush a
    // volume, nothing counts as safe, and copies are compared after a restart.
    if (write() && flush_volume(folder_) && enter({"safe"})) file_->flush();
    safe_at_ = std::chrono::steady_clock::now();
}

outcome journal_disk::flush_volume(const wide_string& folder) {
    const outcome flushed = inner().flush_volume(folder);
    // Only the first failure is kept. The record is written because the next run can no longer find out.
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
        // Copying a file onto itself must fail below, as it does without a journal.
        !inner().same_file(source, target))
        return copy_in_place_of(source, target);
    if (const outcome entered = enter({"copy", word(target), word(source)}); !entered) return entered;
    earlier_file made{.path = target};
    if (const outcome copied = copy_with_digest(source, target, replace, made); !copied) {
        // After a failure there is no target, and without this record it would count as an incomplete copy.
        pending_ += journal_record({"gone", word(target)});
        return copied;
    }
    has_made_ = true;
    if (!made.sha256.empty()) digests_.insert_or_assign(path_key(target), made);
    pending_ += journal_record(finished({"done"}, made));
    add_size(made.bytes);
    return {};
}

// Sets size and time of the copy, and its digest if that is wanted and the content was seen as a whole.
outcome journal_disk::copy_with_digest(const wide_string& source, const wide_string& target, bool replace,
                                       earlier_file& made) {
    std::optional<digest_of_copy> digest;
    if (keeps_digests_) digest.emplace();
    const outcome copied = inner().copy_file(source, target, replace);
    if (!copied) return copied;
    const platform::entry_status status = inner().status_of(target);
    made.bytes = status.bytes, made.modified = status.modified;
    if (digest && digest->seen == made.bytes) made.sha256 = digest->sum.text();
    return copied;
}

// The copy first gets a temporary name that is in the journal, so that the next run finds it if this one is
// killed before the older file is replaced.
outcome journal_disk::copy_in_place_of(const wide_string& source, const wide_string& target) {
    outcome result = platform::failure::taken;
    wide_string fresh;
    while (result.is(platform::failure::taken)) {
        fresh = path_head(target) + wide_string(copy_name_begin) +
                platform::from_utf8(std::to_string(next_name_++)) + wide_string(copy_name_end);
        // Left by a killed run, whose journal lists it.
        if (inner().kind_of(fresh) != platform::entry_kind::none) continue;
        if (const outcome entered = enter({"copy", word(fresh), word(source)}); !entered) return entered;
        earlier_file made{.path = target};
        result = copy_with_digest(source, fresh, false, made);
        if (result) {
            result = enter(finished({"replace", word(target), word(source)}, made));
            if (result) result = inner().rename_over(fresh, target);
            if (!result) inner().delete_file(fresh);
            has_made_ |= bool(result);
            if (result && !made.sha256.empty()) digests_.insert_or_assign(path_key(target), made);
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
    // Renaming keeps size and time, so they can be recorded before the file has its name.
    const platform::entry_status made = inner().status_of(from);
    const outcome entered =
        enter({"written", word(to), std::to_string(made.bytes), std::to_string(made.modified)});
    if (!entered) return entered;
    const outcome renamed = inner().rename_over(from, to);
    if (renamed) digests_.erase(path_key(to));
    if (!renamed || !file_) return renamed;
    has_made_ = true;
    pending_ += journal_record({"gone", word(from)});
    write(); // at once: a later file with the old name is not the run's
    return {};
}

outcome journal_disk::delete_file(const wide_string& path) {
    const outcome deleted = inner().delete_file(path);
    if (deleted) digests_.erase(path_key(path));
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
    if (creates || wanted != platform::access::read) digests_.erase(path_key(path));
    if (creates && !opened && file_) pending_ += journal_record({"gone", word(path)});
    return opened;
}

} // namespace vestra::command
