// What the command says in its own words, in the language of the host's settings. JSON keys and the names of
// problems are not said: they stay English.
#pragma once

#include <initializer_list>
#include <iterator>
#include <string>
#include <string_view>

namespace vestra::command {

// "%1" to "%9" stand for what differs from one use to the next. No text depends on a number's plural form.
struct text_row {
    std::string_view english, russian;
};
inline constexpr text_row all_texts[] = {
#include "apps/vestra_resave/words_table.inc"
};

// One of these texts, by its English form. Another one does not compile.
class sentence {
public:
    constexpr sentence() = default; // says nothing
    // NOLINTNEXTLINE(google-explicit-constructor): a text stands for itself
    consteval sentence(const char* english) : row_(std::begin(all_texts)) {
        while (row_->english != english) ++row_;
    }
    const text_row* row() const { return row_; }

private:
    const text_row* row_ = nullptr;
};

// Returns the text with the parts in their places.
std::string say(sentence text, std::initializer_list<std::string> parts = {});
// Returns the text with this English form in the current language. Words of others, such as the operating
// system's reasons, are translated if they are known, and else returned as they are.
std::string say_known(const std::string& english);

} // namespace vestra::command
