// The rows themselves, as data: what the windows, the logs and the written folders rely on.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <optional>
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

TEST(texts_data, no_message_is_empty_or_told_twice) {
    for (const auto* rows : {&bundle_rows, &toolkit_rows, &host_rows}) {
        EXPECT_TRUE(std::ranges::is_sorted(*rows, std::ranges::less_equal(), &text_row::id));
        for (const text_row& row : *rows) EXPECT_FALSE(row.base.empty()) << row.id;
    }
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

TEST(texts_data, both_languages_join_find_the_same_files_and_name_folders_that_can_be_made) {
    for (const text_row& row : all_rows()) {
        if (!row.english) continue;
        EXPECT_EQ(frame_of(row.base), frame_of(*row.english)) << row.id;
        if (row.id < 400 || row.id > 411) continue;
        for (const text name : {row.base, *row.english}) {
            const size_t odd = name.find_first_of(u"<>:\"/\\|?*\n\t");
            EXPECT_EQ(odd, row.id == 406 ? name.size() - 1 : text::npos) << row.id;
            EXPECT_FALSE(is_blank(name.front()) || is_blank(name.back()) || name.back() == u'.') << row.id;
        }
    }
}

} // namespace
