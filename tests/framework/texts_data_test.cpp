// The rows themselves, as data: what the windows, the logs and the written folders rely on.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string_view>
#include <tuple>
#include <vector>

#include "platform/resources.h"

namespace {

using text = std::u16string_view;

struct text_row {
    uint32_t id;
    text base;
    std::optional<text> english;
};

#define VS_TEXT(id, base, english) {id, base, text{english}},
#define VS_TEXT_BASE_ONLY(id, base) {id, base, std::nullopt},

const std::vector<text_row> bundle_rows = {
#include "framework/texts/bundle_texts.inc"
};

const std::vector<text_row> toolkit_rows = {
#include "framework/texts/toolkit_texts.inc"
};

const std::vector<text_row> host_rows = {
#include "reference_host/shell/host_texts.inc"
};

#undef VS_TEXT
#undef VS_TEXT_BASE_ONLY

std::vector<text_row> all_rows() {
    std::vector<text_row> rows = bundle_rows;
    rows.insert(rows.end(), toolkit_rows.begin(), toolkit_rows.end());
    rows.insert(rows.end(), host_rows.begin(), host_rows.end());
    return rows;
}

bool is_blank(char16_t c) { return c == u' ' || c == u'\t' || c == u'\n' || c == u'\r'; }

// What texts that are joined with others, and filters of file dialogs, have in common in both languages.
auto frame_of(text of) {
    const auto leading = std::find_if_not(of.begin(), of.end(), is_blank) - of.begin();
    const auto trailing = std::find_if_not(of.rbegin(), of.rend(), is_blank) - of.rbegin();
    const size_t bar = of.find(u'|');
    return std::tuple(of.substr(0, static_cast<size_t>(leading)),
                      of.substr(of.size() - static_cast<size_t>(trailing)),
                      std::count(of.begin(), of.end(), u'\n'), of.ends_with(u':'),
                      bar == text::npos ? text() : of.substr(bar));
}

bool mixes_alphabets(text of) {
    const auto is_cyrillic = [](char16_t c) { return c >= 0x0400 && c <= 0x04FF; };
    const auto is_latin = [](char16_t c) { return c < 0x80 && std::isalpha(c) != 0; };
    return std::adjacent_find(of.begin(), of.end(), [&](char16_t a, char16_t b) {
               return (is_cyrillic(a) && is_latin(b)) || (is_latin(a) && is_cyrillic(b));
           }) != of.end();
}

TEST(texts_data, no_message_is_missing_told_twice_or_without_the_english_it_had) {
    std::set<uint32_t> base_only;
    for (const text_row& row : all_rows()) {
        EXPECT_FALSE(row.base.empty()) << row.id;
        if (!row.english) base_only.insert(row.id);
    }
    EXPECT_EQ(base_only,
              (std::set<uint32_t>{122, 123, 124, 126, 127, 128, 212, 213, 512, 632, 1001, 1002, 1003, 1004}));
    EXPECT_EQ(bundle_rows.size(), 184u);
    for (const auto* rows : {&bundle_rows, &toolkit_rows, &host_rows})
        EXPECT_TRUE(std::ranges::is_sorted(*rows, std::ranges::less_equal(), &text_row::id));
}

TEST(texts_data, no_letter_of_any_text_is_lost_on_its_way_into_the_library) {
    namespace platform = vs::project_resave::platform;
    text found;
    const auto expect_rows = [&](platform::module_handle module, const std::vector<text_row>& rows) {
        for (const text_row& row : rows) {
            EXPECT_TRUE(platform::find_text_row(module, row.id, found) && found == row.base) << row.id;
            if (!row.english) continue;
            EXPECT_TRUE(platform::find_text_row(module, row.id + 50000, found) && found == *row.english)
                << row.id;
        }
    };
    expect_rows(platform::own_module(), bundle_rows);
    expect_rows(platform::own_module(), toolkit_rows);
    expect_rows(platform::host_basic_module(), host_rows);
}

TEST(texts_data, odd_words_in_use_are_not_mended_by_a_careful_editor) {
    std::map<uint32_t, text> expected = {
        {156, u"Write caption collumn DBF and OAT tables"},
        {161, u"Write caption collumn legend plus layers"},
        {162, u"Structure charaster:"},
        {183, u"If file is exists:"},
        {406, u"legend plus\\"},
        {503, u"In the original project file of places without the files. "},
        {505, u"\n"},
        {513, u"Overstore was interrupted by the user"},
        {515, u"Error select"},
        {518, u"Layers is not resaving:"},
        {519, u"Lost files "},
        {520, u"Copy error "},
        {523, u"\u0421omplex model - a base for a structural map"},
        {524, u"\u0421omplex model - depth model cube"},
        {525, u"\u0421omplex model - time model cube"},
        {526, u"\u0421omplex model - isochrone map base"},
        {600, u"_log.txt"},
        {618, u"Collumn DBF-table shp-files"},
        {630, u"Project saved. \n"},
    };
    for (const text_row& row : bundle_rows) {
        const auto found = expected.extract(row.id);
        EXPECT_TRUE(!found || row.english == found.mapped()) << row.id;
    }
    EXPECT_TRUE(expected.empty());
}

TEST(texts_data, both_languages_join_find_the_same_files_and_name_folders_that_can_be_made) {
    std::vector<uint32_t> mixed;
    for (const text_row& row : all_rows()) {
        EXPECT_FALSE(mixes_alphabets(row.base)) << row.id;
        if (!row.english) continue;
        if (mixes_alphabets(*row.english)) mixed.push_back(row.id);
        EXPECT_EQ(frame_of(row.base), frame_of(*row.english)) << row.id;
        if (row.id < 400 || row.id > 411) continue;
        for (const text name : {row.base, *row.english}) {
            const size_t odd = name.find_first_of(u"<>:\"/\\|?*\n\t");
            EXPECT_EQ(odd, row.id == 406 ? name.size() - 1 : text::npos) << row.id;
            EXPECT_FALSE(is_blank(name.front()) || is_blank(name.back()) || name.back() == u'.') << row.id;
        }
    }
    EXPECT_EQ(mixed, (std::vector<uint32_t>{523, 524, 525, 526})) << "a search would not find the word";
}

} // namespace
