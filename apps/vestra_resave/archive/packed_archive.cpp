#include "apps/vestra_resave/archive/packed_archive.h"

#include <algorithm>
#include <chrono>
#include <vector>

#include "apps/vestra_resave/file_content.h"
#include "apps/vestra_resave/manifest.h"
#include "apps/vestra_resave/words.h"
#include "operations/project_context.h"
#include "operations/run/path_files.h"
#include "platform/path_text.h"
#include "platform/text.h"

namespace vestra::command {

using namespace vs::project_resave;
using platform::outcome;

namespace {

constexpr size_t piece = 256 * 1024;
constexpr const char16_t* changed_meanwhile = u"the file changed while it was copied";

} // namespace

// Why the archive was not written; false if it was. `unread` is the file that could not be read, if any.
struct packed_archive::failure {
    bool stopped = false;
    outcome why = {};
    wide_string unread = {};

    explicit operator bool() const { return stopped || !why; }
};

// If the name with the ending is longer than a disk allows, the SHA-256 sum of the name takes its place.
wide_string part_of(const wide_string& archive) {
    constexpr wide_view ending = u".vestra-part";
    constexpr size_t longest_name = 255; // bytes
    std::string name = platform::to_utf8(path_file_name(archive));
    if (name.size() + ending.size() > longest_name) {
        sha256 sum;
        sum.add(name.data(), name.size());
        name = sum.text();
    }
    return path_head(archive) + platform::from_utf8(name) + wide_string(ending);
}

packed_archive::packed_archive(archive_place place)
    : place_(std::move(place)), part_(part_of(place_.archive)), real_(platform::current_system()),
      replaced_(real_.identity_of(place_.archive)), disk_(place_.archive) {}

// Removes the file before closing it. Closing releases the lock, after which another resave could have
// created a file with the same name.
void packed_archive::discard() {
    writer_.reset();
    if (file_) real_.delete_file(part_);
    file_.reset();
}

// Opens the temporary file for writing, which locks it, and then checks that the open file still has the
// temporary name: another resave may have created, renamed or removed it between any two calls.
outcome packed_archive::take_part() {
    using platform::access, platform::disposition, platform::failure;
    for (int attempt = 0; attempt < 10; ++attempt) {
        std::unique_ptr<platform::file> made;
        const outcome created = real_.open(part_, access::read_write, disposition::create_new, made);
        made.reset();
        const platform::file_identity wanted = real_.identity_of(part_);
        if (!created && (!created.is(failure::taken) || wanted.is_link)) return created;
        const outcome opened = real_.open(part_, access::read_write, disposition::open_existing, file_);
        if (opened.is(failure::missing)) continue;
        if (!opened) return opened;
        if (wanted && wanted == real_.identity_of(part_)) {
            if (file_->size() == 0) return {};
            if (const outcome removed = real_.delete_file(part_); !removed) return removed; // of a killed run
        }
        file_.reset();
    }
    return failure::in_use;
}

std::optional<refusal> packed_archive::begin(bool overwrites) {
    if (const outcome taken = take_part(); !taken) {
        file_.reset(); // belongs to somebody else
        if (taken.is(platform::failure::in_use))
            return refused(place_.archive, say("another resave is writing this archive"));
        return refusal{not_saved, {{own_kind::not_created, {}, {}, part_, reason_of(taken.text(), part_)}}};
    }
    const platform::file_identity now = real_.identity_of(place_.archive);
    if (now && !replaced_ && !overwrites) { // another resave has ended since this one was started
        discard();
        return refused(place_.archive, say("already exists; use --overwrite to replace it"));
    }
    replaced_ = now;
    return std::nullopt;
}

std::string packed_archive::name_of_entry(const wide_string& path) const {
    std::string name = platform::to_utf8(path.substr(place_.archive.size() + 1));
    std::ranges::replace(name, '\\', '/');
    return name;
}

packed_archive::failure packed_archive::add_file(const wide_string& path,
                                                 const std::function<bool()>& is_stopped) {
    platform::system& disk = platform::current_system();
    const platform::entry_status before = disk.status_of(path);
    std::unique_ptr<platform::file> from;
    if (const outcome opened =
            disk.open(path, platform::access::read, platform::disposition::open_existing, from);
        !opened)
        return {.why = opened, .unread = path};
    earlier_file packed{.path = path, .bytes = before.bytes, .modified = before.modified};
    if (packed.modified == 0) packed.modified = written_at_;
    if (place_.format == archive_format::zip) packed.modified -= packed.modified % 1'000'000'000;
    outcome result =
        writer_->add({name_of_entry(path), packed_entry::type::file, packed.bytes, packed.modified});
    std::vector<char> buffer(piece);
    sha256 sum;
    uint64_t rest = before.bytes;
    for (size_t count = piece; result && count == piece;) {
        if (is_stopped()) return {.stopped = true};
        if (const outcome read = from->read(buffer.data(), piece, count); !read)
            return {.why = read, .unread = path};
        if (count > rest) return {.why = outcome::because(changed_meanwhile), .unread = path};
        rest -= count;
        sum.add(buffer.data(), count);
        result = writer_->write(buffer.data(), count);
        platform::note_transfer(count);
    }
    if (!result) return {.why = result};
    const platform::entry_status now = disk.status_of(path);
    if (rest != 0 || now.bytes != before.bytes || now.modified != before.modified)
        return {.why = outcome::because(changed_meanwhile), .unread = path};
    packed.sha256 = sum.text();
    packed_.insert_or_assign(path_key(path), std::move(packed));
    return {};
}

packed_archive::failure packed_archive::add_tree(const std::function<bool()>& is_stopped) {
    for (const auto& each :
         platform::list_tree(platform::current_system(), path_with_separator(place_.archive))) {
        if (each.is_folder) {
            const outcome added =
                writer_->add({name_of_entry(each.path), packed_entry::type::folder, 0, written_at_});
            if (!added) return {.why = added};
        } else if (failure failed = add_file(each.path, is_stopped)) {
            return failed;
        }
    }
    return {};
}

packed_archive::failure packed_archive::write_all(session& host, continuation& earlier,
                                                  resave_report& report) {
    const std::function<bool()> is_stopped = [&] { return host.interrupted(); };
    writer_ = archive_writer::begin(place_.format, *file_);
    if (failure failed = add_tree(is_stopped)) return failed;
    for (const problem& each : write_manifest(host.context(), earlier, is_stopped, &packed_))
        add(report, each);
    const wide_string manifest = manifest_path(host.context().placement.new_project_path);
    if (path_exists(manifest) && !packed_.contains(path_key(manifest)))
        if (failure failed = add_file(manifest, is_stopped)) return failed;
    const outcome finished = writer_->finish();
    return {.stopped = is_stopped(), .why = finished};
}

void packed_archive::enter(const failure& failed, resave_report& report) {
    discard();
    report.files.clear();
    report.copies.clear();
    if (failed.stopped) {
        add(report, {own_kind::interrupted, {}, {}, {}, u"no archive was written"});
        report.exit = stopped, report.outcome = "stopped";
        return;
    }
    const wide_string reason = failed.unread.empty() ? failed.why.text() : u"a file could not be read";
    add(report, {own_kind::not_created, {}, {}, place_.archive, reason});
    report.exit = not_saved, report.outcome = "not saved";
}

void packed_archive::write(session& host, continuation& earlier, resave_report& report) {
    written_at_ = std::chrono::duration_cast<std::chrono::nanoseconds>(
                      std::chrono::system_clock::now().time_since_epoch())
                      .count();
    const failure failed = [&] {
        const shown_transfer shown(host.screen(), summary_of(report).bytes, packing_caption());
        return write_all(host, earlier, report);
    }();
    if (!failed) return;
    if (!failed.unread.empty()) {
        const wide_string* const source = host.context().placement.made.source_of(failed.unread);
        add(report, {name_of(fact_kind::copy_failed),
                     {},
                     source ? *source : wide_string(),
                     failed.unread,
                     failed.why.text()});
    }
    enter(failed, report);
}

// Flushes the content first, so that the final name never belongs to an incomplete archive.
void packed_archive::put_in_place(resave_report& report) {
    outcome result = file_->flush();
    // A file that got this name during the run belongs to somebody else, and may be their only copy.
    if (result && real_.identity_of(place_.archive) != replaced_)
        result = outcome::because(u"another file has this name");
    if (result) result = real_.rename_over(part_, place_.archive);
    if (!result) return enter({.why = result}, report);
    writer_.reset();
    file_.reset();
    if (const outcome flushed = real_.flush(path_normalise(path_head(place_.archive))); !flushed)
        add(report, {name_of(fact_kind::not_written), {}, {}, place_.archive, flushed.text()});
}

} // namespace vestra::command
