// The texts of the command in the language of the host's settings. JSON keys and names of problem kinds are
// not translated. The language is looked up at each call, so a text can be stored as a `sentence` and shown
// later.
#pragma once

#include <initializer_list>
#include <iterator>
#include <string>
#include <string_view>

namespace vestra::command {

// "%1" to "%9" are placeholders. No text depends on the plural form of a number.
struct text_row {
    std::string_view english, russian;
};
inline constexpr text_row all_texts[] = {
#include "apps/vestra_resave/words_table.inc"
};

// One of these texts, chosen by its English form; any other text does not compile.
class sentence {
public:
    constexpr sentence() = default; // empty text
    // NOLINTNEXTLINE(google-explicit-constructor): literals are passed as texts
    consteval sentence(const char* english) : row_(std::begin(all_texts)) {
        while (row_->english != english) ++row_;
    }
    const text_row* row() const { return row_; }

private:
    const text_row* row_ = nullptr;
};

// Returns the text with the parts inserted: the first one replaces each "%1". A placeholder without a part
// stays.
std::string say(sentence text, std::initializer_list<std::string> parts = {});
// Returns the text with this English form in the current language. Texts of others, such as the operating
// system's reasons, are translated if known and otherwise returned unchanged. If such a text ends with
// another one, as with a reason, that is translated, too.
std::string say_known(const std::string& english);

} // namespace vestra::command
