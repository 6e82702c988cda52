// What the selection panel shows beside the marks: pages, sizes, pictures, and when the host must ask again.
#include "framework/factories.h"
#include "host/interfaces/layer_type_service.h"
#include "host/vsk_basic.h"
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
    wide_string words;
    for (const element_view& tool : part(views::scenes_2d, u"toolbar").children) words += u"|" + tool.caption;
    EXPECT_EQ(u"|Выбрать все|Снять выбор|Инвертировать выборку|Выбрать видимые слои", words);
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

// Widths of the pictures that it is told.
class picture_widths final : public masked_bitmap_visitor_impl, public std::vector<uint32_t> {
public:
    void visit(masked_bitmap picture) override { push_back(call<&masked_bitmap_impl::width>(picture)); }
    operator masked_bitmap_visitor() { return pointer_to<masked_bitmap_visitor_impl>(*this); }
};

class layer_types final : public referent<layer_type_service_impl> {
public:
    explicit layer_types(const bundle_context&) {}
    uint32_t type_count() override { return ++asked, 2; }
    const char* type_name(uint32_t index) override { return index == 0 ? "rtr" : "shp"; }
    vs_dib* picture(uint32_t index) override { return vs_dib_create(index + 5, 1); }
    static inline uint32_t asked = 0;
};

TEST_F(select_panel, layers_have_the_picture_of_their_type_and_the_host_is_asked_for_pictures_once) {
    service_factory<layer_types> factory(
        u"vestra/scene/2d", std::make_unique<ref_service_holder<layer_types, layer_type_service_impl>>());
    vestra::shell::service_registry registry;
    registry.add(u"vestra/scene/2d", pointer_to<service_factory_impl>(factory), {});
    builder.scene_2d(u"Area").layer("shp", u"Roads").layer("shp_", u"Rivers").layer("rtr", u"Photo");
    open();
    const element_view shown = outline(views::layers_2d);
    const int32_t expected[] = {1, -1, 0};
    for (size_t index = 0; index < 3; ++index) EXPECT_EQ(expected[index], shown.rows.at(index).image);
    picture_widths told;
    for (int32_t index = -1; index < 3; ++index)
        call<&outline_impl::image>(cast_to<outline_impl>(shown.live), index, told);
    EXPECT_EQ((std::vector<uint32_t>{0, 5, 6, 0}), told);
    outline(views::layers_2d);
    EXPECT_EQ(1u, layer_types::asked);
}

TEST_F(select_panel, an_outline_has_its_host_ask_again_after_everything_that_changes_its_rows) {
    struct counter final : outline_events_impl {
        void reset_rows() override { ++told; }
        void reset_columns() override {}
        void reset_images() override {}
        int told = 0;
    } layers;
    builder.scene_2d(u"Area").layer("a", u"Roads").table(u"Owners", u"C:\\d.dbf");
    open();
    const auto live = cast_to<outline_impl>(outline(views::layers_2d).live);
    call<&outline_impl::set_events>(live, pointer_to<outline_events_impl>(layers));
    const std::pair<bool, std::function<void()>> rows[] = {{true, [&] { check(views::scenes_2d, {0}, false); }},
                                                           {true, [&] { check(views::layers_2d, {0}, true); }},
                                                           {true, [&] { press(views::scenes_2d, u"unselect"); }},
                                                           {true, [&] { press(views::everything, u"select"); }},
                                                           {true, [&] { highlight(views::scenes_2d, {0}); }},
                                                           {true, [&] { open(); }},
                                                           {false, [&] { press(views::dbf_tables, u"unselect"); }}};
    for (const auto& [is_told, change] : rows) {
        layers.told = 0;
        change();
        EXPECT_EQ(is_told, layers.told != 0);
    }
    call<&outline_impl::set_events>(live, outline_events());
}

} // namespace
} // namespace vs::project_resave
