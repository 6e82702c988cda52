// How a resave goes on where an earlier one ended: `--resume` after one that broke off, `--update` over a
// copy that is whole. The bundle knows nothing of it: it works on a disk that hides what the earlier run
// made.
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

// One for each resave. It must outlive everything that uses the disk.
class continuation {
public:
    continuation(const resave_request& request, wide_string source, wide_string target);
    ~continuation();

    // Finds out what the earlier run made. To be called before the source is loaded, as an earlier project
    // may have to be. Returns why there is nothing to go on from, or why nothing may start here.
    std::optional<refusal> find(session& host);
    // True if the project that exists at the target is the earlier run's, and may be replaced.
    bool may_replace_project() const { return may_replace_project_; }

    // Puts the disk in force; of a dry run it lies below the trial disk. The source is loaded.
    void put_in_force(vs::project_resave::project_context& context, const source_elements& source,
                      trial_disk* trial);
    // Begins the journal, if this is no dry run. The target's folder exists.
    std::optional<refusal> begin_journal();

    // Null for a run that begins anew.
    continued_disk* disk() { return disk_.get(); }
    // True if the earlier run wrote a manifest, which this one keeps up to date.
    bool has_manifest() const { return has_manifest_; }
    // What earlier runs have made and is still there, though this one neither made nor kept it. For after
    // `end_files`.
    std::vector<earlier_file> left();
    // What they have made and somebody has changed since, as it was.
    std::vector<earlier_file> changed();
    // Has the journal stay, as the manifest lacks what it knows.
    void keep_journal() { is_broken_off_ = true; }

    // Enters into the report what became of the earlier files, and removes those that are to go. To be called
    // while the context is that of the run.
    void end_files(vs::project_resave::project_context& context, resave_report& report);
    // Has the disk keep the new project, and ends the journal: it stays if the run can be resumed.
    void end_journal(resave_report& report);
    // Ends the journal of a run of which nothing is left; one that was there before stays.
    void abandon();

private:
    std::vector<const continued_disk::row*> unreferenced();
    std::vector<earlier_file> files_that_are(std::initializer_list<continued_disk::fate> wanted);
    // A resumed run leaves nothing that the one before it began and that is not part of it.
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
    run_mode mode_; // of the journal that is resumed, once it is read
    bool may_replace_project_ = false, has_manifest_ = false, has_journal_ = false, is_recorded_ = false,
         is_journal_ended_ = false;
    std::string asked_;                              // the request as the journal has it
    std::vector<earlier_file> earlier_copy_, files_; // as the manifest has it; all
    trial_disk* trial_ = nullptr;
    std::unique_ptr<journal_disk> journal_;
    std::optional<platform::system_override> journal_in_force_;
    std::unique_ptr<continued_disk> disk_;
    std::optional<platform::system_override> disk_in_force_;
    bool is_broken_off_ = false; // though it was saved
    std::vector<continued_disk::row> rows_;
};

} // namespace vestra::command
