// Finds out what an earlier run left at the target and whether a resave can continue from it.
#include "apps/vestra_resave/continuation.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

#include "apps/vestra_resave/commands.h"
#include "apps/vestra_resave/earlier_request.h"
#include "apps/vestra_resave/file_content.h"
#include "apps/vestra_resave/manifest.h"
#include "apps/vestra_resave/output_file.h"
#include "apps/vestra_resave/referred_files.h"
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

continuation::continuation(const resave_request& request, wide_string source, wide_string target)
    : request_(request), source_(std::move(source)), target_(std::move(target)), mode_(request.mode) {}

continuation::~continuation() = default;

std::optional<refusal> continuation::find(session& host) {
    // The language is a part of the request, because folders by type are named in it.
    asked_ =
        text_of_request(request_, source_, target_, shell::settings().language_offset == 0 ? "ru" : "en");
    has_journal_ = platform::current_system().kind_of(journal_path(target_)) == entry_kind::file;
    if (platform::current_system().identity_of(journal_path(target_)).is_link)
        return refused(journal_path(target_),
                       say("is a link; the journal of the resave would be written elsewhere"));
    // Checked for every mode, since a run that is active would be disturbed by any of them.
    if (has_journal_)
        if (auto early = refuse_at_work(journal_path(target_))) return early;
    if (request_.mode == run_mode::resume) return find_to_resume(host);
    if (request_.mode == run_mode::update) return find_to_update(host);
    if (!has_journal_) { // a remaining manifest describes the project being replaced
        has_manifest_ = path_exists(target_) && has_own_manifest();
        return std::nullopt;
    }
    return refused(journal_path(target_), say("an earlier resave was interrupted: use --resume to continue "
                                              "it, or --update to bring the copy up to date"));
}

// Refuses to start while another run is active, which keeps its journal open.
std::optional<refusal> continuation::refuse_at_work(const wide_string& journal) const {
    std::unique_ptr<platform::file> file;
    const platform::outcome opened = platform::current_system().open(
        journal, platform::access::read_write, platform::disposition::open_existing, file);
    if (!opened.is(platform::failure::in_use)) return std::nullopt;
    return refused(journal, say("another resave into this folder is running"));
}

// Refuses to start while a run of another project is active in the folder, because it would take names that
// this run found free. This run's own journal is open already, so of two runs that start at the same moment
// at least one sees the other.
std::optional<refusal> continuation::refuse_others_at_work() const {
    const wide_string own = journal_path(target_), folder = path_head(target_);
    for (const auto& each : platform::entries_or_none(platform::current_system(), folder)) {
        const wide_string path = folder + each.name;
        if (each.is_folder || !each.name.ends_with(journal_name_end) || path_same(path, own)) continue;
        if (auto early = refuse_at_work(path)) return early;
    }
    return std::nullopt;
}

std::optional<refusal> continuation::find_to_resume(session& host) {
    const wide_string path = journal_path(target_);
    if (!has_journal_)
        return refused(path, say("there is no such journal: no resave into this folder was interrupted"));
    earlier_run earlier;
    if (const platform::outcome read = read_journal(path, earlier); !read)
        return refused(path, one_line(read.text()));
    // A run that was killed before it recorded its request has made nothing. It is begun anew, in its
    // journal.
    is_recorded_ = !earlier.request.empty();
    if (is_recorded_) {
        if (!is_request(earlier.request)) return refused(path, say("the journal cannot be read"));
        if (const std::string differs = difference_of(earlier.request, asked_); !differs.empty())
            return refused(path, say("the interrupted resave cannot be resumed: %1", {differs}));
        // What was interrupted as an update is continued as one, although --resume was given.
        if (is_update(earlier.request)) mode_ = run_mode::update;
    } else if (!earlier.files.empty()) {
        return refused(path, say("the journal cannot be read"));
    }
    if (mode_ == run_mode::update) {
        if (auto early = read_manifest(target_, earlier_copy_)) return early;
        has_manifest_ = !earlier_copy_.empty();
        // The earlier copy can be older than the interrupted run: the project may still be as the manifest
        // says.
        may_replace_project_ = is_as_recorded(earlier_copy_);
        if (auto early = find_earlier_copy(host)) return early;
    } else {
        has_manifest_ = has_own_manifest();
    }
    may_replace_project_ |= !path_exists(target_) || is_as_recorded(earlier.files);
    if (auto early = refuse_changed_project()) return early;
    add_files(std::move(earlier.files));
    return std::nullopt;
}

bool continuation::has_own_manifest() const {
    std::vector<earlier_file> files;
    return !read_manifest(target_, files) && !files.empty();
}

std::optional<refusal> continuation::refuse_changed_project() const {
    if (may_replace_project_ || request_.overwrite) return std::nullopt;
    return refused(target_, say("was changed since the earlier resave; use --overwrite to replace it"));
}

std::optional<refusal> continuation::find_to_update(session& host) {
    wide_string from;
    if (auto early = read_manifest(target_, earlier_copy_, &from)) return early;
    // --overwrite replaces the copy of another project, but together with --prune it would also remove all of
    // its files.
    if (!from.empty() && !is_same_project(from, source_) && (request_.prune || !request_.overwrite))
        return refused(target_, say("is a copy of another project: %1", {printed(from)}));
    has_manifest_ = !earlier_copy_.empty();
    earlier_run earlier;
    if (has_journal_)
        if (const platform::outcome read = read_journal(journal_path(target_), earlier); !read)
            return refused(journal_path(target_), one_line(read.text()));
    // The request is recorded first, so a journal with files but without one was damaged.
    if (earlier.request.empty() && !earlier.files.empty())
        return refused(journal_path(target_), say("the journal cannot be read"));
    if (!earlier.request.empty())
        if (const std::string other = other_project_in(earlier.request, asked_); !other.empty())
            return refused(journal_path(target_), say("it belongs to another project: %1", {other}));
    may_replace_project_ =
        !path_exists(target_) || is_as_recorded(earlier_copy_) || is_as_recorded(earlier.files);
    if (has_manifest_ || has_journal_) {
        if (auto early = refuse_changed_project()) return early;
    } else if (!may_replace_project_ && !request_.overwrite) {
        return refused(target_,
                       say("has no manifest, so its source is unknown; use --overwrite to replace it"));
    } else if (request_.prune && path_exists(target_)) {
        return refused(manifest_path(target_), say("there is no manifest; without one no files are removed"));
    }
    if (auto early = find_earlier_copy(host)) return early;
    add_files(std::move(earlier.files));
    return std::nullopt;
}

