// Measures the pace of copying and prints amounts and the remaining time in the user's language.
#include "reference_host/shell/transfer_progress.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <utility>

#include "reference_host/shell/front_end.h"

namespace vestra::shell {

using namespace std::chrono_literals;
using std::chrono::milliseconds;
using std::chrono::seconds;

namespace {

constexpr milliseconds first_estimate = 3s; // the pace is not reliable earlier
constexpr milliseconds between_measurements = 500ms;
constexpr milliseconds between_looks = 100ms;

// The words before and after an estimate; each language puts them in another place.
struct words {
    std::array<const char*, 5> units;
    const char *of, *before, *hours, *minutes, *seconds, *after;
    char decimal_point;
};
constexpr words english{{"B", "KB", "MB", "GB", "TB"}, " of ", "about ", " h ", " min", " s", " left", '.'};
constexpr words russian{
    {"Б", "КБ", "МБ", "ГБ", "ТБ"}, " из ", "осталось около ", " ч ", " мин", " с", "", ','};

const words& current_words() { return settings().language_offset != 0 ? english : russian; }

// Prints both numbers in the unit of the larger one.
std::string amounts(uint64_t done, uint64_t total) {
    const words& in = current_words();
    size_t unit = 0;
    double scale = 1;
    while (static_cast<double>(total) / scale >= 1024 && unit + 1 < in.units.size()) scale *= 1024, ++unit;
    const auto in_unit = [&](uint64_t bytes) { // not by snprintf, which follows the locale
        std::array<char, 32> digits{};
        char* const end =
            std::to_chars(digits.data(), digits.data() + digits.size(), static_cast<double>(bytes) / scale,
                          std::chars_format::fixed, unit == 0 ? 0 : 1)
                .ptr;
        std::string text(digits.data(), end);
        std::ranges::replace(text, '.', in.decimal_point);
        return text;
    };
    return in_unit(done) + in.of + in_unit(total) + ' ' + in.units[unit];
}

// Rounded, so that it does not change at every update.
std::string estimate(seconds left) {
    const words& in = current_words();
    const auto count = left.count();
    std::string text;
    if (count <= 55) { // more would be rounded up to 60
        text = std::to_string(std::max<int64_t>(5, (count + 4) / 5 * 5)) + in.seconds;
    } else {
        const auto minutes = (count + 30) / 60;
        if (minutes >= 60) text = std::to_string(minutes / 60) + in.hours;
        text += std::to_string(minutes % 60) + in.minutes;
    }
    return in.before + text + in.after;
}

} // namespace

milliseconds transfer_progress::steady_clock() {
    return std::chrono::duration_cast<milliseconds>(std::chrono::steady_clock::now().time_since_epoch());
}

void transfer_progress::begin(uint64_t total) {
    total_ = total;
    done_ = measured_ = 0;
    pace_ = 0;
    begun_ = measured_at_ = now_();
    // The first bytes are shown at once.
    shown_at_ = begun_ - between_looks;
}

void transfer_progress::add(uint64_t bytes) {
    done_ += bytes;
    measure();
}

void transfer_progress::measure() {
    const milliseconds now = now_(), since = now - measured_at_;
    if (since < between_measurements) return;
    const double pace = static_cast<double>(done_ - measured_) / static_cast<double>(since.count());
    // A longer interval gets a larger weight: after five seconds the old pace counts for about a third.
    const double kept = pace_ > 0 ? std::exp(-static_cast<double>(since.count()) / 5000) : 0;
    pace_ = kept * pace_ + (1 - kept) * pace;
    measured_ = done_;
    measured_at_ = now;
}

bool transfer_progress::is_due() {
    const milliseconds now = now_();
    if (now - shown_at_ < between_looks) return false;
    shown_at_ = now;
    return true;
}

unsigned transfer_progress::percent() const {
    if (total_ == 0) return 0;
    return static_cast<unsigned>(100 * static_cast<double>(std::min(done_, total_)) /
                                 static_cast<double>(total_));
}

std::optional<seconds> transfer_progress::time_left() const {
    if (measured_at_ - begun_ < first_estimate || pace_ <= 0 || done_ >= total_) return std::nullopt;
    const double left = static_cast<double>(total_ - done_) / pace_ / 1000;
    if (left > 100 * 3600.0) return std::nullopt; // stalled
    return seconds(static_cast<int64_t>(std::ceil(left)));
}

std::string transfer_progress::text() const {
    // Files that were not counted in advance must not show more than the total.
    std::string text = amounts(std::min(done_, total_), total_);
    if (const auto left = time_left()) text += "  " + estimate(*left);
    return text;
}

} // namespace vestra::shell
