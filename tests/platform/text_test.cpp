#include "platform/text.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace vs::project_resave::platform {
namespace {

TEST(text, letter_case_is_ignored_in_every_script_that_has_it) {
    struct {
        wide_view a, b;
        int order;
    } const cases[] = {
        {u"", u"", 0},
        {u"C:\\Data\\ROADS.shp", u"c:\\data\\roads.SHP", 0},
        {u"Разрез Ёлка", u"рАЗРЕЗ ёЛКА", 0},
        {u"ΔÉLTA Ž Ø Ґ Є", u"δélta ž ø ґ є", 0},
        {u"\xD801\xDC00", u"\xD801\xDC00", 0},
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
    struct {
        unsigned page;
        wide_view text;
        std::string_view bytes;
    } const cases[] = {
        {65001, u"Aя€\xD83D\xDE00", "A\xD1\x8F\xE2\x82\xAC\xF0\x9F\x98\x80"},
        {65001, wide_view(u"a\0b", 3), std::string_view("a\0b", 3)},
        {1251, u"Привет Ёж", "\xCF\xF0\xE8\xE2\xE5\xF2 \xA8\xE6"},
        {1251, u"\x98", "\x98"},
        {1252, u"Überéœ", "\xDC\x62\x65\x72\xE9\x9C"},
        {1253, u"Αθήνα", "\xC1\xE8\xDE\xED\xE1"},
        {1255, u"שלום", "\xF9\xEC\xE5\xED"},
        {1258, u"đơ₫", "\xF0\xF5\xFE"},
        {866, u"Привет", "\x8F\xE0\xA8\xA2\xA5\xE2"},
        {20127, u"plain", "plain"},
        {65001, u"", ""},
    };
    for (const auto& [page, text, bytes] : cases) {
        EXPECT_EQ(to_bytes(text, page), bytes) << page;
        EXPECT_EQ(from_bytes(bytes, page), text) << page;
    }
    EXPECT_EQ(to_bytes(u"中a", 1251), "?a");
    EXPECT_EQ(to_bytes(u"\xD83D\xDE00"
                       u"a",
                       866),
              "??a");
    EXPECT_EQ(to_bytes(u"a", 4711), "");
    EXPECT_EQ(from_bytes("a", 4711), u"");
}

TEST(text, broken_text_costs_only_the_broken_part) {
    constexpr std::string_view mark = "\xEF\xBF\xBD";
    for (const wide_view half : {u"\xD800", u"\xDC00"}) {
        EXPECT_EQ(to_utf8(wide_string(u"a") + wide_string(half) + u"я"),
                  "a" + std::string(mark) + "\xD1\x8F");
        EXPECT_EQ(to_utf8(half), mark);
        EXPECT_EQ(compare_no_case(half, half), 0);
    }
    struct {
        std::string_view bytes;
        wide_view text;
    } const cases[] = {
        {"a\xFFz", u"a\xFFFDz"},         {"\xD1", u"\xFFFD"},         {"\xD1z", u"\xFFFDz"},
        {"\xE2\x82z", u"\xFFFDz"},       {"\xC0\x80z", u"\xFFFDz"},   {"\xED\xA0\x80z", u"\xFFFDz"},
        {"\xF4\x90\x80\x80", u"\xFFFD"}, {"\xF0\x9F\x98", u"\xFFFD"},
    };
    // How many marks stand for one broken part is the system's choice.
    for (const auto& [bytes, text] : cases) {
        wide_string told = from_utf8(bytes);
        const auto rest =
            std::ranges::unique(told, [](char16_t a, char16_t b) { return a == b && a == 0xFFFD; });
        told.erase(rest.begin(), rest.end());
        EXPECT_EQ(told, text);
    }
}

} // namespace
} // namespace vs::project_resave::platform
