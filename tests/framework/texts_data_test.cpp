// The rows themselves, as data: what the windows, the logs and the written folders rely on.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

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

const text_row* find_row(const std::vector<text_row>& rows, uint32_t id) {
    const auto found =
        std::find_if(rows.begin(), rows.end(), [id](const text_row& row) { return row.id == id; });
    return found == rows.end() ? nullptr : &*found;
}

bool is_ascending(const std::vector<text_row>& rows) {
    return std::adjacent_find(rows.begin(), rows.end(), [](const text_row& a, const text_row& b) {
               return a.id >= b.id;
           }) == rows.end();
}

bool is_blank(char16_t c) { return c == u' ' || c == u'\t' || c == u'\n' || c == u'\r'; }

text leading_blanks(text of) {
    return of.substr(0, static_cast<size_t>(std::find_if_not(of.begin(), of.end(), is_blank) - of.begin()));
}

text trailing_blanks(text of) {
    const auto count = static_cast<size_t>(std::find_if_not(of.rbegin(), of.rend(), is_blank) - of.rbegin());
    return of.substr(of.size() - count);
}

// The part of a file dialog's filter that chooses files.
text file_masks(text of) {
    const size_t bar = of.find(u'|');
    return bar == text::npos ? text{} : of.substr(bar);
}

bool is_cyrillic(char16_t c) { return c >= 0x0400 && c <= 0x04FF; }

bool is_latin(char16_t c) { return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z'); }

bool mixes_alphabets(text of) {
    for (size_t i = 1; i < of.size(); ++i) {
        const bool changes =
            (is_cyrillic(of[i - 1]) && is_latin(of[i])) || (is_latin(of[i - 1]) && is_cyrillic(of[i]));
        if (changes) return true;
    }
    return false;
}

bool fits_a_folder_name(text of) {
    return !of.empty() && of.find_first_of(u"<>:\"/\\|?*\n\t") == text::npos && !is_blank(of.front()) &&
           !is_blank(of.back()) && of.back() != u'.';
}

} // namespace

TEST(texts_data, no_message_is_missing_or_told_twice) {
    EXPECT_EQ(bundle_rows.size(), 184u);
    EXPECT_EQ(bundle_rows.front().id, 10u);
    EXPECT_EQ(bundle_rows.back().id, 1004u);
    const auto translated = std::count_if(bundle_rows.begin(), bundle_rows.end(),
                                          [](const text_row& row) { return row.english.has_value(); });
    EXPECT_EQ(translated, 170);
    for (const auto* rows : {&bundle_rows, &toolkit_rows, &host_rows}) EXPECT_TRUE(is_ascending(*rows));
}

TEST(texts_data, an_english_user_reads_russian_only_where_no_english_was_ever_given) {
    const std::map<uint32_t, text> expected = {
        {122, u"Создавать лог-файл для пересохранения проекта"},
        {123, u"Сохранять файлы сцен ( *._sn | *._sc )"},
        {124, u"Сохранять файлы слоев ( *._lr | *._lrd )"},
        {126, u"Пожалуйста подождите. Проект пересохраняется."},
        {127, u"Пожалуйста подождите. Проект открывается."},
        {128, u"Создавать лог-файл в процессе загрузки проекта"},
        {212, u"Скважины"},
        {213, u"Корреляции"},
        {512, u"В проект были добавлены сцены, необходимые для макетов"},
        {632, u"Следующие типы слоев не будут обработаны. Проверьте получившийся проект.\n"},
        {1001, u"Выбрать видимые слои"},
        {1002, u"Выбрать все"},
        {1003, u"Снять выбор"},
        {1004, u"Инвертировать выборку"},
    };
    std::map<uint32_t, text> base_only;
    for (const text_row& row : all_rows()) {
        if (!row.english) base_only.emplace(row.id, row.base);
    }
    EXPECT_EQ(base_only, expected);
}

TEST(texts_data, odd_words_in_use_are_not_mended_by_a_careful_editor) {
    const std::map<uint32_t, text> expected = {
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
        {601, u" \n"},
        {603, u"Failure know new name for file "},
        {604, u"No file "},
        {608, u"File "},
        {609, u" already exists and has been resave the name "},
        {615, u" can not be loaded"},
        {618, u"Collumn DBF-table shp-files"},
        {630, u"Project saved. \n"},
        {640, u"    End "},
        {642, u"End load project from "},
    };
    for (const auto& [id, english] : expected) {
        const text_row* row = find_row(bundle_rows, id);
        ASSERT_NE(row, nullptr) << id;
        EXPECT_EQ(row->english, english) << id;
    }
}

TEST(texts_data, a_russian_user_gets_messages_that_join_and_file_dialogs_that_find_the_same_files) {
    for (const text_row& row : all_rows()) {
        EXPECT_FALSE(row.base.empty()) << row.id;
        if (!row.english) continue;
        EXPECT_EQ(leading_blanks(row.base), leading_blanks(*row.english)) << row.id;
        EXPECT_EQ(trailing_blanks(row.base), trailing_blanks(*row.english)) << row.id;
        EXPECT_EQ(std::count(row.base.begin(), row.base.end(), u'\n'),
                  std::count(row.english->begin(), row.english->end(), u'\n'))
            << row.id;
        EXPECT_EQ(row.base.ends_with(u':'), row.english->ends_with(u':')) << row.id;
        EXPECT_EQ(file_masks(row.base), file_masks(*row.english)) << row.id;
    }
    EXPECT_EQ(file_masks(find_row(bundle_rows, 101)->base), u"|*._vp");
    EXPECT_EQ(file_masks(find_row(bundle_rows, 152)->base), u"|*.txt");
}

TEST(texts_data, a_search_for_a_word_finds_it_because_no_letter_is_of_the_wrong_alphabet) {
    std::vector<uint32_t> mixed;
    for (const text_row& row : all_rows()) {
        EXPECT_FALSE(mixes_alphabets(row.base)) << row.id;
        if (row.english && mixes_alphabets(*row.english)) mixed.push_back(row.id);
    }
    EXPECT_EQ(mixed, (std::vector<uint32_t>{523, 524, 525, 526}));
}

TEST(texts_data, folders_named_by_type_can_be_made_in_either_language) {
    for (uint32_t id = 400; id <= 411; ++id) {
        const text_row* row = find_row(bundle_rows, id);
        ASSERT_NE(row, nullptr) << id;
        for (text name : {row->base, *row->english}) {
            if (id == 406) {
                ASSERT_EQ(name.back(), u'\\');
                name.remove_suffix(1);
            }
            EXPECT_TRUE(fits_a_folder_name(name)) << id;
        }
    }
}

TEST(texts_data, buttons_of_the_windows_have_words) {
    const std::map<uint32_t, text> toolkit = {
        {10001, u"OK"}, {10002, u"Apply"}, {10003, u"Close"}, {10004, u"Cancel"}, {10005, u"Help"}};
    for (const auto& [id, english] : toolkit) {
        const text_row* row = find_row(toolkit_rows, id);
        ASSERT_NE(row, nullptr) << id;
        EXPECT_EQ(row->english, english) << id;
    }
    for (const uint32_t id : {101u, 102u}) EXPECT_NE(find_row(host_rows, id), nullptr) << id;
}
