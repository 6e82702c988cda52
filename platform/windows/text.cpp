// Letter case and code pages by the calls of Windows, which take a length as an int.
#include "platform/text.h"

#include <algorithm>
#include <climits>

#include "platform/windows/paths.h"

namespace vs::project_resave::platform {

namespace {

constexpr size_t largest_piece = INT_MAX / 4; // keeps every length of a conversion within an int

} // namespace

// By the folded units, so that two names are equal exactly if their folded forms are.
int compare_no_case(wide_view a, wide_view b) {
    const int order = folded(a).compare(folded(b));
    return order < 0 ? -1 : order > 0 ? 1 : 0;
}

void lower_in_place(wide_string& text) {
    for (size_t done = 0; done < text.size(); done += largest_piece)
        CharLowerBuffW(wide(text.data() + done),
                       static_cast<DWORD>(std::min(text.size() - done, largest_piece)));
}

wide_string folded(wide_view text) {
    wide_string key(text);
    lower_in_place(key);
    return key;
}

std::string to_bytes(wide_view text, unsigned code_page) {
    if (code_page == code_page_utf8) return to_utf8(text);
    // The calls take an empty text as an error.
    if (text.empty() || text.size() > largest_piece) return {};
    const int length = static_cast<int>(text.size());
    const wchar_t* const source = wide(text.data());
    const int needed = WideCharToMultiByte(code_page, 0, source, length, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<size_t>(needed), '\0');
    const int made =
        WideCharToMultiByte(code_page, 0, source, length, bytes.data(), needed, nullptr, nullptr);
    return made == needed ? bytes : std::string();
}

wide_string from_bytes(std::string_view bytes, unsigned code_page) {
    if (code_page == code_page_utf8) return from_utf8(bytes);
    if (bytes.empty() || bytes.size() > largest_piece) return {};
    const int length = static_cast<int>(bytes.size());
    const int needed = MultiByteToWideChar(code_page, 0, bytes.data(), length, nullptr, 0);
    wide_string text(static_cast<size_t>(needed), u'\0');
    const int made = MultiByteToWideChar(code_page, 0, bytes.data(), length, wide(text.data()), needed);
    return made == needed ? text : wide_string();
}

} // namespace vs::project_resave::platform
