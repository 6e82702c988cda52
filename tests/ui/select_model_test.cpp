// Which marks follow which click: what the user leaves out is what the run leaves out.
#include "host/toolkit/outline.h"
#include "reference_host/shell/settings.h"
#include "tests/ui/select_panel.h"

namespace vs::project_resave {
namespace {

// Two scenes: the first in groups, the second without.
class select_model : public select_panel {
protected:
    select_model() {
        builder.scene_2d(u"Area").layer("a", u"Roads").layer("b", u"Rivers").layer("c", u"Sites");
        vestra::scene& area = *builder.model.scenes_2d.at(0);
        vestra::layer_group& root = area.make_groups();
        vestra::layer_group& base = root.add_group(u"Base");
        base.add_layer(*area.at(0));
        base.add_layer(*area.at(1));
        area.at(1)->visible = false;
        root.add_group(u"Empty");
        root.add_layer(*area.at(2));
        builder.scene_2d(u"Plan").layer("a", u"Walls").layer("b", u"Doors");
    }
    std::string both() { return marks(views::scenes_2d) + "|" + marks(views::layers_2d); }
};

TEST_F(select_model, everything_is_ticked_after_a_load_and_stands_where_the_user_sees_it_in_the_host) {
    builder.model.scenes_2d.at(0)->at(1)->validity = vestra::three_state::no;
    builder.model.scenes_2d.at(1)->validity = vestra::three_state::no; // but all its layers are valid
    builder.scene_3d(u"Model").layer("a3", u"Top").table(u"Owners", u"C:\\d.dbf").layout(u"Sheet");
    builder.model.tables.at(0)->validity = vestra::three_state::no;
    open();
    EXPECT_EQ("1 [x] Area (invalid)\n2 [x] Plan\n", rows(views::scenes_2d));
    EXPECT_EQ("1 [x] Base (invalid)\n  1/1 [x] Roads\n  1/2 [x] Rivers (invalid)\n2 [ ] Empty\n3 [x] Sites\n",
              rows(views::layers_2d));
    EXPECT_EQ("1 [x] Model\n1 [x] Top\n1 [x] Owners (invalid)\n1 [x] Sheet\n",
              rows(views::scenes_3d) + rows(views::layers_3d) + rows(views::dbf_tables) +
                  rows(views::layouts));
    vestra::shell::settings().invert_layers = true;
    fill();
    EXPECT_EQ("1 [x] Sites\n2 [ ] Empty\n3 [x] Base (invalid)\n  3/1 [x] Rivers (invalid)\n  3/2 [x] Roads\n",
              rows(views::layers_2d));
}

TEST_F(select_model, a_click_carries_over_between_a_scene_and_its_layers) {
    const struct {
        const char* what;
        path row;
        uint32_t view;
        bool on;
        std::string expected; // scenes | Base, Roads, Rivers, Empty, Sites
    } rows[] = {
        {"one layer of a group", {0, 0}, views::layers_2d, false, "xx|-.x.x"},
        {"the group", {0}, views::layers_2d, true, "xx|xxx.x"},
        {"a scene takes its layers with it", {0}, views::scenes_2d, false, ".x|....."},
        {"one layer brings the scene back", {0, 1}, views::layers_2d, true, "xx|-.x.."},
        {"the last layer leaves the scene on", {0, 1}, views::layers_2d, false, "xx|....."},
        {"an empty group has nothing to tick", {1}, views::layers_2d, true, "xx|....."},
        {"a scene brings its layers, also if it was on", {0}, views::scenes_2d, true, "xx|xxx.x"},
        {"the other scene", {1}, views::scenes_2d, false, "x.|xxx.x"},
    };
    open();
    for (const auto& row : rows) {
        check(row.view, row.row, row.on);
        EXPECT_EQ(row.expected, both()) << row.what;
    }
    EXPECT_TRUE(is_selected(u"Area") && is_selected(u"Rivers") && !is_selected(u"Plan") &&
                !is_selected(u"Walls"));
    highlight(views::scenes_2d, {1});
    EXPECT_EQ("x.|..", both()) << "going to another scene shows its marks and changes none";
}

TEST_F(select_model, each_tool_changes_what_its_view_shows_and_nothing_else) {
    const struct {
        const char* what;
        uint32_t view;
        wide_string tool;
        std::string expected, other; // scenes | Base, Roads, Rivers, Empty, Sites; and of the other scene
    } rows[] = {
        {"the layers shown go, their scene stays", views::layers_2d, u"unselect", "xx|.....", "xx"},
        {"its layers come back", views::layers_2d, u"invert_select", "xx|xxx.x", "xx"},
        {"all but the hidden one", views::layers_2d, u"vis_select", "xx|-x..x", "xx"},
        {"turned over", views::layers_2d, u"invert_select", "xx|-.x..", "xx"},
        {"scenes turned over with all their layers", views::scenes_2d, u"invert_select", "x.|-x..x", ".."},
        {"all scenes go with all layers", views::scenes_2d, u"unselect", "..|.....", ".."},
        {"what is visible, in all scenes", views::scenes_2d, u"vis_select", "xx|-x..x", "xx"},
    };
    builder.scene_3d(u"Model").table(u"Owners", u"C:\\d.dbf");
    open();
    for (const auto& row : rows) {
        EXPECT_TRUE(press(row.view, row.tool)) << row.what;
        EXPECT_EQ(row.expected, both()) << row.what;
        highlight(views::scenes_2d, {1});
        EXPECT_EQ(row.other, marks(views::layers_2d)) << row.what;
        highlight(views::scenes_2d, {0});
        EXPECT_EQ("xx", marks(views::scenes_3d) + marks(views::dbf_tables)) << row.what;
    }
    EXPECT_TRUE(press(views::everything, u"unselect"));
    EXPECT_EQ("..|.......", both() + marks(views::scenes_3d) + marks(views::dbf_tables));
    check(views::scenes_2d, {0}, true);
    check(views::layers_2d, {0, 0}, false);
    EXPECT_TRUE(press(views::scenes_2d, u"invert_select"));
    EXPECT_EQ("x.|-x...", both()) << "both turned over, a scene stays on while it has a layer";
}

TEST_F(select_model, a_click_on_one_of_several_highlighted_rows_acts_on_all_of_them) {
    builder.scene_2d(u"Spare").layer("a", u"Left alone");
    open();
    check(views::scenes_2d, {0}, false);
    highlight(views::layers_2d, {0});
    EXPECT_TRUE(row(outline(views::layers_2d), {0, 1}).highlighted) << "a group takes what is below it along";
    check(views::layers_2d, {2}, true);
    EXPECT_EQ("xxx|....x", both()) << "a row beside them stands for itself";
    check(views::layers_2d, {0, 1}, true);
    EXPECT_EQ("xxx|xxx.x", both()) << "a row below stands for the group";
    highlight(views::layers_2d, {0}, false);
    check(views::layers_2d, {0, 0}, false);
    EXPECT_EQ("xxx|....x", both()) << "the rows below keep their own highlight";
    highlight(views::scenes_2d, {0});
    highlight(views::scenes_2d, {1});
    check(views::scenes_2d, {1}, false);
    EXPECT_EQ("..x|..", both()) << "two scenes at once, with their layers";
    EXPECT_TRUE(is_selected(u"Left alone"));
}

TEST_F(select_model, what_is_in_the_project_twice_is_left_out_in_both_places) {
    open();
    vestra::project& loaded = project();
    loaded.scenes_2d.at(1)->at(0)->id = loaded.scenes_2d.at(0)->at(0)->id;
    loaded.tables.make(); // without identity
    fill();
    EXPECT_EQ(std::vector<wide_string>{u"Error select"}, errors());
    EXPECT_EQ("", marks(views::dbf_tables)) << "what has no identity has no row";
    check(views::layers_2d, {0, 0}, false);
    EXPECT_FALSE(is_selected(u"Roads"));
    highlight(views::scenes_2d, {1});
    EXPECT_EQ("xx|xx", both()) << "two rows, of which only one was clicked";
}

// What another bundle adds.
struct listed final : referent<resave_service_impl> {
    listed(bool under_own_heading, std::vector<vestra::uuid> items)
        : with_heading(under_own_heading), ids(std::move(items)) {}
    bool shows_in_selection() override { return true; }
    bool has_own_heading() override { return with_heading; }
    void tree_caption(string_visitor visitor) override { tell(visitor, u"Forms"); }
    vs_uuid* item_uuid(uint32_t index) override { return vestra::api::to_handle<vs_uuid>(&ids.at(index)); }
    void item_caption(uint32_t, string_visitor visitor) override { tell(visitor, u"form"); }
    uint32_t item_count() override { return static_cast<uint32_t>(ids.size()); }

    const bool with_heading;
    std::vector<vestra::uuid> ids;
};

TEST_F(select_model, items_of_other_bundles_stand_under_the_headings_these_want) {
    services.clear();
    const auto id = [&](const wide_string& caption) { return *vestra::uuid::parse(builder.id(caption)); };
    for (auto* each : {new listed(true, {id(u"1"), vestra::uuid(), id(u"2")}), new listed(false, {id(u"3")})})
        services.emplace_back(pointer_to<resave_service_impl>(*each));
    open();
    EXPECT_EQ("1 [x] Forms\n  1/1 [x] form\n  1/2 [x] form\n2 [x] form\n", rows(views::others));
    check(views::others, {0, 1}, false);
    EXPECT_TRUE(is_selected(u"1") && !is_selected(u"2"));
}

} // namespace
} // namespace vs::project_resave
