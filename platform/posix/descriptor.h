// Owns an open file descriptor; the functions below open one.
#pragma once

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <utility>

#include "platform/outcome.h"

namespace vs::project_resave::platform {

// Returns the result of `call`, a system call, which is repeated for as long as a signal interrupts it.
template <typename Call>
auto again_if_interrupted(const Call& call) {
    auto answer = call();
    while (answer < 0 && errno == EINTR) answer = call();
    return answer;
}

// Returns the result of fsync or syncfs for a descriptor. Counts as success where the file system does not
// support the call, since some write folders to the disk at once.
template <typename Flush>
outcome flushed_by(int opened, const Flush& flush) {
    const int result = again_if_interrupted([&] { return flush(opened); });
    return outcome::of_call(result == 0 || errno == EINVAL);
}

// Movable owner of a file descriptor, which the destructor closes; -1 if there is none.
class descriptor {
public:
    explicit descriptor(int number = -1) : number_(number) {}
    ~descriptor() { close(); }
    descriptor(descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    descriptor& operator=(descriptor&& other) noexcept {
        if (this != &other) {
            close();
            number_ = std::exchange(other.number_, -1);
        }
        return *this;
    }
    descriptor(const descriptor&) = delete;
    descriptor& operator=(const descriptor&) = delete;

    explicit operator bool() const { return number_ >= 0; }
    int get() const { return number_; }

    // Releases ownership: the caller closes the descriptor.
    int release() { return std::exchange(number_, -1); }
    // Closes it. Returns false if the operating system could not keep what was written. A second call does
    // nothing.
    bool close() {
        const int number = std::exchange(number_, -1);
        return number < 0 || ::close(number) == 0;
    }

private:
    int number_;
};

// Creates a file, or opens an existing one, without blocking on a pipe. `flags` (O_CREAT is added) and `mode`
// are those of the operating system's open.
outcome create_native(const std::string& path, int flags, unsigned mode, descriptor& opened);
// Opens an existing file without blocking on a pipe. If there is none with the spelling of `path`, opens one
// whose path differs only in letter case.
outcome open_existing(const wide_string& path, int flags, descriptor& opened);
// Sets `status` to that of the opened file; fails unless it is a regular file.
outcome regular_status(const descriptor& opened, struct stat& status);

} // namespace vs::project_resave::platform
