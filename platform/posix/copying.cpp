// Copies files so that no other program ever finds an incomplete one: the content is written first, then it
// gets its name.

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <mutex>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/file_parts.h"
#include "platform/posix/native_paths.h"
#include "platform/posix/volumes.h"

namespace vs::project_resave::platform {

namespace {

folder_names& names() { return mapped_volumes().names(); }

constexpr const char16_t* changed_meanwhile = u"the file changed while it was copied";

// A file opened without a name is given one through its entry in this folder; /proc is missing in some
// containers.
constexpr const char* open_files = "/proc/self/fd/";

bool can_name_open_files() {
    static const bool can = ::access(open_files, X_OK) == 0;
    return can;
}

// A file that did not exist before. It gets its name in keep(), so no incomplete file is ever found there,
// even if the program is killed. Where the file system does not support files without a name, it has its name
// from the beginning, and the destructor removes it unless it was kept.
class new_file {
public:
    explicit new_file(std::string path) : path_(std::move(path)) {}
    ~new_file() {
        if (!present_) return;
        names().before_change(path_);
        if (::unlink(path_.c_str()) == 0) names().removed(path_);
    }
    new_file(const new_file&) = delete;
    new_file& operator=(const new_file&) = delete;

    int get() const { return content_.get(); }

    // The caller has just looked the path up, so the cached names of its folder are current, and stay so
    // unless writing the content takes long.
    outcome create(mode_t mode, bool takes_long) {
        takes_long_ = takes_long;
        if (can_name_open_files()) {
            const std::string folder(folder_of(path_));
            content_ = descriptor(::open(folder.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, mode));
        }
        if (content_) return {};
        const outcome created = create_native(path_, O_WRONLY | O_EXCL, mode, content_);
        present_ = bool(created);
        if (present_) names().created(path_);
        return created;
    }
    // Gives the file its name and closes it; from then on the destructor leaves it alone.
    outcome keep() {
        if (const outcome named = name_it(); !named) return named;
        if (!content_.close()) return outcome::last();
        present_ = false;
        return {};
    }
    // Does the same for a copy whose own name is temporary: it replaces `target` in one step.
    outcome keep_in_place_of(const std::string& target) {
        if (const outcome named = name_it(); !named) return named;
        if (!content_.close()) return outcome::last();
        names().before_change(path_);
        if (std::rename(path_.c_str(), target.c_str()) != 0) return outcome::last();
        names().removed(path_);
        present_ = false;
        return {};
    }

private:
    // Fails if another entry has got the name meanwhile.
    outcome name_it() {
        if (present_) return {};
        const std::string unnamed = open_files + std::to_string(content_.get());
        if (takes_long_) names().before_change(path_);
        present_ = ::linkat(AT_FDCWD, unnamed.c_str(), AT_FDCWD, path_.c_str(), AT_SYMLINK_FOLLOW) == 0;
        if (present_) names().created(path_);
        return outcome::of_call(present_);
    }

