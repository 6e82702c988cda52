// Linux only: resources are registered there; those of the resource compiler are in windows_test.cpp.
#include "platform/resources.h"

#include <gtest/gtest.h>

#include "platform/posix/resource_registry.h"

namespace vs::project_resave::platform {
namespace {

using bytes = std::vector<uint8_t>;

// An uncompressed image whose pixels stand bottom-up, each row padded to four bytes.
bytes bmp(uint8_t width, uint8_t height, uint8_t bits, const bytes& rows) {
    bytes file(54, 0);
    file[0] = 'B';
    file[1] = 'M';
    file[2] = static_cast<uint8_t>(54 + rows.size());
    file[10] = 54;
    file[14] = 40;
    file[18] = width;
    file[22] = height;
    file[26] = 1;
    file[28] = bits;
    file.insert(file.end(), rows.begin(), rows.end());
    return file;
}

TEST(resources, rows_come_back_as_they_stand) {
    using namespace std::literals;
    const text_row rows[] = {{70001, u"Готово"}, {70002, u"own zero\0"sv}, {70003, u""}, {70001, u"Done"}};
    register_text_rows(own_module(), rows);
    wide_view row = u"as it was";
    for (const uint32_t missing : {70003U, 70004U, 0U, 4000000000U})
        EXPECT_FALSE(find_text_row(own_module(), missing, row));
    EXPECT_FALSE(find_text_row({}, 70001, row));
    EXPECT_EQ(row, u"as it was");
    EXPECT_TRUE(find_text_row(own_module(), 70001, row));
    EXPECT_EQ(row, u"Done");
    EXPECT_TRUE(find_text_row(own_module(), 70002, row));
    EXPECT_EQ(row, u"own zero\0"sv);
}

TEST(resources, the_hosts_rows_are_kept_apart_from_the_bundles) {
    const text_row rows[] = {{70011, u"host"}};
    const module_handle host = register_host_basic_module();
    register_text_rows(host, rows);
    EXPECT_EQ(host, host_basic_module());
    EXPECT_FALSE(host == own_module());
    wide_view row;
    EXPECT_TRUE(find_text_row(host_basic_module(), 70011, row));
    EXPECT_FALSE(find_text_row(own_module(), 70011, row));
}

TEST(resources, images_are_decoded_top_down_as_blue_green_red) {
    const bytes two_rows = bmp(1, 2, 24, {1, 2, 3, 0, 4, 5, 6, 0});
    const bytes see_through = bmp(2, 1, 32, {1, 2, 3, 255, 4, 5, 6, 0});
    const bytes broken = {'B', 'X', 0};
    register_image(own_module(), 70021, two_rows);
    register_image(own_module(), 70022, see_through, image_kind::icon);
    register_image(own_module(), 70023, broken);

    image result;
    EXPECT_FALSE(load_image(own_module(), 70022, result)); // an icon is no bitmap
    EXPECT_FALSE(load_icon_image(own_module(), 70021, result));
    EXPECT_FALSE(load_image({}, 70021, result));
    EXPECT_EQ(result.width, 0U);
    ASSERT_TRUE(load_image(own_module(), 70021, result));
    EXPECT_EQ(result.width, 1U);
    EXPECT_EQ(result.height, 2U);
    EXPECT_EQ(result.colour, bytes({4, 5, 6, 1, 2, 3}));
    EXPECT_EQ(result.mask, bytes({255, 255}));
    EXPECT_FALSE(load_image(own_module(), 70023, result));
    EXPECT_EQ(result.height, 2U);
    ASSERT_TRUE(load_icon_image(own_module(), 70022, result));
    EXPECT_EQ(result.colour, bytes({1, 2, 3, 4, 5, 6}));
    EXPECT_EQ(result.mask, bytes({255, 0}));
    register_image(own_module(), 70021, {});
    EXPECT_FALSE(load_image(own_module(), 70021, result));
}

} // namespace
} // namespace vs::project_resave::platform
