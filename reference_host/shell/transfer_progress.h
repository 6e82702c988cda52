// How far a run over many bytes has come, and how long it may still take.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace vestra::shell {

// In the language of the host's settings.
class transfer_progress {
public:
    // Returns the time since some moment in the past; it never goes back.
    using clock = std::function<std::chrono::milliseconds()>;
    static std::chrono::milliseconds steady_clock();

    explicit transfer_progress(clock now = &steady_clock) : now_(std::move(now)) {}

    // With a total of 0 it ends.
    void begin(uint64_t total);
    void add(uint64_t bytes);
    bool is_running() const { return total_ != 0; }
    // True once in a while, when it is time to show what has changed.
    bool is_due();

    // At most 100: what comes after the total belongs to files that nobody counted.
    unsigned percent() const;
    // "1.2 of 3.0 GB", and behind two blanks, once the pace is known, "about 2 min left".
    std::string text() const;

private:
    void measure();
    std::optional<std::chrono::seconds> time_left() const;

    clock now_;
    uint64_t total_ = 0, done_ = 0, measured_ = 0; // bytes; measured are those done at the last measurement
    std::chrono::milliseconds begun_{}, measured_at_{}, shown_at_{};
    double pace_ = 0; // bytes in a millisecond, of late more than of old
};

} // namespace vestra::shell
