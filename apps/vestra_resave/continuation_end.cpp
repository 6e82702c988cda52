// The end of a continued run: handles files that nothing refers to any more, and ends the journal.
#include "apps/vestra_resave/continuation.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

#include "apps/vestra_resave/commands.h"
#include "apps/vestra_resave/file_content.h"
#include "apps/vestra_resave/manifest.h"
#include "apps/vestra_resave/referred_files.h"
#include "apps/vestra_resave/resave_report.h"
#include "apps/vestra_resave/trial_disk.h"
#include "operations/project_context.h"
#include "operations/run/path_files.h"
#include "platform/path_text.h"

namespace vestra::command {

using namespace vs::project_resave;
using fate = continued_disk::fate;

namespace {

// True if a disk was full or a share was lost during the run, so that the same run can succeed later. After
// other failures a journal would only make the next run refuse, although resuming cannot help.
bool may_succeed_later(const std::vector<wide_string>& sources, const resave_report& report) {
    using platform::failure;
    std::unordered_set<wide_string> lost; // path keys
    for (const problem& each : report.problems) {
        if (each.kind != name_of(fact_kind::copy_failed) && each.kind != name_of(fact_kind::source_lost) &&
            each.kind != name_of(fact_kind::not_read))
            continue;
        // Compared by text, because problems keep only the reason in words.
        for (const failure known : {failure::disk_full, failure::damaged, failure::in_use})
            if (each.reason == platform::outcome(known).text()) return true;
        if (!path_exists(each.path)) lost.insert(path_key(each.path));
    }
    if (lost.empty()) return false;
    // Sources that existed when the project was loaded.
    return std::ranges::any_of(sources, [&](const wide_string& path) {
        return lost.contains(path_key(path)) || lost.contains(path_key(path_normalise(path_head(path))));
    });
}

// True for a problem that leaves the run without a source, or without knowing all sources. Then a file that
// nothing refers to may be needed again once the source is back.
bool is_loss(const problem& found) {
    const std::string_view kinds[] = {name_of(fact_kind::source_lost),
                                      name_of(fact_kind::type_not_resaved),
                                      name_of(fact_kind::copy_failed),
                                      name_of(fact_kind::not_read),
                                      name_of(fact_kind::exception_caught),
                                      name_of(fact_kind::not_written),
                                      own_kind::unreadable,
                                      own_kind::not_loaded};
    return std::ranges::find(kinds, found.kind) != std::end(kinds);
}

// True if a scene file written in the trial equals the existing one. Its references are rewritten, so it
// cannot be compared with its source.
bool is_written_alike(const wide_string& path, platform::system& real) {
    if (!path_extension(path).starts_with(u"._")) return false;
    std::string planned, existing;
    if (!read_text(path, planned)) return false;
    // The planned text was read through the trial disk, the existing one must not be.
    const platform::system_override in_force(real);
    return read_text(path, existing) && planned == existing;
}

// Returns the sets in which a file, other than a companion of a copy, has lost its source. A companion that
// vanished from the source should be removed, because programs would read it with the copy.
std::unordered_set<wide_string> last_copies(const std::vector<const continued_disk::row*>& left,
                                            const placed_copies& copies) {
    std::unordered_set<wide_string> sets;
    for (const continued_disk::row* each : left)
        if (!each->file->source.empty() && !path_exists(each->file->source) &&
            !copies.read_with(each->file->path))
            sets.insert(*each->set);
    return sets;
}

problem of_row(const char* kind, const continued_disk::row& row) {
    return {kind, {}, {}, row.file->path, {}};
}

} // namespace

std::vector<const continued_disk::row*> continuation::unreferenced() {
    std::vector<const continued_disk::row*> found;
    if (!disk_) return found;
    rows_ = disk_->rows();
    for (const continued_disk::row& each : rows_) {
        const bool is_made = trial_ && trial_->has_made(each.file->path);
        if (each.what == fate::hidden && !is_made) found.push_back(&each);
    }
    return found;
}

std::vector<earlier_file> continuation::files_that_are(std::initializer_list<fate> wanted) {
    std::vector<earlier_file> files;
    if (!disk_) return files;
    // Folders and files that were only begun or referred to are not in a manifest.
    for (const continued_disk::row& each : disk_->rows())
        if (std::ranges::find(wanted, each.what) != wanted.end() &&
            (each.file->state == made_state::copied || each.file->state == made_state::written))
            files.push_back(*each.file);
    return files;
}

std::vector<earlier_file> continuation::left() { return files_that_are({fate::hidden, fate::failed}); }

std::vector<earlier_file> continuation::changed() { return files_that_are({fate::changed}); }

// Sorts the copies of the report into new ones and those of earlier runs.
void continuation::classify(resave_report& report) {
    for (const copied_file& copy : report.copies) {
        auto what = trial_ ? disk_->fate_of_copy(copy.source, copy.target) : disk_->fate_of(copy.target);
        // A real run compares when it renames the new file; the trial never gets that far.
        if (trial_ && what == fate::replaced && is_written_alike(copy.target, disk_->below()))
            what = fate::kept;
        if (what == fate::kept)
            (mode_ == run_mode::update ? report.unchanged : report.taken_over).push_back(copy);
        else if (what == fate::replaced)
            report.replaced.push_back(copy);
    }
}

bool continuation::removes_unreferenced() const { return mode_ == run_mode::resume || request_.prune; }

void continuation::remove_unreferenced(project_context& context, resave_report& report) {
    // If a source is lost, its copies are the last ones and must be kept.
    const bool lacks_sources = std::ranges::any_of(report.problems, &is_loss);
    std::vector<const continued_disk::row*> left = unreferenced();
    std::ranges::reverse(left); // a folder after its contents
    if (!left.empty()) {
        // The current disk hides the files to be removed.
        const platform::system_override in_force(disk_->below());
        std::vector<wide_string> paths;
        paths.reserve(left.size());
        for (const continued_disk::row* each : left) paths.push_back(each->file->path);
        other_users others(context, target_, sources_, paths);
        const placed_copies copies(context.placement.placed);
        const std::unordered_set<wide_string> kept = last_copies(left, copies);
        for (const continued_disk::row* each : left) {
            const char16_t* keeps = nullptr;
            if (lacks_sources)
                keeps = u"no files are removed while part of the project is missing";
            else if (others.need(each->file->path))
                keeps = u"something else uses it";
            else if (kept.contains(*each->set))
                keeps = u"its source no longer exists, so it may be the last copy";
            end_unreferenced(*each, keeps, copies, report);
        }
    }
    // The next --resume has to remove what is left now.
    is_broken_off_ |= mode_ == run_mode::resume && lacks_sources && !left.empty();
    for (const continued_disk::row& each : rows_)
        if (each.what == fate::changed && each.file->state != made_state::folder &&
            !disk_->may_go(each.file->path))
            add(report, of_row(own_kind::changed_since, each));
}

// Removes one file or folder, or reports that it is left. Folders are not reported.
void continuation::end_unreferenced(const continued_disk::row& left, const char16_t* keeps,
                                    const placed_copies& copies, resave_report& report) {
    const bool is_folder = left.file->state == made_state::folder;
    const bool is_begun = is_only_begun(*left.file);
    // What was only begun is removed in any case: it is incomplete, and no user made it.
    const bool removes = is_begun || (removes_unreferenced() && !keeps);
    // The content of a folder is reported, not the folder.
    if (is_folder && (!removes || trial_ || disk_->is_filled(*left.file))) return;
    platform::outcome removed;
    if (removes && !trial_) removed = disk_->remove_hidden(*left.file);
    problem found = of_row(removes ? own_kind::pruned : own_kind::unreferenced, left);
    if (!removed)
        found.kind = name_of(fact_kind::not_erased), found.reason = removed.text();
    else if (removes_unreferenced() && keeps)
        found.reason = keeps;
    if (const wide_string* const main = removes ? nullptr : copies.read_with(left.file->path);
        main && !is_folder)
        found.kind = own_kind::stale, found.path = std::exchange(found.new_path, *main);
    // A resumed run removes files that the interrupted one began; the user never knew of them.
    const bool is_told = !removed || (mode_ == run_mode::update && !is_folder && !is_begun);
    if (is_told) add(report, std::move(found));
}

void continuation::flush(resave_report& report) {
    platform::system& disk = platform::current_system();
    const wide_string folder = path_normalise(path_head(target_));
    const auto note = [&](const wide_string& path, const platform::outcome& flushed) {
        if (!flushed) add(report, {name_of(fact_kind::not_written), {}, source_, path, flushed.text()});
        return bool(flushed);
    };
    // The project is flushed before the journal is removed. If that fails, the run has not saved, although
    // the project can be read now.
    if (!note(target_, disk.flush(target_))) report.exit = not_saved, report.outcome = "not saved";
    if (path_exists(manifest_path(target_))) {
        note(manifest_path(target_), disk.flush(manifest_path(target_)));
        disk.flush_volume(folder); // a later update relies on the files in the manifest being complete
    }
    // The next run reads from the journal what was lost and copies it again.
    if (journal_ && !note(folder, journal_->kept())) is_broken_off_ = true;
    note(folder, disk.flush(folder));
}

void continuation::end_files(project_context& context, resave_report& report) {
    is_broken_off_ = may_succeed_later(sources_, report);
    if (!disk_) return;
    classify(report);
    if (report.exit == done || report.exit == problems) remove_unreferenced(context, report);
    disk_->reveal();
}

void continuation::end_journal(resave_report& report) {
    const auto is_written = [&] { return report.exit == done || report.exit == problems; };
    if (is_written() && !trial_) flush(report);
    const bool is_saved = is_written();
    if (!journal_ || is_journal_ended_) return;
    const bool has_begun = has_journal_ || journal_->has_made();
    report.resumable = has_begun && (!is_saved || is_broken_off_);
    if (const platform::outcome ended = close_journal(!report.resumable); !ended)
        add(report, {own_kind::not_created, {}, {}, journal_path(target_), ended.text()});
}

void continuation::abandon() {
    // Even if the files of an update were erased, it may have replaced files that are not in the manifest.
    const bool is_needed = has_journal_ || (disk_ && journal_ && journal_->has_made());
    if (journal_ && !is_journal_ended_) close_journal(!is_needed);
}

platform::outcome continuation::close_journal(bool removes) {
    // Uninstalled in reverse order. The journal ends last, when nothing more can be recorded.
    disk_in_force_.reset();
    journal_in_force_.reset();
    is_journal_ended_ = true;
    return journal_->end(removes);
}

} // namespace vestra::command
