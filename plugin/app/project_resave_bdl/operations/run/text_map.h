// Values under texts, numbered in the order they were entered.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <utility>

#include "operations/run/row_index.h"
#include "platform/wide_string.h"

namespace vs::project_resave {

// Rows stay in their place until `clear`. Texts are compared as they are spelled.
template <class value>
class text_map {
public:
    struct row {
        wide_string text;
        value content;
    };

    // The number of the row of this text, made if there is none; and whether it was.
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

    // Null if the text was not entered.
    value* find(const wide_string& text) {
        const uint32_t number = number_of(text, std::hash<wide_string>()(text));
        return number != row_index::none ? &rows_[number].content : nullptr;
    }

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
