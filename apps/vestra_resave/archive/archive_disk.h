// A disk that shows one archive as a folder, into which a run writes. Files created there are kept in memory,
// copies only as the path of their source, until `packed_archive` writes all of them at once. So the archive
// contains only the final state of files that were written twice, renamed or removed. Everything outside the
// archive, such as a load log, is on the disk below. Main thread only.
#pragma once

#include "apps/vestra_resave/trial_disk.h"
#include "platform/forwarding_system.h"

namespace vestra::command {

class archive_disk final : public vs::project_resave::forwarding_system {
public:
    // `archive` is the path of the archive. A file with that path is hidden, even if it appears later, so
    // that a folder can be created there; it is not changed.
    explicit archive_disk(const wide_string& archive);

    platform::entry_status status_of(const wide_string& path) override;
    // The disk of the target decides, so a file outside the archive can be copied into it but not the
    // reverse.
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
    // Returns the free space of the disk that contains the archive.
    platform::outcome free_space(const wide_string& folder, uint64_t& bytes) override;
    // These do nothing inside the archive, whose bytes packed_archive flushes.
    platform::outcome flush(const wide_string& path) override;
    platform::outcome flush_volume(const wide_string& folder) override;

private:
    // True for the archive itself and for paths in it.
    bool is_inside(const wide_string& path) const;
    platform::system& disk_of(const wide_string& path) {
        return is_inside(path) ? static_cast<platform::system&>(made_) : inner();
    }

    const wide_string archive_key_;
    trial_disk made_;
};

} // namespace vestra::command
