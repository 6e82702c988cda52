#include "platform/text.h"

#include <gtest/gtest.h>

namespace vs::project_resave::platform {
namespace {

TEST(text, letter_case_is_ignored_in_every_script_that_has_it) {
    const std::tuple<wide_view, wide_view, int> cases[] = {
        {u"", u"", 0},
        {u"C:\\Data\\ROADS.shp", u"c:\\data\\roads.SHP", 0},
        {u"Разрез Ёлка", u"рАЗРЕЗ ёЛКА", 0},
        {u"ΔÉLTA Ž Ø Ґ Є", u"δélta ž ø ґ є", 0},
        {u"\xD801\xDC00\xDC00\xD800", u"\xD801\xDC00\xDC00\xD800", 0},
        {u"е", u"ё", -1},
        {u"a", u"ab", -1},
        {u"b", u"AB", 1},
        {u"a-b", u"ab", -1},
    };
    for (const auto& [a, b, order] : cases) {
        EXPECT_EQ(compare_no_case(a, b), order) << to_utf8(a) << " " << to_utf8(b);
        EXPECT_EQ(compare_no_case(b, a), -order);
        EXPECT_EQ(folded(a) == folded(b), order == 0);
    }
    wide_string text = u"C:\\ДАННЫЕ\\Ärea.TIF";
    lower_in_place(text);
    EXPECT_EQ(text, u"c:\\данные\\ärea.tif");
}

TEST(text, code_pages_turn_text_into_bytes_and_back) {
    const std::tuple<unsigned, wide_view, std::string_view> cases[] = {
        {65001, u"Aя€\xD83D\xDE00", "A\xD1\x8F\xE2\x82\xAC\xF0\x9F\x98\x80"},
        {65001, wide_view(u"a\0b", 3), std::string_view("a\0b", 3)},
        {1251, u"Привет Ёж\x98", "\xCF\xF0\xE8\xE2\xE5\xF2 \xA8\xE6\x98"},
        {1252, u"Überéœ", "\xDC\x62\x65\x72\xE9\x9C"},
        {866, u"Привет", "\x8F\xE0\xA8\xA2\xA5\xE2"},
    };
    for (const auto& [page, text, bytes] : cases) {
        EXPECT_EQ(to_bytes(text, page), bytes) << page;
        EXPECT_EQ(from_bytes(bytes, page), text) << page;
    }
    EXPECT_EQ(to_bytes(u"中a", 1251), "?a");
    EXPECT_EQ(from_bytes("a", 4711), u"");
}

TEST(text, broken_text_costs_only_the_broken_part) {
    for (const wide_view half : {u"\xD800", u"\xDC00"})
        EXPECT_EQ(to_utf8(u"a" + wide_string(half) + u"я"), "a\xEF\xBF\xBD\xD1\x8F");
    const std::pair<std::string_view, size_t> cases[] = {
        {"\xFF", 1},     {"\xD1", 1},         {"\xE2\x82", 1},         {"\xF0\x9F\x98", 1},
        {"\xC0\x80", 2}, {"\xED\xA0\x80", 3}, {"\xF4\x90\x80\x80", 4}, {"\xE0\x9F\xBF", 3},
    };
    for (const auto& [broken, marks] : cases) {
        const std::string bytes = "a\xEF\xBF\xBD" + std::string(broken) + "z";
        EXPECT_EQ(from_utf8(bytes), u"a\xFFFD" + wide_string(marks, u'\xFFFD') + u"z");
        EXPECT_EQ(valid_utf8_length(bytes), 4U);
        EXPECT_EQ(valid_utf8_length("a\xEF\xBF\xBD"), 4U);
    }
}

} // namespace
} // namespace vs::project_resave::platform
