// What the selection panel shows beside the marks: pages, sizes, and when the host must ask again.
#include "tests/support/forwarding_system.h"
#include "tests/ui/select_panel.h"

namespace vs::project_resave {
namespace {

using vestra::toolkit::find;
using vestra::toolkit::look_at;

TEST_F(select_panel, pages_without_content_cannot_be_chosen_until_the_project_is_gone) {
    const auto enabled = [&] {
        std::string pages;
        for (size_t index = 0; index < 8; ++index) pages += page(index).enabled ? 'x' : '.';
        return pages;
    };
    builder.scene_3d(u"Model").table(u"Owners", u"C:\\d.dbf");
    builder.sheet(vestra::correlations_meta_id, u"Line", u"C:\\l.xml");
    open();
    EXPECT_EQ(".xx...x.", enabled());
    context->close_project();
    EXPECT_EQ("xxxxxxxx", enabled());
    EXPECT_EQ("", marks(views::scenes_3d) + marks(views::dbf_tables) + marks(views::correlations));
}

TEST_F(select_panel, the_size_is_told_in_the_unit_that_fits_it) {
    // Every file has the size that the row wants.
    struct told_sizes final : forwarding_system {
        uint64_t bytes = 0;
        uint64_t file_size(const wide_string&) override { return bytes; }
    } sizes;
    const platform::system_override in_force(sizes);
    constexpr uint64_t kb = 1024, mb = 1024 * kb;
    const struct {
        uint64_t bytes;
        wide_string expected;
    } rows[] = {{0, u" 0 Kbyte"},         {kb + 128, u" 1.13 Kbyte"}, // half away from zero
                {mb - 1, u" 1024 Kbyte"}, // the unit is chosen before the rounding
                {mb, u" 1 Mbyte"},        {mb + mb / 2, u" 1.5 Mbyte"},
                {1024 * mb, u" 1 Gbyte"}, {2097152 * mb, u" 2048 Gbyte"}};
    for (const auto& row : rows) {
        sizes.bytes = row.bytes;
        context->sizes.clear();
        context->sizes.add_file(c + u"any.dat");
        panel.update_size_label();
        EXPECT_EQ(row.expected, find(look_at(panel), u"label_ex")->text) << row.bytes;
    }
}

TEST_F(select_panel, an_outline_has_its_host_ask_again_after_everything_that_changes_its_rows) {
    struct counter final : outline_events_impl {
        void reset_rows() override { ++told; }
        void reset_columns() override {}
        void reset_images() override {}
        int told = 0;
    } layers;
    builder.scene_2d(u"Area").layer("a", u"Roads");
    open();
    const auto live = cast_to<outline_impl>(outline(views::layers_2d).live);
    call<&outline_impl::set_events>(live, pointer_to<outline_events_impl>(layers));
    const std::function<void()> rows[] = {[&] { check(views::scenes_2d, {0}, false); },
                                          [&] { check(views::layers_2d, {0}, true); },
                                          [&] { press(views::everything, u"select"); },
                                          [&] { highlight(views::scenes_2d, {0}); }, [&] { open(); }};
    for (const auto& change : rows) {
        layers.told = 0;
        change();
        EXPECT_NE(0, layers.told);
    }
    call<&outline_impl::set_events>(live, outline_events());
}

} // namespace
} // namespace vs::project_resave