// Without a manifest, the files that the earlier project refers to are its copy. The project file itself has
// no record, so it counts as begun, which allows the run to replace it; whether it may has been checked
// before.
std::optional<refusal> continuation::find_earlier_copy(session& host) {
    if (!has_manifest_ && path_exists(target_)) {
        // Do not search for files that the earlier project lost.
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

// True if the project file is as the earlier run wrote it, or as it was before if it is unknown whether the
// earlier run wrote it.
bool continuation::is_as_recorded(const std::vector<earlier_file>& files) const {
    const platform::entry_status now = platform::current_system().status_of(target_);
    return std::ranges::any_of(files, [&](const earlier_file& each) {
        if (!path_same(each.path, target_)) return false;
        // Begun but not completed, so its size and time are unknown.
        if (each.modified == 0 && each.state == made_state::writing) return true;
        if (each.modified != 0 && now.bytes == each.bytes && now.modified == each.modified) return true;
        // A copy of the whole folder can have lost the times of its files.
        file_digest digest;
        return !each.sha256.empty() &&
               read_digest(
                   target_, [] { return false; }, digest) &&
               digest.sha256 == each.sha256;
    });
}

// Adds the files and their folders. Paths outside the new project's folder are ignored, whatever a journal or
// manifest says.
void continuation::add_files(std::vector<earlier_file> files) {
    const wide_string top = path_key(path_head(target_));
    const wide_string below = path_with_separator(top);
    std::unordered_set<wide_string> seen{top};
    for (earlier_file& each : files) {
        const wide_string key = path_key(each.path);
        const bool is_of_command =
            key == path_key(journal_path(target_)) || key == path_key(manifest_path(target_));
        // A path outside the folder was not written by this program. The journal and the manifest are
        // replaced by the command itself.
        if (!key.starts_with(below) || is_of_command) continue;
        // A manifest lists no folders, and a journal only those that did not exist before, so they are taken
        // from the paths.
        for (wide_string folder = path_normalise(path_head(each.path));
             path_key(folder).starts_with(top) && seen.insert(path_key(folder)).second;
             folder = path_normalise(path_head(folder)))
            files_.push_back({.path = folder, .state = made_state::folder});
        files_.push_back(std::move(each));
    }
}

void continuation::put_in_force(project_context& context, const source_elements& source, trial_disk* trial) {
    trial_ = trial;
    sources_ = context.sizes.known_paths();
    // A source that was already missing does not come back. A trial does not need to know.
    if (!trial) std::erase_if(sources_, [](const wide_string& path) { return !path_exists(path); });
    platform::system& real = trial ? trial->below() : platform::current_system();
    if (!trial) {
        journal_ = std::make_unique<journal_disk>(real, target_);
        if (request_.manifest || has_manifest_) journal_->keep_digests();
        journal_in_force_.emplace(*journal_);
    }
    if (request_.mode == run_mode::anew) return;
    // A file of the earlier copy can be a source of this run, if the project now refers to it there. Then it
    // must neither be hidden nor replaced.
    std::erase_if(files_, [&](const earlier_file& each) { return context.guard.protects(each.path); });
    platform::system& below = journal_ ? static_cast<platform::system&>(*journal_) : real;
    disk_ = std::make_unique<continued_disk>(below, journal_.get(), std::move(files_));
    // The log is written anew in each run, even if the user changed it.
    disk_->let_go(path_head(target_) + path_stem(target_) + load_string(text::log_name_suffix));
    if (request_.overwrite) disk_->let_go(target_);
    // A folder that is one data set is changed or unchanged as a whole.
    std::vector<wide_string> files;
    for (const source_elements::row& each : source.rows()) files.push_back(each.file);
    disk_->keep_together(files);
    if (!has_manifest_) disk_->know_sources(sources_);
    // Only an update keeps places: a resumed run repeats the same choices in the same order, and must not
    // choose differently from an undisturbed one.
    if (mode_ == run_mode::update) disk_->keep_places_of(context.sizes.known_paths());
    if (trial)
        trial->put_above(*disk_);
    else
        disk_in_force_.emplace(*disk_);
}

std::optional<refusal> continuation::begin_journal() {
    if (!journal_) return std::nullopt;
    // A resumed run keeps the recorded request. An update writes its own, which replaces the one of the run
    // before.
    const bool is_to_be_entered = !is_recorded_ || request_.mode == run_mode::update;
    const platform::outcome begun = journal_->begin(is_to_be_entered ? asked_ : "", has_journal_);
    if (begun) return refuse_others_at_work();
    is_journal_ended_ = true;
    if (begun.is(platform::failure::in_use) || begun.is(platform::failure::taken))
        return refused(journal_path(target_), say("another resave into this folder is running"));
    return refusal{not_saved, {{own_kind::not_created, {}, {}, journal_path(target_), begun.text()}}};
}

} // namespace vestra::command