    std::string path_;
    descriptor content_;
    bool present_ = false;
    bool takes_long_ = true;
};

// Below it, setting up a transfer inside the kernel costs more than reading and writing.
constexpr off_t small = 64 * 1024;

outcome copy_through_memory(int source, int target, off_t from, off_t end) {
    constexpr off_t piece = 128 * 1024;
    char buffer[piece];
    while (from < end) {
        const auto wanted = static_cast<size_t>(std::min(piece, end - from));
        const ssize_t taken = again_if_interrupted([&] { return ::pread(source, buffer, wanted, from); });
        if (taken < 0) return outcome::last();
        if (taken == 0) return outcome::because(changed_meanwhile);
        note_content(buffer, static_cast<size_t>(taken));
        for (ssize_t given = 0; given < taken;) {
            const ssize_t count = again_if_interrupted(
                [&] { return ::pwrite(target, buffer + given, size_t(taken - given), from + given); });
            if (count <= 0) return count < 0 ? outcome::last() : failure::disk_full;
            given += count;
        }
        from += taken;
        note_transfer(static_cast<uint64_t>(taken));
    }
    return {};
}

outcome copy_range(int source, int target, off_t from, off_t end) {
    constexpr off_t piece = 64 << 20; // small enough that the progress of a large file is visible
    off_t to = from;
    while (from < end) {
        const auto wanted = static_cast<size_t>(std::min(piece, end - from));
        // The kernel copies, and shares blocks if the file system can.
        const ssize_t count = ::copy_file_range(source, &from, target, &to, wanted, 0);
        if (count <= 0)
            return copy_through_memory(source, target, from, end); // not supported between these file systems
        note_transfer(static_cast<uint64_t>(count));
    }
    return {};
}

// Copies only the data of a sparse file. Holes count as transferred at once, so the progress reaches the
// file's size.
outcome copy_without_holes(int source, int target, off_t size) {
    off_t end = 0;
    while (end < size) {
        const off_t data = ::lseek(source, end, SEEK_DATA);
        if (data < 0 && errno == ENXIO) { // nothing but a hole is left
            note_transfer(static_cast<uint64_t>(size - end));
            break;
        }
        if (data < 0 && (errno == EINVAL || errno == EOPNOTSUPP)) // the file system does not support holes
            return copy_range(source, target, end, size);
        if (data < 0) return outcome::last();
        note_transfer(static_cast<uint64_t>(data - end));
        end = std::min(::lseek(source, data, SEEK_HOLE), size);
        if (end < 0) return outcome::last();
        if (end <= data) return outcome::because(changed_meanwhile);
        if (const outcome copied = copy_range(source, target, data, end); !copied) return copied;
    }
    // A hole at the end has no data that would extend the file.
    return outcome::of_call(::ftruncate(target, size) == 0);
}

outcome copy_content(int source, int target, const struct stat& status) {
    constexpr off_t block = 512;
    if (status.st_blocks * block < status.st_size) return copy_without_holes(source, target, status.st_size);
    if (status.st_size <= small) return copy_through_memory(source, target, 0, status.st_size);
    if (is_content_watched()) { // shared blocks are worth more than a second reading
        if (::ioctl(target, FICLONE, source) != 0)
            return copy_through_memory(source, target, 0, status.st_size);
        note_transfer(static_cast<uint64_t>(status.st_size));
        return {};
    }
    return copy_range(source, target, 0, status.st_size);
}

// A file that is written while it is copied may mix old and new content; the copy must not count as one.
outcome check_unchanged(int source, const struct stat& before) {
    struct stat now {};
    if (::fstat(source, &now) != 0) return outcome::last();
    const bool is_same = now.st_size == before.st_size && now.st_mtim.tv_sec == before.st_mtim.tv_sec &&
                         now.st_mtim.tv_nsec == before.st_mtim.tv_nsec;
    return is_same ? outcome() : outcome::because(changed_meanwhile);
}

// What a folder made of the permissions with which a file was created there. It makes the same of them for
// the next file, so only the first one is asked.
class given_permissions {
public:
    bool are_kept(int target, const std::string& path, mode_t wanted) {
        const std::string_view folder = folder_of(path);
        const std::lock_guard guard(mutex_);
        if (folder == folder_ && wanted == wanted_) return kept_;
        struct stat made {};
        if (::fstat(target, &made) != 0) return false;
        folder_ = folder;
        wanted_ = wanted;
        return kept_ = (made.st_mode & 0777) == wanted;
    }

private:
    std::mutex mutex_;
    std::string folder_;
    mode_t wanted_ = 0;
    bool kept_ = false;
};

// Ignores failures: some mounted file systems support neither, and a copy without attributes is still a copy.
void copy_attributes(int target, const std::string& path, const struct stat& status, mode_t permissions) {
    static given_permissions given;
    const timespec times[] = {status.st_atim, status.st_mtim};
    const bool kept = (given.are_kept(target, path, permissions) || ::fchmod(target, permissions) == 0) &&
                      ::futimens(target, times) == 0;
    static_cast<void>(kept);
}

// In the target's folder, so that it can replace the target in one step.
std::string temporary_name(const std::string& target) {
    static std::atomic<unsigned> count{0};
    const std::string number = std::to_string(::getpid()) + "-" + std::to_string(++count);
    return joined(folder_of(target), ".copy-" + number + ".tmp");
}

} // namespace

outcome copy_regular_file(const wide_string& source, const wide_string& target_path, bool replace) {
    descriptor in;
    struct stat status {};
    outcome result = open_existing(source, O_RDONLY, in);
    if (result) result = regular_status(in, status);
    if (!result) return result;

    const auto wanted = mapped_volumes().to_create(target_path);
    if (!wanted) return wanted.result;
    if (wanted.exists && !replace) return outcome::native(EEXIST); // before all is copied in vain
    const std::string& target = wanted.path;
    struct stat existing {};
    const bool replaces = replace && ::stat(target.c_str(), &existing) == 0;
    if (replaces && existing.st_dev == status.st_dev && existing.st_ino == status.st_ino)
        return outcome::because(u"source and target are the same file");

    const mode_t permissions = status.st_mode & 0777;
    new_file out(replaces ? temporary_name(target) : target);
    result = out.create(permissions, status.st_size > small);
    if (result) result = copy_content(in.get(), out.get(), status);
    if (result) result = check_unchanged(in.get(), status);
    if (!result) return result;
    copy_attributes(out.get(), target, status, permissions);
    return replaces ? out.keep_in_place_of(target) : out.keep();
}

outcome rename_file_over(const wide_string& from, const wide_string& to) {
    const auto source = mapped_volumes().native(from, true);
    const auto target = mapped_volumes().to_create(to);
    if (!source || !target) return source ? target.result : source.result;
    names().before_change(source.path);
    if (std::rename(source.path.c_str(), target.path.c_str()) != 0) return outcome::last();
    if (source.path != target.path) names().removed(source.path);
    names().created(target.path);
    return {};
}

} // namespace vs::project_resave::platform
