// Progress of a run by its bytes, with an estimate of the remaining time.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace vestra::shell {

// Only adds, measures and formats; the front end shows the result. Uses the language of the host's settings.
class transfer_progress {
public:
    // Returns the time since a fixed moment in the past; it is monotonic.
    using clock = std::function<std::chrono::milliseconds()>;
    static std::chrono::milliseconds steady_clock();

    explicit transfer_progress(clock now = &steady_clock) : now_(std::move(now)) {}

    // Starts to count towards `total` from 0; 0 ends counting. The pace is measured anew.
    void begin(uint64_t total);
    // Counts bytes that were moved; more than the total are allowed.
    void add(uint64_t bytes);
    bool is_running() const { return total_ != 0; }
    // Returns true if enough time has passed to update the display: at most ten times a second. True counts
    // as an update.
    bool is_due();

    // At most 100: the total does not include files that were not counted in advance.
    unsigned percent() const;
    // Returns "1.2 of 3.0 GB", followed by two spaces and "about 2 min left" once the pace is known. Both
    // amounts are in the unit of the total.
    std::string text() const;

private:
    // Updates the pace from the bytes since the last measurement, if that was long enough ago.
    void measure();
    // Returns nothing in the first seconds, at the end, and if hardly anything moves.
    std::optional<std::chrono::seconds> time_left() const;

    clock now_;
    uint64_t total_ = 0, done_ = 0, measured_ = 0; // bytes; measured_: done_ at the last measurement
    std::chrono::milliseconds begun_{}, measured_at_{}, shown_at_{};
    double pace_ = 0; // bytes per millisecond, a moving average
};

} // namespace vestra::shell
