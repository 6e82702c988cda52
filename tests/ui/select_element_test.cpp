// What the selection panel shows beside the marks: pages, sizes, pictures, and when the host must ask again.
#include "framework/factories.h"
#include "host/interfaces/layer_type_service.h"
#include "host/toolkit/tool.h"
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
    EXPECT_EQ("xxxxxxxx", enabled());
    builder.scene_3d(u"Model").table(u"Owners", u"C:\\d.dbf");
    builder.sheet(vestra::correlations_meta_id, u"Line", u"C:\\l.xml");
    open();
    EXPECT_EQ(".xx...x.", enabled());
    context->close_project();
    EXPECT_EQ("xxxxxxxx", enabled());
    EXPECT_EQ("", marks(views::scenes_3d) + marks(views::dbf_tables) + marks(views::correlations));

    const wide_string expected[] = {u"scn2d 2D scenes",        u"scn3d 3D scenes", u"dbf DBF table",
                                    u"tos OAT table",          u"layout Layout",   u"well Скважины",
                                    u"correlation Корреляции", u"plugin Other"};
    for (size_t index = 0; index < 8; ++index)
        EXPECT_EQ(u"project_resave_select_tab_" + expected[index],
                  page(index).id + u' ' + page(index).caption);
    EXPECT_EQ(u"Select necessary elements", find(look_at(panel), u"groupbox")->caption);
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
    } rows[] = {{0, u" 0 Kbyte"},
                {1, u" 0 Kbyte"},
                {kb + 128, u" 1.13 Kbyte"}, // half away from zero
                {mb - 1, u" 1024 Kbyte"},   // the unit is chosen before the rounding
                {mb, u" 1 Mbyte"},
                {mb + mb / 2, u" 1.5 Mbyte"},
                {1024 * mb - kb, u" 1024 Mbyte"},
                {1024 * mb, u" 1 Gbyte"},
                {2097152 * mb, u" 2048 Gbyte"}};
    for (const auto& row : rows) {
        sizes.bytes = row.bytes;
        context->sizes.clear();
        context->sizes.add_file(c + u"any.dat");
        panel.update_size_label();
        EXPECT_EQ(u"Approximate selected size:", find(look_at(panel), u"label_ex")->caption);
        EXPECT_EQ(row.expected, find(look_at(panel), u"label_ex")->text) << row.bytes;
    }
}

TEST_F(select_panel, the_size_follows_each_click_and_the_end_of_the_project) {
    builder.table(u"A", write(u"C:\\a.tab", std::string(2048, 'a')));
    builder.table(u"B", write(u"C:\\b.tab", std::string(4096, 'b')));
    open();
    const auto size = [&] { return std::stod(platform::to_utf8(find(look_at(panel), u"label_ex")->text)); };
    const double all = size();
    check(views::dbf_tables, {1}, false);
    EXPECT_NEAR(all - 4, size(), 0.011);
    EXPECT_TRUE(press(views::dbf_tables, u"invert_select"));
    EXPECT_NEAR(all - 2, size(), 0.011);
    context->close_project();
    EXPECT_EQ(0, size());
}

TEST_F(select_panel, views_that_are_not_in_use_take_no_clicks_and_keep_their_marks) {
    builder.scene_2d(u"Area").layer("a", u"Roads").table(u"Owners", u"C:\\d.dbf");
    open();
    check(views::dbf_tables, {0}, false);
    panel.model.set_view_enabled(views::everything, false);
    EXPECT_FALSE(panel.model.view_enabled(views::everything));
    panel.model.set_view_enabled(views::scenes_2d, true);
    EXPECT_TRUE(panel.model.view_enabled(views::everything));
    panel.model.fire_changed(views::everything);
    for (uint32_t view = views::layers_2d; view <= views::others; ++view) {
        const bool on = view == views::scenes_2d;
        EXPECT_EQ(on, outline(view).enabled) << view;
        for (const element_view& tool : part(view, u"toolbar").children) EXPECT_EQ(on, tool.enabled) << view;
    }
    EXPECT_FALSE(press(views::dbf_tables, u"select"));
    EXPECT_FALSE(check_row(outline(views::dbf_tables), row(outline(views::dbf_tables), {0}), true));
    EXPECT_EQ(".", marks(views::dbf_tables));
    EXPECT_TRUE(press(views::everything, u"select")) << "the tools for everything stay";
    EXPECT_EQ("x", marks(views::dbf_tables));
    panel.model.set_view_enabled(views::others + 1, true);
    EXPECT_FALSE(panel.model.view_enabled(views::others + 1));
}

