// The rows themselves, as data: what the windows, the logs and the written folders rely on.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string_view>
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

} // namespace
