// A disk that shows one archive as a read-only folder. `verify` and `list` work on it as on any folder, and
// nothing is unpacked to the disk. Everything outside the archive is on the disk below.
//
// The archive is read once from beginning to end (archive_pass.cpp). The beginning of each file stays in
// memory; files that commands read completely, such as projects and scenes, stay as a whole. Reading more of
// another file reads the archive again up to that position.
//
// An unsafe entry is hidden and reported: one with an absolute name or "..", a link, a device, or a second
// entry with the same name. A size that the archive cannot hold is reported as damage. So even a malicious
// archive cannot make this program write files or keep more than its limits in memory.
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
    // Reads the archive. If `is_stopped` returns true, the view has only the entries read so far. With `sums`
    // every byte is read, and the SHA-256 of each file is computed. Returns null and sets `reason` if the
    // file is not an archive or is damaged.
    static std::unique_ptr<archive_view> open(const wide_string& archive, bool sums,
                                              const std::function<bool()>& is_stopped, wide_string& reason);

    // Sets `inside` to the only project file in the topmost folder or, if that has none, in the whole
    // archive. Returns false if there is no project file or more than one.
    bool find_project(wide_string& inside) const;
    // Returns the hidden entries and the damaged files.
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
    // These fail for paths in the archive.
    platform::outcome copy_file(const wide_string& source, const wide_string& target, bool replace) override;
    platform::outcome delete_file(const wide_string& path) override;
    platform::outcome create_folder(const wide_string& path) override;
    platform::outcome remove_folder(const wide_string& path) override;
    platform::outcome rename_over(const wide_string& from, const wide_string& to) override;

private:
    struct entry {
        wide_string path;
        platform::entry_status status;
        uint64_t identity = 0; // unique in the archive
        uint64_t number = 0;   // of the file's entry in the archive, counted from 1
        std::string beginning; // the bytes kept in memory
        std::string sha256;
        const char16_t* fault = nullptr; // why the content cannot be read
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
    bool is_inside(const wide_string& path) const { return is_in_archive(path, archive_key_); }

    static constexpr size_t piece = 256 * 1024; // bytes read at once
    static constexpr const char16_t* damaged = u"it is damaged in the archive";
    static constexpr const char16_t* encrypted = u"it is encrypted in the archive";

    const wide_string archive_, archive_key_;
    uint64_t archive_bytes_ = 0, held_bytes_ = 0, entries_read_ = 0, name_characters_ = 0;
    std::unordered_map<wide_string, entry> entries_;                   // by path key
    std::unordered_map<wide_string, std::vector<wide_string>> inside_; // keys, by that of their folder
    std::vector<problem> problems_;
};

// Makes a command read an archive as a folder, as long as this object exists.
class read_archive_scope {
public:
    // If `typed` is the path of an existing archive or of a file in one, opens the archive and sets `typed`
    // to the path of the project. Returns the reason if the command cannot continue.
    std::optional<refusal> begin(session& host, std::string& typed, bool sums);
    // Returns null if no archive is open.
    archive_view* view() { return view_.get(); }

private:
    std::unique_ptr<archive_view> view_;
    std::optional<platform::system_override> in_force_;
};

} // namespace vestra::command