// Widths of the pictures that it is told.
class picture_widths final : public masked_bitmap_visitor_impl, public std::vector<uint32_t> {
public:
    void visit(masked_bitmap picture) override { push_back(call<&masked_bitmap_impl::width>(picture)); }
    operator masked_bitmap_visitor() { return pointer_to<masked_bitmap_visitor_impl>(*this); }
};

TEST_F(select_panel, each_tool_bar_has_the_tools_of_its_view_with_words_and_pictures) {
    const std::pair<wide_string, wide_string> tools[] = {{u"select", u"Выбрать все"},
                                                         {u"unselect", u"Снять выбор"},
                                                         {u"invert_select", u"Инвертировать выборку"},
                                                         {u"vis_select", u"Выбрать видимые слои"}};
    for (uint32_t view = views::everything; view <= views::others; ++view) {
        const element_view bar = part(view, u"toolbar");
        ASSERT_EQ(view == views::everything ? 2u : view <= views::scenes_3d ? 4u : 3u, bar.children.size());
        for (size_t index = 0; index < bar.children.size(); ++index) {
            const element_view& tool = bar.children[index];
            EXPECT_EQ(u"vs_resave_project_" + tools[index].first + u"_tool", tool.id);
            EXPECT_EQ(tools[index].second, tool.caption);
            EXPECT_EQ(tool.caption, tool.text);
            picture_widths told;
            call<&tool_impl::image>(cast_to<tool_impl>(tool.live), told);
            EXPECT_EQ(std::vector<uint32_t>{16}, told);
        }
    }
}

class layer_types final : public referent<layer_type_service_impl> {
public:
    explicit layer_types(const bundle_context&) {}
    uint32_t type_count() override { return ++asked, known; }
    const char* type_name(uint32_t index) override { return index == 0 ? "rtr" : "shp"; }
    vs_dib* picture(uint32_t index) override { return vs_dib_create(index + 5, 1); }
    static inline uint32_t known = 2, asked = 0;
};

TEST_F(select_panel, layers_have_the_picture_of_their_type_and_the_host_is_asked_for_pictures_once) {
    service_factory<layer_types> factory(
        u"vestra/scene/2d", std::make_unique<ref_service_holder<layer_types, layer_type_service_impl>>());
    vestra::shell::service_registry registry;
    registry.add(u"vestra/scene/2d", pointer_to<service_factory_impl>(factory), {});
    builder.scene_2d(u"Area").layer("shp", u"Roads").layer("shp_", u"Rivers").layer("rtr", u"Photo");
    open();
    const std::tuple<uint32_t, uint32_t, std::vector<int32_t>, std::vector<uint32_t>> rows[] = {
        {views::layers_2d, 2, {1, -1, 0}, {0, 5, 6, 0}}, {views::scenes_2d, 1, {-1}, {0, 0, 0, 0}}};
    for (const auto& [view, count, of_rows, widths] : rows) {
        const element_view shown = outline(view);
        const auto live = cast_to<outline_impl>(shown.live);
        EXPECT_EQ(count, call<&outline_impl::image_count>(live));
        for (size_t index = 0; index < of_rows.size(); ++index)
            EXPECT_EQ(of_rows[index], shown.rows.at(index).image);
        picture_widths told;
        for (int32_t index = -1; index < 3; ++index) call<&outline_impl::image>(live, index, told);
        EXPECT_EQ(widths, told);
    }
    EXPECT_EQ(1u, layer_types::asked);
    layer_types::known = 0;
    select_element without(*context);
    without.set_project(context->project_handle());
    for (int again = 0; again < 2; ++again) look_at(without);
    EXPECT_EQ(2u, layer_types::asked) << "an empty list is an answer too";
}

