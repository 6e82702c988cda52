#include "platform/posix/open_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "platform/posix/volumes.h"

namespace vs::project_resave::platform {

namespace {

class open_file final : public file {
public:
    explicit open_file(descriptor opened) : content_(std::move(opened)) {}

    size_t read(void* buffer, size_t length) override {
        size_t done = 0;
        while (done < length) {
            const ssize_t count = again_if_interrupted(
                [&] { return ::read(content_.get(), static_cast<char*>(buffer) + done, length - done); });
            if (count <= 0) break;
            done += static_cast<size_t>(count);
        }
        return done;
    }

    size_t write(const void* bytes, size_t length) override {
        size_t done = 0;
        while (done < length) {
            const ssize_t count = again_if_interrupted([&] {
                return ::write(content_.get(), static_cast<const char*>(bytes) + done, length - done);
            });
            if (count <= 0) break;
            done += static_cast<size_t>(count);
        }
        return done;
    }

    bool seek_end() override { return ::lseek(content_.get(), 0, SEEK_END) >= 0; }

    uint64_t size() override {
        struct stat status {};
        return ::fstat(content_.get(), &status) == 0 ? static_cast<uint64_t>(status.st_size) : 0;
    }

    bool close() override { return content_.close(); }

private:
    descriptor content_;
};

} // namespace

descriptor create_native(const std::string& path, int flags, unsigned mode) {
    return descriptor(::open(path.c_str(), flags | O_CREAT | O_CLOEXEC | O_NONBLOCK, mode));
}

descriptor open_existing(const wide_string& path, int flags) {
    held_folders& folders = mapped_volumes().held();
    const auto asked = mapped_volumes().as_asked(path);
    if (!asked) return descriptor(-1);
    descriptor opened = folders.open(*asked, flags);
    if (opened || errno != ENOENT) return opened;
    const auto listed = mapped_volumes().as_listed(*asked);
    return listed ? folders.open(*listed, flags) : descriptor(-1);
}

open_result lock_regular_file(descriptor opened, bool writes, bool empties, std::unique_ptr<file>& result) {
    result.reset();
    struct stat status {};
    if (!opened || ::fstat(opened.get(), &status) != 0 || !S_ISREG(status.st_mode))
        return open_result::failed;

    // Where locks are unknown the file is used without.
    const int lock = (writes ? LOCK_EX : LOCK_SH) | LOCK_NB;
    if (::flock(opened.get(), lock) != 0 && errno == EWOULDBLOCK) return open_result::sharing_violation;
    if (empties && ::ftruncate(opened.get(), 0) != 0) return open_result::failed;
    result = std::make_unique<open_file>(std::move(opened));
    return open_result::opened;
}

} // namespace vs::project_resave::platform
