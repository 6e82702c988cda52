// Owner of an open file descriptor, and how one is opened.
#pragma once

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <utility>

#include "platform/outcome.h"

namespace vs::project_resave::platform {

// Returns what a call of the operating system returns, made again for as long as a signal interrupts it.
template <typename Call>
auto again_if_interrupted(const Call& call) {
    auto answer = call();
    while (answer < 0 && errno == EINTR) answer = call();
    return answer;
}

// What fsync or syncfs returns for a descriptor; success where the file system knows no such call, as some
// keep folders at once.
template <typename Flush>
outcome flushed_by(int opened, const Flush& flush) {
    const int result = again_if_interrupted([&] { return flush(opened); });
    return outcome::of_call(result == 0 || errno == EINVAL);
}

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

    // Gives the descriptor up; the caller closes it.
    int release() { return std::exchange(number_, -1); }
    // False if the operating system could not keep what was written. A second call does nothing.
    bool close() {
        const int number = std::exchange(number_, -1);
        return number < 0 || ::close(number) == 0;
    }

private:
    int number_;
};

// Creates a file, or opens one without waiting as a pipe would make us. `flags`, beside O_CREAT, and `mode`
// as the operating system's open takes them.
outcome create_native(const std::string& path, int flags, unsigned mode, descriptor& opened);
// Opens without waiting what exists in the spelling asked for, or else in another.
outcome open_existing(const wide_string& path, int flags, descriptor& opened);
// The status of what was opened; fails unless it is a regular file.
outcome regular_status(const descriptor& opened, struct stat& status);

} // namespace vs::project_resave::platform
