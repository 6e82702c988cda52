// The table of encodings by number, and conversions between wide and narrow text that use it. Texts are
// converted in memory; no state is kept. May be called from any thread.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "framework/border/visitors.h"

namespace vs::project_resave {

constexpr uint32_t utf8_row = 0;    // encoding of the files that the bundle writes
constexpr uint32_t system_row = 18; // encoding of the host's narrow texts

// One encoding of the table.
struct encoding_row {
    const char* name;
    // Code page of the conversion. With 0, only the row "SYSTEM" converts, in the operating system's active
    // page.
    uint32_t code_page;
};

constexpr uint32_t encoding_count = 19;
// Returns a row of the table; the row "SYSTEM" for a number at or beyond the count.
const encoding_row& encoding(uint32_t row);

// Return the converted text; empty for a row that does not convert and for a text that cannot be converted.
std::string to_narrow(wide_view text, uint32_t row);
wide_string to_wide(std::string_view bytes, uint32_t row);
// Returns a narrow text of the host as wide text; null counts as empty.
wide_string host_text(const char* text);
// Returns a narrow text unchanged; null counts as empty.
inline std::string_view narrow_or_empty(const char* text) { return text ? text : ""; }

// A visitor that stores the last text it receives in a string of the caller, converted through a row of the
// encoding table. The string must outlive the visitor; it becomes empty if the text cannot be converted.
class stdstring_visitor final : public string_visitor_impl {
public:
    explicit stdstring_visitor(std::string& target, uint32_t encoding = system_row)
        : text_(target), row_(encoding) {}
    void visit(const char16_t* told) override { text_ = to_narrow(text_or_empty(told), row_); }
    operator string_visitor() { return pointer_to<string_visitor_impl>(*this); }

private:
    std::string& text_;
    uint32_t row_;
};

} // namespace vs::project_resave
