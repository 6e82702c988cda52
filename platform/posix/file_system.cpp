// The operating system's files on POSIX. Paths are turned into native ones by the volumes; names that this
// process creates or removes are reported to the cache of folder names, which would not notice them in time.

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <fstream>
#include <memory>
#include <optional>
#include <string_view>
#include <thread>

#include "platform/file_parts.h"
#include "platform/posix/descriptor.h"
#include "platform/posix/native_paths.h"
#include "platform/posix/volumes.h"
#include "platform/text.h"

namespace vs::project_resave::platform {

namespace {

folder_names& names() { return mapped_volumes().names(); }

native_answer existing(const wide_string& path) { return mapped_volumes().native(path, true); }
native_answer wanted(const wide_string& path) { return mapped_volumes().to_create(path); }

int64_t nanoseconds(const auto& time) { return int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec; }

folder_entry entry_of(const std::string& folder, const dirent& found) {
    // Some file systems do not report an entry's kind in the listing. A link's own kind is not enough: its
    // target decides.
    const std::string path = joined(folder, found.d_name);
    struct stat status {};
    const bool is_known = found.d_type != DT_UNKNOWN;
    const bool is_link =
        is_known ? found.d_type == DT_LNK : ::lstat(path.c_str(), &status) == 0 && S_ISLNK(status.st_mode);
    const bool is_folder = is_known && !is_link
                               ? found.d_type == DT_DIR
                               : ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
    return {from_utf8(found.d_name), is_folder, is_link};
}

file_identity identity_in(const struct stat& found, bool is_link) {
    // Every sub-folder adds a name to its parent folder's count, so the count of a folder does not
    // show whether there are links to it.
    const bool is_folder = S_ISDIR(found.st_mode);
    const bool has_names = is_link || (!is_folder && found.st_nlink > 1);
    return {found.st_dev, found.st_ino, has_names ? 2U : 1U, is_link, is_folder};
}

class posix_system final : public system {
public:
    entry_status status_of(const wide_string& path) override {
        struct stat found {};
        held_folders::link_state link{};
        if (const outcome result = mapped_volumes().status(path, found, link); !result)
            return {entry_kind::none, 0, result};
        // A device or a pipe: opening it could block, and reading it might never end.
        entry_status status{entry_kind::none, 0, outcome::because(u"not a regular file")};
        if (S_ISDIR(found.st_mode)) status = {entry_kind::folder};
        if (S_ISREG(found.st_mode))
            status = {entry_kind::file, uint64_t(found.st_size), {}, nanoseconds(found.st_mtim)};
        if (link != held_folders::link_state::unknown)
            status.identity = identity_in(found, link == held_folders::link_state::yes);
        return status;
    }

    outcome copy_file(const wide_string& source, const wide_string& target, bool replace) override {
        return copy_regular_file(source, target, replace);
    }

    outcome delete_file(const wide_string& path) override {
        const auto native = existing(path);
        if (!native) return native.result;
        names().before_change(native.path);
        if (::unlink(native.path.c_str()) != 0) return outcome::last();
        names().removed(native.path);
        return {};
    }

    outcome create_folder(const wide_string& path) override {
        const auto native = wanted(path);
        if (!native) return native.result;
        names().before_change(native.path);
        if (::mkdir(native.path.c_str(), 0777) != 0) return outcome::last();
        names().created(native.path);
        return {};
    }

    outcome remove_folder(const wide_string& path) override {
        const auto native = existing(path);
        if (!native) return native.result;
        names().before_change(native.path);
        if (::rmdir(native.path.c_str()) != 0) return outcome::last();
        names().removed(native.path);
        return {};
    }

    outcome list(const wide_string& path, std::vector<folder_entry>& entries) override {
        entries.clear();
        const auto native = existing(path);
        if (!native) return native.result;
        const std::unique_ptr<DIR, int (*)(DIR*)> folder(::opendir(native.path.c_str()), ::closedir);
        if (!folder) return outcome::last();
        for (;;) {
            // readdir reports the end of the folder and a failure alike; only errno distinguishes them.
            errno = 0;
            const dirent* const found = ::readdir(folder.get());
            if (found == nullptr) break;
            const std::string_view name = found->d_name;
            if (name != "." && name != "..") entries.push_back(entry_of(native.path, *found));
        }
        if (errno != 0) {
            const outcome broken = outcome::last();
            entries.clear();
            return broken;
        }
        // The order of a disk is arbitrary; runs must not differ by it.
        std::ranges::sort(entries, {}, &folder_entry::name);
        return {};
    }

    bool true_name(const wide_string& folder, const wide_string& name, wide_string& spelling) override {
        if (name == u"." || name == u"..") {
            spelling = name;
            return true;
        }
        const auto native = existing(folder);
        bool is_folder = false;
        const auto found = native ? names().find(native.path, to_utf8(name), is_folder) : std::nullopt;
        if (!found) return false;
        spelling = from_utf8(*found);
        return true;
    }

    file_identity identity_of(const wide_string& path) override {
        using link_state = held_folders::link_state;
        struct stat found {};
        link_state link{};
        const outcome result = mapped_volumes().status(path, found, link);
        // A broken link leads to no file, but it is an entry that must not be overlooked.
        if (!result) return {0, 0, link == link_state::yes ? 2U : 0U, link == link_state::yes};
        if (link == link_state::unknown) { // a folder that is held open
            struct stat itself {};
            const native_answer native = mapped_volumes().native(path, false);
            link = ::lstat(native.path.c_str(), &itself) == 0 && S_ISLNK(itself.st_mode) ? link_state::yes
                                                                                         : link_state::no;
        }
        return identity_in(found, link == link_state::yes);
    }

    outcome rename_over(const wide_string& from, const wide_string& to) override {
        return rename_file_over(from, to);
    }

    outcome open(const wide_string& path, access access_wanted, disposition how,
                 std::unique_ptr<file>& result) override {
        return open_regular_file(path, access_wanted, how, result);
    }

    void pause_1ms() override { std::this_thread::sleep_for(std::chrono::milliseconds(1)); }

    outcome free_space(const wide_string& folder, uint64_t& bytes) override {
        const auto native = existing(folder);
        if (!native) return native.result;
        struct statvfs status {};
        if (::statvfs(native.path.c_str(), &status) != 0) return outcome::last();
        // Without the blocks that are reserved for the administrator.
        bytes = static_cast<uint64_t>(status.f_bavail) * status.f_frsize;
        return {};
    }

    // Opening for reading is enough, and works for folders, whose names are flushed.
    outcome flush(const wide_string& path) override {
        return flushed(path, [](int opened) { return ::fsync(opened); });
    }

    outcome flush_volume(const wide_string& folder) override {
        return flushed(folder, [](int opened) { return ::syncfs(opened); });
    }

private:
    static outcome flushed(const wide_string& path, int (*flush)(int)) {
        descriptor opened;
        if (const outcome found = open_existing(path, O_RDONLY, opened); !found) return found;
        return flushed_by(opened.get(), flush);
    }
};

} // namespace

// If the file is missing, as in some containers, the identity is empty.
std::string boot_identity() {
    std::ifstream in("/proc/sys/kernel/random/boot_id");
    std::string line;
    std::getline(in, line);
    return line;
}

system& operating_system() {
    static posix_system own;
    return own;
}

} // namespace vs::project_resave::platform
