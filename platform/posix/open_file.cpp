// Opens regular files only. A pipe or a device in the place of a file would block the program or have no end.

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "platform/file_parts.h"
#include "platform/posix/volumes.h"
#include "platform/text.h"

namespace vs::project_resave::platform {

namespace {

class open_file final : public file {
public:
    explicit open_file(descriptor opened) : content_(std::move(opened)) {}

    outcome read(void* buffer, size_t length, size_t& count) override {
        count = 0;
        while (count < length) {
            const ssize_t taken = again_if_interrupted(
                [&] { return ::read(content_.get(), static_cast<char*>(buffer) + count, length - count); });
            if (taken < 0) return outcome::last();
            if (taken == 0) break;
            count += static_cast<size_t>(taken);
        }
        return {};
    }

    outcome write(const void* bytes, size_t length) override {
        size_t done = 0;
        while (done < length) {
            const ssize_t given = again_if_interrupted([&] {
                return ::write(content_.get(), static_cast<const char*>(bytes) + done, length - done);
            });
            if (given <= 0) return given < 0 ? outcome::last() : failure::disk_full;
            done += static_cast<size_t>(given);
        }
        return {};
    }

    outcome seek_end() override { return outcome::of_call(::lseek(content_.get(), 0, SEEK_END) >= 0); }

    uint64_t size() override {
        struct stat status {};
        return ::fstat(content_.get(), &status) == 0 ? static_cast<uint64_t>(status.st_size) : 0;
    }

    outcome flush() override {
        return flushed_by(content_.get(), [](int opened) { return ::fsync(opened); });
    }

    outcome close() override { return outcome::of_call(content_.close()); }

private:
    descriptor content_;
};

// Sets `result` to the file of `opened`, emptied if `empties`; fails unless that is a regular file. The lock
// is shared between readers and exclusive for a writer. It is advisory: only processes that also lock the
// file respect it.
outcome lock_regular_file(descriptor opened, bool writes, bool empties, std::unique_ptr<file>& result) {
    struct stat status {};
    if (const outcome regular = regular_status(opened, status); !regular) return regular;

    // On a file system without locks the file is used without one.
    const int lock = (writes ? LOCK_EX : LOCK_SH) | LOCK_NB;
    if (::flock(opened.get(), lock) != 0 && errno == EWOULDBLOCK) return failure::in_use;
    // Emptied only after the lock, so that a file locked by another program keeps its content.
    if (empties && ::ftruncate(opened.get(), 0) != 0) return outcome::last();
    result = std::make_unique<open_file>(std::move(opened));
    return {};
}

} // namespace

outcome create_native(const std::string& path, int flags, unsigned mode, descriptor& opened) {
    // Without O_NONBLOCK, opening a pipe would wait for its other end.
    const int number = ::open(path.c_str(), flags | O_CREAT | O_CLOEXEC | O_NONBLOCK, mode);
    const outcome result = outcome::of_call(number >= 0);
    opened = descriptor(number);
    return result;
}

outcome open_existing(const wide_string& path, int flags, descriptor& opened) {
    held_folders& folders = mapped_volumes().held();
    const auto asked = mapped_volumes().as_asked(path);
    if (!asked) return asked.result;
    const outcome result = folders.open(asked.path, flags, opened);
    if (result.code() != ENOENT) return result;
    const auto listed = mapped_volumes().as_listed(asked.path);
    if (!listed) return result;
    // U+FFFD replaces bytes that are not UTF-8. If the file were opened under that name, its copy would get
    // the name too.
    constexpr char16_t stand_in = 0xFFFD;
    if (path.find(stand_in) != wide_string::npos && valid_utf8_length(*listed) < listed->size())
        return outcome::because(u"the name is not UTF-8");
    return folders.open(*listed, flags, opened);
}

outcome regular_status(const descriptor& opened, struct stat& status) {
    if (::fstat(opened.get(), &status) != 0) return outcome::last();
    if (S_ISDIR(status.st_mode)) return outcome::native(EISDIR);
    return S_ISREG(status.st_mode) ? outcome() : outcome::because(u"not a regular file");
}

outcome open_regular_file(const wide_string& path, access wanted, disposition how,
                          std::unique_ptr<file>& result) {
    result.reset();
    const bool writes = wanted == access::read_write;
    descriptor opened;
    if (how == disposition::open_existing) {
        const outcome found = open_existing(path, writes ? O_RDWR : O_RDONLY, opened);
        return found ? lock_regular_file(std::move(opened), writes, false, result) : found;
    }
    const auto native = mapped_volumes().to_create(path);
    if (!native) return native.result;
    const outcome created =
        create_native(native.path, O_RDWR | (how == disposition::create_new ? O_EXCL : 0), 0666, opened);
    if (!created) return created;
    mapped_volumes().names().created(native.path);
    return lock_regular_file(std::move(opened), true, true, result);
}

} // namespace vs::project_resave::platform
