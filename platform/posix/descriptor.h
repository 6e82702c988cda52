// Owner of an open file descriptor.
#pragma once

#include <unistd.h>

#include <cerrno>
#include <utility>

namespace vs::project_resave::platform {

/// What a call of the system answers, made again for as long as a signal breaks it off.
template <typename Call>
auto again_if_interrupted(const Call& call) {
    auto answer = call();
    while (answer < 0 && errno == EINTR) answer = call();
    return answer;
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

    /// Gives the descriptor up; the caller closes it.
    int release() { return std::exchange(number_, -1); }
    /// False if the system could not keep what was written. A second call does nothing.
    bool close() {
        const int number = std::exchange(number_, -1);
        return number < 0 || ::close(number) == 0;
    }

private:
    int number_;
};

} // namespace vs::project_resave::platform
