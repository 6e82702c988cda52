// A disk for dry runs: it shows the content of the real disk and keeps everything that is created, written
// and removed in memory. The run itself then shows what it would do, and nothing is changed.
//
// Errors that only a real attempt shows are not predicted: a full disk, a read-only folder, a name that the
// file system rejects.
#pragma once

#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "platform/system.h"

namespace vestra::command {

using vs::project_resave::wide_string;
namespace platform = vs::project_resave::platform;

// Memory grows with the number of files made, not with their bytes: a copy only has the path of its source,
// and only files that are written are kept as a whole. Main thread only.
class trial_disk final : public platform::system {
public:
    struct made_file {
        wide_string path;
        wide_string source; // what it was copied from; empty if it was written
        uint64_t bytes = 0;
    };
    // Returns the files made so far that were not removed, in the order of their creation; replaced ones are
    // included. A file that was renamed counts as created then.
    std::vector<made_file> made_files() const;
    // True if a file or folder was made at the path and still exists.
    bool has_made(const wide_string& path) const;

    // Hides what the real disk has under this path, or will have. Something can be made there.
    void hide(const wide_string& path) { put({.path = path}); }

    // `below` returns the disk that is shown. `put_above` sets another one, which must outlive this object;
    // nothing must have been made on this one yet.
    platform::system& below() { return *real_; }
    void put_above(platform::system& below) { real_ = &below; }

    // Files of the real disk can be replaced and removed, but not renamed or modified in place; these fail
    // with a reason.
    platform::entry_status status_of(const wide_string& path) override;
    platform::outcome copy_file(const wide_string& source, const wide_string& target, bool replace) override;
    platform::outcome delete_file(const wide_string& path) override;
    platform::outcome create_folder(const wide_string& path) override;
    platform::outcome remove_folder(const wide_string& path) override;
    platform::outcome list(const wide_string& path, std::vector<platform::folder_entry>& entries) override;
    bool true_name(const wide_string& folder, const wide_string& name, wide_string& spelling) override;
    platform::file_identity identity_of(const wide_string& path) override;
    bool same_file(const wide_string& a, const wide_string& b) override;
    platform::outcome rename_over(const wide_string& from, const wide_string& to) override;
    platform::outcome open(const wide_string& path, platform::access wanted, platform::disposition how,
                           std::unique_ptr<platform::file>& result) override;
    void pause_1ms() override { real_->pause_1ms(); }
    // There is nothing to flush, so both succeed.
    platform::outcome flush(const wide_string&) override { return {}; }
    platform::outcome flush_volume(const wide_string&) override { return {}; }
    // Asks the real disk; for a folder that does not exist yet, the volume on which it would be.
    platform::outcome free_space(const wide_string& folder, uint64_t& bytes) override;

private:
    struct entry {
        platform::entry_kind kind = platform::entry_kind::none; // none: a real entry that was removed
        wide_string path;
        wide_string source = {};
        std::shared_ptr<std::string> text = nullptr; // content of a file that was written
        size_t number = 0;                           // in the order of creation
    };

    // What was made or removed at the path; null if the real disk decides.
    const entry* known(const wide_string& path) const;
    uint64_t bytes_of(const entry& file) const;
    // Fail as a real attempt would: because there is no folder for the path, because its name is taken, or
    // because the file cannot be opened.
    platform::outcome has_folder(const wide_string& path);
    platform::outcome is_free(const wide_string& path);
    platform::outcome is_readable(const wide_string& path);
    void put(entry made);
    void take_away(const wide_string& path);

    platform::system* real_ = &platform::current_system();
    std::unordered_map<wide_string, entry> entries_;                          // by path_key
    std::unordered_map<wide_string, std::unordered_set<wide_string>> inside_; // keys, by that of their folder
    size_t made_ = 0;
};

} // namespace vestra::command
