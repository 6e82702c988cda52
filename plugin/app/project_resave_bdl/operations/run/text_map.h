// Look-up by key in lists that only grow: the position of a row, and values by text. A row costs eight bytes
// in addition to its own size, and a look-up takes constant time. One thread at a time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <utility>
#include <vector>

#include "platform/wide_string.h"

namespace vs::project_resave {

// An index of rows. The caller keeps the rows and their keys, and passes the hash of a key and a predicate
// that compares keys. Single rows cannot be removed.
class row_index {
public:
    static constexpr uint32_t none = UINT32_MAX;

    // Returns the first row added under this hash for which `has_key(row)` is true; `none` if there is none.
    template <class predicate>
    uint32_t find(size_t hash, predicate has_key) const {
        if (slots_.empty()) return none;
        for (size_t at = place_of(short_hash(hash)); slots_[at].row != none; at = next(at))
            if (slots_[at].hash == short_hash(hash) && has_key(slots_[at].row)) return slots_[at].row;
        return none;
    }

    // Reserves memory, so that the next `add` cannot fail.
    void make_room() {
        if (4 * (size_ + 1) > 3 * slots_.size()) grow();
    }

    // Adds a row under a hash, also if the hash is already used.
    void add(size_t hash, uint32_t row) {
        make_room();
        put({short_hash(hash), row});
        ++size_;
    }

    void clear() {
        slots_.clear();
        size_ = 0;
    }

private:
    struct slot {
        uint32_t hash = 0;
        uint32_t row = none;
    };

    static uint32_t short_hash(size_t hash) { return static_cast<uint32_t>(hash ^ (hash >> 32)); }
    size_t place_of(uint32_t hash) const { return hash & (slots_.size() - 1); }
    size_t next(size_t place) const { return (place + 1) & (slots_.size() - 1); }

    void put(slot fresh) {
        size_t at = place_of(fresh.hash);
        while (slots_[at].row != none) at = next(at);
        slots_[at] = fresh;
    }

    // Starts with the first slot after an empty one, so that rows with the same hash keep their order.
    void grow() {
        std::vector<slot> old(slots_.empty() ? 16 : 2 * slots_.size());
        old.swap(slots_);
        size_t start = 0;
        while (start < old.size() && old[start].row != none) ++start;
        for (size_t step = 0; step < old.size(); ++step) {
            const slot& moved = old[(start + step) & (old.size() - 1)];
            if (moved.row != none) put(moved);
        }
    }

    std::vector<slot> slots_; // a power of two of them, at most three quarters used
    size_t size_ = 0;
};

// Values by text, numbered in the order in which they were entered. Rows do not move until `clear`. Texts are
// compared exactly.
template <class value>
class text_map {
public:
    struct row {
        wide_string text;
        value content;
    };

    // Returns the number of the text's row, which is created if necessary, and whether it was.
    std::pair<uint32_t, bool> enter(wide_string text) {
        const size_t hash = std::hash<wide_string>()(text);
        const uint32_t known = number_of(text, hash);
        if (known != row_index::none) return {known, false};
        const auto number = static_cast<uint32_t>(rows_.size());
        index_.make_room();
        rows_.push_back({std::move(text), value()});
        index_.add(hash, number);
        return {number, true};
    }

    // Return the value of a text; null if the text was not entered.
    const value* find(const wide_string& text) const {
        const uint32_t number = number_of(text, std::hash<wide_string>()(text));
        return number != row_index::none ? &rows_[number].content : nullptr;
    }
    value* find(const wide_string& text) { return const_cast<value*>(std::as_const(*this).find(text)); }

    // Returns the value of a row; the number must come from `enter`.
    value& operator[](uint32_t number) { return rows_[number].content; }
    const std::deque<row>& rows() const { return rows_; }

    void clear() {
        rows_.clear();
        index_.clear();
    }

private:
    uint32_t number_of(const wide_string& text, size_t hash) const {
        return index_.find(hash, [&](uint32_t number) { return rows_[number].text == text; });
    }

    std::deque<row> rows_;
    row_index index_;
};

} // namespace vs::project_resave
