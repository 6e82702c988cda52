// A disk that keeps the journal of a run. It records each file and folder before it is created or
// replaced. A complete copy and a removal are recorded afterwards. earlier_files.h describes the format and
// reads it. Before `begin` and after `end` calls are only forwarded. In between the journal is open for
// writing, so another process can find out that a run is active. Main thread only.
#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "apps/vestra_resave/earlier_files.h"
#include "platform/forwarding_system.h"

namespace vestra::command {

// The temporary name of a copy that is to replace an older file.
inline constexpr vs::project_resave::wide_view copy_name_begin = u".copy-", copy_name_end = u".tmp";

class journal_disk final : public vs::project_resave::forwarding_system {
public:
    // `below` must outlive this object. The journal is in the folder of `project`.
    journal_disk(platform::system& below, const wide_string& project);
    // Keeps the journal if it was not ended.
    ~journal_disk() override;

    // Creates the journal, or opens an existing one if `goes_on`, and records `request`. Fails with `in_use`
    // if another run is active, and with `taken` if a journal that is to be created exists.
    platform::outcome begin(const std::string& request, bool goes_on);
    // Records a copy of an earlier run that this run keeps, so that a later run that has only the journal
    // knows it; `sha256` is empty if it is unknown. Cannot fail: the record is written together with the next
    // one.
    void add_kept(const wide_string& path, const wide_string& source, const platform::entry_status& status,
                  const std::string& sha256);
    // From now on computes the digests of copies while they are made, for a manifest. A copy whose content
    // did not pass through this process, such as one with shared blocks or holes, has none.
    void keep_digests() { keeps_digests_ = true; }
    // Returns the copies made since `keep_digests` whose digest is known, by path key, with size, time and
    // digest.
    const std::unordered_map<wide_string, earlier_file>& digests() const { return digests_; }
    // Ends the journal: removes it, or keeps and flushes it. Returns the first failure. Later changes are not
    // recorded.
    platform::outcome end(bool removes);
    // Returns the first failure to flush copied data to the disk. The operating system reports such a loss
    // only once, and a later success does not make up for it. Returns success if the operating system cannot
    // be asked.
    const platform::outcome& kept() const { return kept_; }
    // True if anything was copied, created or written since `begin`.
    bool has_made() const { return has_made_; }

    // The operations that create or replace fail without changing anything if the journal cannot be written:
    // a file without a record would be taken for a file of the user. A removal does not depend on the
    // journal.
    platform::outcome copy_file(const wide_string& source, const wide_string& target, bool replace) override;
    platform::outcome create_folder(const wide_string& path) override;
    platform::outcome rename_over(const wide_string& from, const wide_string& to) override;
    platform::outcome delete_file(const wide_string& path) override;
    platform::outcome remove_folder(const wide_string& path) override;
    platform::outcome open(const wide_string& path, platform::access wanted, platform::disposition how,
                           std::unique_ptr<platform::file>& result) override;
    platform::outcome flush_volume(const wide_string& folder) override;

private:
    platform::outcome copy_in_place_of(const wide_string& source, const wide_string& target);
    platform::outcome copy_with_digest(const wide_string& source, const wide_string& target, bool replace,
                                       earlier_file& made);
    static std::vector<std::string> finished(std::vector<std::string> words, const earlier_file& made);
    std::string word(const wide_string& path) const { return journal_word(path, folder_); }
    platform::outcome enter(const std::vector<std::string>& words);
    platform::outcome write();
    void add_size(uint64_t bytes);
    void make_safe();

    const wide_string path_, folder_;
    std::unique_ptr<platform::file> file_; // null if no journal is kept
    std::string pending_;                  // recorded but not written yet
    bool has_made_ = false, keeps_digests_ = false;
    std::unordered_map<wide_string, earlier_file> digests_;
    platform::outcome kept_;
    uint64_t next_name_ = 0;    // of the next temporary name
    uint64_t unsafe_bytes_ = 0; // copied since the last flush
    std::chrono::steady_clock::time_point safe_at_;
};

} // namespace vestra::command
