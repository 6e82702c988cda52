// A disk that keeps the journal of a run: each change is entered before it is made, and again once it is
// whole.
#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "apps/vestra_resave/earlier_files.h"
#include "platform/forwarding_system.h"

namespace vestra::command {

// A copy that is to take the place of an older file has such a name until then.
inline constexpr vs::project_resave::wide_view copy_name_begin = u".copy-", copy_name_end = u".tmp";

class journal_disk final : public vs::project_resave::forwarding_system {
public:
    // `below` outlives this object. The journal is kept in the folder of `project`.
    journal_disk(platform::system& below, const wide_string& project);
    ~journal_disk() override;

    // Creates the journal, or opens it to go on; `request` is entered as what was asked for. Fails with
    // `in_use` while another run is at work, and with `taken` if it is to be created and exists.
    platform::outcome begin(const std::string& request, bool goes_on);
    // Enters a copy that an earlier run made and this one leaves as it is.
    void add_kept(const wide_string& path, const wide_string& source, const platform::entry_status& status);
    // Ends the journal: it is removed, or stays and is flushed.
    platform::outcome end(bool removes);
    // The first failure to bring what was copied to the disk: the system reports such a loss once, and no
    // later success makes up for it. Success where the system does not let us ask.
    const platform::outcome& kept() const { return kept_; }
    // True if anything was copied, created or written since it began.
    bool has_made() const { return has_made_; }

    // These fail, and change nothing, if the journal cannot be written.
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
    std::string word(const wide_string& path) const { return journal_word(path, folder_); }
    platform::outcome enter(const std::vector<std::string>& words);
    platform::outcome write();
    void add_size(uint64_t bytes);
    void make_safe();

    const wide_string path_, folder_;
    std::unique_ptr<platform::file> file_; // null while no journal is kept
    std::string pending_;                  // entered, but not yet written
    bool has_made_ = false;
    platform::outcome kept_;
    uint64_t next_name_ = 0;    // of a copy that is to take the place of an older file
    uint64_t unsafe_bytes_ = 0; // copied since the disk was last known to have everything
    std::chrono::steady_clock::time_point safe_at_;
};

} // namespace vestra::command
