// The rows as the built library holds them, against those that were written.
#include <gtest/gtest.h>

#include "platform/resources.h"
#include "platform/text.h"

namespace vs::project_resave {
namespace {

void expect_row(platform::module_handle module, uint32_t id, wide_view text) {
    wide_view row;
    EXPECT_TRUE(platform::find_text_row(module, id, row)) << id;
    EXPECT_EQ(platform::to_utf8(row), platform::to_utf8(text)) << id;
}

TEST(resource_rows, no_letter_of_any_text_is_lost_on_its_way_into_the_library) {
    platform::module_handle module = platform::own_module();
#define VS_TEXT_BASE_ONLY(id, base) expect_row(module, id, base);
#define VS_TEXT(id, base, english)                                                                           \
    expect_row(module, id, base);                                                                            \
    expect_row(module, id + 50000, english);
#include "framework/texts/bundle_texts.inc"
#include "framework/texts/toolkit_texts.inc"
    module = platform::host_basic_module();
#include "reference_host/shell/host_texts.inc"
#undef VS_TEXT
#undef VS_TEXT_BASE_ONLY
}

} // namespace
} // namespace vs::project_resave