TEST_F(select_panel, an_outline_has_its_host_ask_again_after_everything_that_changes_its_rows) {
    struct counter final : outline_events_impl {
        void reset_rows() override { told += 'r'; }
        void reset_columns() override { told += 'c'; }
        void reset_images() override { told += 'i'; }
        std::string told;
    } scenes, layers, tables;
    const auto connect = [&](uint32_t view, const outline_events& events) {
        call<&outline_impl::set_events>(cast_to<outline_impl>(outline(view).live), events);
    };
    builder.scene_2d(u"Area").layer("a", u"Roads").table(u"Owners", u"C:\\d.dbf");
    open();
    connect(views::scenes_2d, pointer_to<outline_events_impl>(scenes));
    connect(views::layers_2d, pointer_to<outline_events_impl>(layers));
    connect(views::dbf_tables, pointer_to<outline_events_impl>(tables));
    const std::tuple<const char*, std::string, std::function<void()>> rows[] = {
        {"a scene clicked", "sl", [&] { check(views::scenes_2d, {0}, false); }},
        {"a layer clicked", "sl", [&] { check(views::layers_2d, {0}, true); }},
        {"scenes by a tool", "sl", [&] { press(views::scenes_2d, u"unselect"); }},
        {"tables by a tool", "t", [&] { press(views::dbf_tables, u"unselect"); }},
        {"everything by a tool", "slt", [&] { press(views::everything, u"select"); }},
        {"another scene", "l", [&] { highlight(views::scenes_2d, {0}); }},
        {"another project", "slt", [&] { open(); }}};
    for (const auto& [what, expected, change] : rows) {
        std::string told;
        for (counter* each : {&scenes, &layers, &tables}) each->told.clear();
        change();
        for (const auto& [name, each] : {std::pair('s', &scenes), {'l', &layers}, {'t', &tables}})
            if (each->told.starts_with("rci")) told += name;
        EXPECT_EQ(expected, told) << what;
    }
    for (const uint32_t view : {views::scenes_2d, views::layers_2d, views::dbf_tables}) connect(view, {});
}

TEST_F(select_panel, rows_that_are_not_there_get_harmless_answers) {
    open();
    const element_view scenes = outline(views::scenes_2d), layers = outline(views::layers_2d);
    EXPECT_TRUE(check_row(scenes, row_view(), true));
    EXPECT_EQ(std::vector<wide_string>{u" error_select_1"}, errors());
    EXPECT_TRUE(highlight_row(scenes, row_view(), true)) << "the user went to no row";
    EXPECT_EQ(u"2D scenes", scenes.caption);
    EXPECT_EQ(u"", layers.caption) << "no scene, no header";
    const auto live = cast_to<outline_impl>(layers.live);
    EXPECT_EQ(nullptr, call<&outline_impl::child>(live, nullptr, 0u));
    EXPECT_EQ(60u, call<&outline_column_impl::width>(call<&outline_impl::name_column>(live)));
    call<&outline_impl::set_expanded>(live, nullptr, false);
}

TEST_F(select_panel, the_column_with_a_header_turns_a_view_over_and_what_is_mixed_goes_off) {
    builder.table(u"A", u"C:\\a.dbf").table(u"B", u"C:\\b.dbf");
    open();
    detail::entities_select_collumn column(panel.model, views::dbf_tables);
    const auto marks_of = pointer_to<outline_checks_impl>(column);
    const auto header = cast_to<outline_bool_column_impl>(marks_of);
    const std::pair<const char*, std::string> rows[] = {{"all on", ".."}, {"all off", "xx"}};
    for (const auto& [what, expected] : rows) {
        call<&outline_bool_column_impl::click_header>(header);
        EXPECT_EQ(expected, marks(views::dbf_tables)) << what;
    }
    call<&outline_checks_impl::click>(marks_of, row(outline(views::dbf_tables), {1}).reference, false);
    EXPECT_EQ("x.", marks(views::dbf_tables));
    call<&outline_bool_column_impl::click_header>(header);
    EXPECT_EQ("..", marks(views::dbf_tables));
}

} // namespace
} // namespace vs::project_resave
