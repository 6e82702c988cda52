// A disk on which one archive is a folder that can be read, but not written: `verify` and `list` work on it
// as on a folder, and nothing is unpacked to the disk. Anything outside the archive is on the disk below.
//
// The archive is read once from end to end (archive_pass.cpp). The beginnings of its files stay in memory,
// and files of the project's own kinds as a whole; who reads more of another one reads the archive again up
// to there.
//
// An entry that could be written to another place than below a folder is not shown, but reported: one with an
// absolute name or "..", a link, a device, a second one of a name. A size that the archive cannot hold is
// reported as damage. So no archive, whoever made it, makes this program write or hold more than its limits.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "apps/vestra_resave/archive/archive_place.h"
#include "apps/vestra_resave/file_content.h"
#include "apps/vestra_resave/session.h"
#include "platform/forwarding_system.h"

namespace vestra::command {

class archive_view final : public vs::project_resave::forwarding_system {
public:
    // Reads the archive; `is_stopped` ends that early, with what was found by then. With `sums` every byte is
    // read, and each file's SHA-256 is known. Null, with `reason` set, if it is no archive or is damaged.
    static std::unique_ptr<archive_view> open(const wide_string& archive, bool sums,
                                              const std::function<bool()>& is_stopped, wide_string& reason);

    // Sets `inside` to the only project file in the topmost folder or, if that has none, in the archive.
    // Returns false if there is none, or several.
    bool find_project(wide_string& inside) const;
    // The entries that are not shown, and the files that are damaged.
    const std::vector<problem>& problems() const { return problems_; }
    // Sets the digest of a file, as read_digest does; only if the archive was opened with sums.
    platform::outcome digest_of(const wide_string& path, file_digest& digest) const;

    platform::entry_status status_of(const wide_string& path) override;
    platform::outcome list(const wide_string& path, std::vector<platform::folder_entry>& entries) override;
    bool true_name(const wide_string& folder, const wide_string& name, wide_string& spelling) override;
    platform::file_identity identity_of(const wide_string& path) override;
    bool same_file(const wide_string& a, const wide_string& b) override;
    platform::outcome open(const wide_string& path, platform::access wanted, platform::disposition how,
                           std::unique_ptr<platform::file>& result) override;
    // These fail for what is in the archive.
    platform::outcome copy_file(const wide_string& source, const wide_string& target, bool replace) override;
    platform::outcome delete_file(const wide_string& path) override;
    platform::outcome create_folder(const wide_string& path) override;
    platform::outcome remove_folder(const wide_string& path) override;
    platform::outcome rename_over(const wide_string& from, const wide_string& to) override;

private:
    struct entry {
        wide_string path;
        platform::entry_status status;
        uint64_t identity = 0; // no other has it
        uint64_t number = 0;   // of the file's entry in the archive, counted from 1
        std::string beginning; // as much as is held
        std::string sha256;
        bool is_damaged = false;
    };
    class entry_file;

    explicit archive_view(const wide_string& archive);
    bool read_all(bool sums, const std::function<bool()>& is_stopped, wide_string& reason);
    void read_entry(archive_reader& from, const packed_entry& found, bool sums,
                    const std::function<bool()>& is_stopped);
    bool read_content(archive_reader& from, entry& into, bool sums, const std::function<bool()>& is_stopped);
    entry* add(const wide_string& path, platform::entry_kind kind);
    bool add_folders(const wide_string& path);
    void report(const std::string& name, const char16_t* why);
    const entry* find(const wide_string& path) const;
    bool is_inside(const wide_string& path) const;

    const wide_string archive_, archive_key_;
    uint64_t archive_bytes_ = 0, held_bytes_ = 0, entries_read_ = 0, name_characters_ = 0;
    std::unordered_map<wide_string, entry> entries_;                   // by path key
    std::unordered_map<wide_string, std::vector<wide_string>> inside_; // keys, by that of their folder
    std::vector<problem> problems_;
};

// The archive that a command reads instead of a folder, in force as long as it exists.
class read_archive_scope {
public:
    // Opens the archive if `typed` leads into one that exists, and sets it to the project's path. Returns why
    // the command ends here.
    std::optional<refusal> begin(session& host, std::string& typed, bool sums);
    // Null if there is none.
    archive_view* view() { return view_.get(); }

private:
    std::unique_ptr<archive_view> view_;
    std::optional<platform::system_override> in_force_;
};

} // namespace vestra::command
