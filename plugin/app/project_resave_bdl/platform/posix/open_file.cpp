#include "platform/posix/open_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "platform/posix/descriptor.h"

namespace vs::project_resave::platform {

namespace {

class open_file final : public file {
public:
    explicit open_file(descriptor opened) : content_(std::move(opened)) {}

    size_t read(void* buffer, size_t length) override {
        size_t done = 0;
        while (done < length) {
            const ssize_t count = ::read(content_.get(), static_cast<char*>(buffer) + done, length - done);
            if (count <= 0) break;
            done += static_cast<size_t>(count);
        }
        return done;
    }

    size_t write(const void* bytes, size_t length) override {
        size_t done = 0;
        while (done < length) {
            const ssize_t count =
                ::write(content_.get(), static_cast<const char*>(bytes) + done, length - done);
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

private:
    descriptor content_;
};

} // namespace

open_result open_regular_file(const std::string& path, access wanted, disposition how,
                              std::unique_ptr<file>& result) {
    result.reset();
    const bool creates = how == disposition::create_always;
    const bool writes = creates || wanted == access::read_write;
    const int flags = (writes ? O_RDWR : O_RDONLY) | (creates ? O_CREAT : 0) | O_CLOEXEC | O_NONBLOCK;
    descriptor opened(::open(path.c_str(), flags, 0666));
    struct stat status {};
    if (!opened || ::fstat(opened.get(), &status) != 0 || !S_ISREG(status.st_mode))
        return open_result::failed;

    // Readers may share the file and a writer has it alone. Where locks are unknown the file is used without.
    const int lock = (writes ? LOCK_EX : LOCK_SH) | LOCK_NB;
    if (::flock(opened.get(), lock) != 0 && errno == EWOULDBLOCK) return open_result::sharing_violation;
    if (creates && ::ftruncate(opened.get(), 0) != 0) return open_result::failed;
    result = std::make_unique<open_file>(std::move(opened));
    return open_result::opened;
}

} // namespace vs::project_resave::platform
