// How a resave continues an earlier one: `--resume` after an interrupted run, `--update` of a complete copy.
// The bundle does not know about it; it works on a disk that hides the files of the earlier run.
//
// Every resave into a folder uses this class, also one that continues nothing, because it keeps the journal.
// The calls in their order:
//
//    find, session::load, put_in_force, begin_journal, the run, end_files, end_journal
//
// If the run does not take place, call `abandon` instead of the remaining functions. If the run was stopped
// and its files were erased, call `abandon` before `end_files`.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "apps/vestra_resave/continued_disk.h"
#include "apps/vestra_resave/journal_disk.h"
#include "apps/vestra_resave/problems.h"

namespace vs::project_resave {
class project_context;
}

namespace vestra::command {

class session;
class source_elements;
class trial_disk;
class placed_copies;
struct resave_report;
struct resave_request;

enum class run_mode { anew, resume, update };

// One object per resave. It must outlive everything that uses the disk. The destructor removes the disks but
// keeps the journal, as if the program had been killed. Main thread only.
class continuation {
public:
    // `source` and `target` are the project files; `request` must outlive this object.
    continuation(const resave_request& request, wide_string source, wide_string target);
    ~continuation();

    // Finds out what the earlier run made, from its journal, its manifest or, without either, the earlier
    // project. Call it before loading the source, because it may have to load the earlier project into the
    // session. Changes nothing on the disk. Returns why the run cannot continue or must not start: another
    // run is active here, the journal belongs to another request, or the user has changed the project.
    std::optional<refusal> find(session& host);
    // True if the existing project at the target is the earlier run's and can be replaced.
    bool may_replace_project() const { return may_replace_project_; }

    // Makes this object's disks the current ones: the disk of the journal, and on top of it the disk that
    // hides files. A dry run has no journal disk, and the trial disk is on top. The source must be loaded,
    // and `context` must be the one that runs. Without an earlier run nothing is hidden.
    void put_in_force(vs::project_resave::project_context& context, const source_elements& source,
                      trial_disk* trial);
    // Begins the journal, except in a dry run, and flushes it to the disk. The target's folder must exist.
    // From now on no other run can start in this folder. Returns an error if the journal cannot be written or
    // another run is active; call `abandon` then.
    std::optional<refusal> begin_journal();

    // Returns null if the run does not continue an earlier one.
    continued_disk* disk() { return disk_.get(); }
    // Returns the copies of this run whose digest was computed while they were made, by path key; null for a
    // trial. Digests are only kept if a manifest will be written.
    const std::unordered_map<wide_string, earlier_file>* digests() const {
        return journal_ ? &journal_->digests() : nullptr;
    }
    // True if the earlier run wrote a manifest, which this run updates.
    bool has_manifest() const { return has_manifest_; }
    // Returns existing files of earlier runs that this run neither made nor kept. Call it after `end_files`.
    std::vector<earlier_file> left();
    // Returns files of earlier runs that were changed since, with the values recorded then. The manifest must
    // keep them, so that later runs see that the files were changed.
    std::vector<earlier_file> changed();
    // Makes `end_journal` keep the journal although the project was saved, because the manifest lacks
    // information that is in it. Call it between `end_files` and `end_journal`.
    void keep_journal() { is_broken_off_ = true; }

    // Adds to the report what became of the earlier files. If the run saved its project, removes those that
    // are incomplete, and with --resume or --prune those that the result does not use. After that the disk
    // hides nothing. Call it before another project is loaded, while placement and guard of the context are
    // still those of the run.
    void end_files(vs::project_resave::project_context& context, resave_report& report);
    // Flushes the new project, its manifest and its folder to the disk if the run saved, and then ends the
    // journal: it is removed, or kept and flushed if the run can be resumed. If the project cannot be
    // flushed, the report is changed to "not saved". The disks are no longer in use afterwards.
    void end_journal(resave_report& report);
    // Ends the journal of a run that left nothing. A journal that existed before is kept, since the files
    // that it lists still exist, and so is that of an update or resume that made a change. Does nothing if
    // the journal has not begun or has ended.
    void abandon();

private:
    std::vector<const continued_disk::row*> unreferenced();
    std::vector<earlier_file> files_that_are(std::initializer_list<continued_disk::fate> wanted);
    // True if files of earlier runs that are not part of the result are to be removed: with --resume or
    // --prune.
    bool removes_unreferenced() const;
    std::optional<refusal> find_to_resume(session& host);
    std::optional<refusal> find_to_update(session& host);
    std::optional<refusal> find_earlier_copy(session& host);
    std::optional<refusal> refuse_changed_project() const;
    bool has_own_manifest() const;
    std::optional<refusal> refuse_at_work(const wide_string& journal) const;
    std::optional<refusal> refuse_others_at_work() const;
    bool is_as_recorded(const std::vector<earlier_file>& files) const;
    void add_files(std::vector<earlier_file> files);
    void classify(resave_report& report);
    void remove_unreferenced(vs::project_resave::project_context& context, resave_report& report);
    void end_unreferenced(const continued_disk::row& left, const char16_t* keeps, const placed_copies& copies,
                          resave_report& report);
    void flush(resave_report& report);
    platform::outcome close_journal(bool removes);

    const resave_request& request_;
    const wide_string source_, target_;
    run_mode mode_; // the journal's mode once it is read
    bool may_replace_project_ = false, has_manifest_ = false, has_journal_ = false, is_recorded_ = false,
         is_journal_ended_ = false;
    std::string asked_;                              // the request as recorded in the journal
    std::vector<earlier_file> earlier_copy_, files_; // of the manifest or project; all
    trial_disk* trial_ = nullptr;
    std::unique_ptr<journal_disk> journal_;
    std::optional<platform::system_override> journal_in_force_;
    std::unique_ptr<continued_disk> disk_;
    std::optional<platform::system_override> disk_in_force_;
    std::vector<wide_string> sources_; // existing files of the project, as known before the run
    bool is_broken_off_ = false;       // the run can be resumed although the project was saved
    std::vector<continued_disk::row> rows_;
};

} // namespace vestra::command
