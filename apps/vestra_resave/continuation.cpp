#include "apps/vestra_resave/continuation.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

#include "apps/vestra_resave/commands.h"
#include "apps/vestra_resave/earlier_request.h"
#include "apps/vestra_resave/file_content.h"
#include "apps/vestra_resave/manifest.h"
#include "apps/vestra_resave/referred_files.h"
#include "apps/vestra_resave/resave_report.h"
#include "apps/vestra_resave/shortfalls.h"
#include "apps/vestra_resave/trial_disk.h"
#include "apps/vestra_resave/words.h"
#include "framework/resources/strings.h"
#include "operations/project_context.h"
#include "operations/run/path_files.h"
#include "platform/path_text.h"
#include "platform/text.h"
#include "reference_host/shell/front_end.h"

namespace vestra::command {

using namespace vs::project_resave;
using platform::entry_kind;
using fate = continued_disk::fate;

namespace {

// True if a disk was full or a share was lost while the run was at work: the same run can succeed later.
bool may_succeed_later(const project_context& context, const resave_report& report) {
    using platform::failure;
    std::unordered_set<wide_string> lost; // path keys
    for (const problem& each : report.problems) {
        if (each.kind != name_of(fact_kind::copy_failed) && each.kind != name_of(fact_kind::source_lost))
            continue;
        for (const failure known : {failure::disk_full, failure::damaged, failure::in_use})
            if (each.reason == platform::outcome(known).text()) return true;
        if (!path_exists(each.path)) lost.insert(path_key(each.path));
    }
    if (lost.empty()) return false;
    // What the source had when it was loaded.
    return std::ranges::any_of(context.sizes.known_paths(),
                               [&](const wide_string& path) { return lost.contains(path_key(path)); });
}

// True for what leaves the run without a source, or without knowing which sources there are.
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

// True if a scene file of the trial, which has references of its own, is as the one that exists.
bool is_written_alike(const wide_string& path, platform::system& real) {
    if (!path_extension(path).starts_with(u"._")) return false;
    std::string planned, existing;
    if (!read_text(path, planned)) return false;
    const platform::system_override in_force(real);
    return read_text(path, existing) && planned == existing;
}

problem of_row(const char* kind, const continued_disk::row& row) {
    return {kind, {}, {}, row.file->path, {}};
}

} // namespace

continuation::continuation(const resave_request& request, wide_string source, wide_string target)
    : request_(request), source_(std::move(source)), target_(std::move(target)), mode_(request.mode) {}

continuation::~continuation() = default;

std::optional<refusal> continuation::find(session& host) {
    asked_ =
        text_of_request(request_, source_, target_, shell::settings().language_offset == 0 ? "ru" : "en");
    has_journal_ = platform::current_system().kind_of(journal_path(target_)) == entry_kind::file;
    if (platform::current_system().identity_of(journal_path(target_)).is_link)
        return refused(journal_path(target_), say("is a link; the journal of the resave would go elsewhere"));
    if (has_journal_)
        if (auto early = refuse_at_work()) return early;
    if (request_.mode == run_mode::resume) return find_to_resume(host);
    if (request_.mode == run_mode::update) return find_to_update(host);
    if (!has_journal_) { // a manifest that stays would be of what is replaced
        has_manifest_ =
            path_exists(target_) && !read_manifest(target_, earlier_copy_) && !earlier_copy_.empty();
        return std::nullopt;
    }
    return refused(journal_path(target_), say("an earlier resave broke off: --resume goes on with it, "
                                              "--update brings the copy up to date"));
}

// Nothing may start where another run is at work: its journal is open.
std::optional<refusal> continuation::refuse_at_work() const {
    std::unique_ptr<platform::file> file;
    const wide_string path = journal_path(target_);
    const platform::outcome opened = platform::current_system().open(
        path, platform::access::read_write, platform::disposition::open_existing, file);
    if (!opened.is(platform::failure::in_use)) return std::nullopt;
    return refused(path, say("another resave into this folder is at work"));
}

std::optional<refusal> continuation::find_to_resume(session& host) {
    const wide_string path = journal_path(target_);
    if (!has_journal_)
        return refused(path, say("there is no such journal: no resave into this folder broke off"));
    earlier_run earlier;
    if (const platform::outcome read = read_journal(path, earlier); !read)
        return refused(path, one_line(read.text()));
    is_recorded_ = !earlier.request.empty();
    if (is_recorded_) {
        if (!is_request(earlier.request)) return refused(path, say("the journal cannot be read"));
        if (const std::string differs = difference_of(earlier.request, asked_); !differs.empty())
            return refused(path, say("the resave that broke off cannot be resumed: %1", {differs}));
        if (is_update(earlier.request)) mode_ = run_mode::update;
    } else if (!earlier.files.empty()) {
        return refused(path, say("the journal cannot be read"));
    }
    if (mode_ == run_mode::update) {
        if (auto early = read_manifest(target_, earlier_copy_)) return early;
        has_manifest_ = !earlier_copy_.empty();
        may_replace_project_ = is_as_recorded(earlier_copy_);
        if (auto early = find_earlier_copy(host)) return early;
    }
    may_replace_project_ |= !path_exists(target_) || is_as_recorded(earlier.files);
    if (auto early = refuse_changed_project()) return early;
    add_files(std::move(earlier.files));
    return std::nullopt;
}

std::optional<refusal> continuation::refuse_changed_project() const {
    if (may_replace_project_ || request_.overwrite) return std::nullopt;
    return refused(target_, say("was changed since the earlier resave; with --overwrite it is replaced"));
}

std::optional<refusal> continuation::find_to_update(session& host) {
    wide_string from;
    if (auto early = read_manifest(target_, earlier_copy_, &from)) return early;
    if (!from.empty() && !path_same(from, source_) && (request_.prune || !request_.overwrite))
        return refused(target_, say("is a copy of another project: %1", {printed(from)}));
    has_manifest_ = !earlier_copy_.empty();
    earlier_run earlier;
    if (has_journal_)
        if (const platform::outcome read = read_journal(journal_path(target_), earlier); !read)
            return refused(journal_path(target_), one_line(read.text()));
    if (earlier.request.empty() && !earlier.files.empty())
        return refused(journal_path(target_), say("the journal cannot be read"));
    may_replace_project_ =
        !path_exists(target_) || is_as_recorded(earlier_copy_) || is_as_recorded(earlier.files);
    if (has_manifest_ || has_journal_) {
        if (auto early = refuse_changed_project()) return early;
    } else if (!may_replace_project_ && !request_.overwrite) {
        return refused(
            target_,
            say("has no manifest, so what it was made from is unknown; with --overwrite it is replaced"));
    } else if (request_.prune && path_exists(target_)) {
        return refused(manifest_path(target_), say("there is no manifest, without which nothing is removed"));
    }
    if (auto early = find_earlier_copy(host)) return early;
    add_files(std::move(earlier.files));
    return std::nullopt;
}

// Without a manifest what the earlier project refers to is its copy.
std::optional<refusal> continuation::find_earlier_copy(session& host) {
    if (!has_manifest_ && path_exists(target_)) {
        // What is lost there is not looked for.
        const auto project_read = std::exchange(shell::settings().project_read, nullptr);
        const auto scene_read = std::exchange(shell::settings().scene_read, nullptr);
        auto early = host.load(target_, false, false);
        shell::settings().project_read = project_read;
        shell::settings().scene_read = scene_read;
        if (early) return early;
        earlier_copy_ = referred_files(host.context(), target_);
        earlier_copy_.push_back({.path = target_, .state = made_state::writing});
    }
    add_files(std::exchange(earlier_copy_, {}));
    return std::nullopt;
}

// True if the project is as the earlier run wrote it.
bool continuation::is_as_recorded(const std::vector<earlier_file>& files) const {
    const auto row =
        std::ranges::find_if(files, [&](const earlier_file& each) { return path_same(each.path, target_); });
    if (row == files.end()) return false;
    const platform::entry_status now = platform::current_system().status_of(target_);
    if (row->modified != 0) {
        if (now.bytes == row->bytes && now.modified == row->modified) return true;
    } else if (row->state == made_state::writing) {
        return true;
    }
    file_digest digest;
    return !row->sha256.empty() &&
           read_digest(
               target_, [] { return false; }, digest) &&
           digest.sha256 == row->sha256;
}

// With the folders that they are in. What is not below the new project's folder is none of our business,
// whatever a journal or a manifest says.
void continuation::add_files(std::vector<earlier_file> files) {
    const wide_string top = path_key(path_head(target_));
    const wide_string below = path_with_separator(top);
    std::unordered_set<wide_string> seen{top};
    for (earlier_file& each : files) {
        const wide_string key = path_key(each.path);
        const bool is_of_command =
            key == path_key(journal_path(target_)) || key == path_key(manifest_path(target_));
        if (!key.starts_with(below) || is_of_command) continue;
        for (wide_string folder = path_normalise(path_head(each.path));
             path_key(folder).starts_with(top) && seen.insert(path_key(folder)).second;
             folder = path_normalise(path_head(folder)))
            files_.push_back({.path = folder, .state = made_state::folder});
        files_.push_back(std::move(each));
    }
}

void continuation::put_in_force(project_context& context, const source_elements& source, trial_disk* trial) {
    trial_ = trial;
    platform::system& real = trial ? trial->below() : platform::current_system();
    if (!trial) {
        journal_ = std::make_unique<journal_disk>(real, target_);
        journal_in_force_.emplace(*journal_);
    }
    if (request_.mode == run_mode::anew) return;
    std::erase_if(files_, [&](const earlier_file& each) { return context.guard.protects(each.path); });
    platform::system& below = journal_ ? static_cast<platform::system&>(*journal_) : real;
    disk_ = std::make_unique<continued_disk>(below, journal_.get(), std::move(files_));
    disk_->let_go(path_head(target_) + path_stem(target_) + load_string(text::log_name_suffix));
    if (request_.overwrite) disk_->let_go(target_);
    std::vector<wide_string> files;
    for (const source_elements::row& each : source.rows()) files.push_back(each.file);
    disk_->keep_together(files);
    if (!has_manifest_) disk_->know_sources(context.sizes.known_paths());
    if (mode_ == run_mode::update) disk_->keep_places_of(context.sizes.known_paths());
    if (trial)
        trial->put_above(*disk_);
    else
        disk_in_force_.emplace(*disk_);
}

std::optional<refusal> continuation::begin_journal() {
    if (!journal_) return std::nullopt;
    const bool is_to_be_entered = !is_recorded_ || request_.mode == run_mode::update;
    const platform::outcome begun = journal_->begin(is_to_be_entered ? asked_ : "", has_journal_);
    if (begun) return std::nullopt;
    is_journal_ended_ = true;
    const wide_string path = journal_path(target_);
    if (begun.is(platform::failure::in_use) || begun.is(platform::failure::taken))
        return refused(path, say("another resave into this folder is at work"));
    return refusal{not_saved, {{own_kind::not_created, {}, {}, path, begun.text()}}};
}

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

std::vector<earlier_file> continuation::left() {
    std::vector<earlier_file> files;
    if (!disk_) return files;
    for (const continued_disk::row& each : disk_->rows())
        if ((each.what == fate::hidden || each.what == fate::failed) &&
            each.file->state != made_state::folder)
            files.push_back(*each.file);
    return files;
}

// Which copies are older ones.
void continuation::classify(resave_report& report) {
    for (const copied_file& copy : report.copies) {
        auto what = trial_ ? disk_->fate_of_copy(copy.source, copy.target) : disk_->fate_of(copy.target);
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
    // Where a source is lost, its copies are the last ones.
    const bool lacks_sources = std::ranges::any_of(report.problems, &is_loss);
    std::vector<const continued_disk::row*> left = unreferenced();
    std::ranges::reverse(left); // a folder after what is in it
    if (!left.empty()) {
        const platform::system_override in_force(disk_->below()); // this one hides what is to go
        std::vector<wide_string> paths;
        for (const continued_disk::row* each : left) paths.push_back(each->file->path);
        other_users others(context, target_, paths);
        const placed_copies copies(context.placement.placed);
        for (const continued_disk::row* each : left) {
            const char16_t* keeps = nullptr;
            if (lacks_sources)
                keeps = u"nothing is removed while a part of the project is missing";
            else if (others.need(each->file->path))
                keeps = u"something else uses it";
            end_unreferenced(*each, keeps, copies, report);
        }
    }
    is_broken_off_ |= mode_ == run_mode::resume && lacks_sources && !left.empty();
    for (const continued_disk::row& each : rows_)
        if (each.what == fate::changed && each.file->state != made_state::folder &&
            !disk_->may_go(each.file->path))
            add(report, of_row(own_kind::changed_since, each));
}

// Removes one, or says that it is there. Of folders nothing is said.
void continuation::end_unreferenced(const continued_disk::row& left, const char16_t* keeps,
                                    const placed_copies& copies, resave_report& report) {
    const bool is_folder = left.file->state == made_state::folder;
    const bool is_begun = left.file->state == made_state::begun; // perhaps half a file, with no name to stay
    const bool removes = (removes_unreferenced() || is_begun) && !keeps;
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
    const bool is_told = !removed || (mode_ == run_mode::update && !is_folder && !is_begun);
    if (is_told) add(report, std::move(found));
}

void continuation::flush(resave_report& report) {
    for (const wide_string& path : {target_, manifest_path(target_), path_normalise(path_head(target_))}) {
        if (!path_exists(path)) continue;
        const platform::outcome flushed = platform::current_system().flush(path);
        const bool is_file = !path_same(path, path_normalise(path_head(target_)));
        if (flushed || !is_file) continue;
        add(report, {name_of(fact_kind::not_written), {}, source_, path, flushed.text()});
        if (path_same(path, target_)) report.exit = not_saved;
    }
    // A later update takes what the manifest names for whole.
    if (path_exists(manifest_path(target_))) platform::current_system().flush_volume(path_head(target_));
}

void continuation::end_files(project_context& context, resave_report& report) {
    is_broken_off_ = may_succeed_later(context, report);
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
    // An update that was erased may have replaced files, of which the manifest does not know.
    const bool is_needed = has_journal_ || (disk_ && journal_ && journal_->has_made());
    if (journal_ && !is_journal_ended_) close_journal(!is_needed);
}

platform::outcome continuation::close_journal(bool removes) {
    disk_in_force_.reset();
    journal_in_force_.reset();
    is_journal_ended_ = true;
    return journal_->end(removes);
}

} // namespace vestra::command
