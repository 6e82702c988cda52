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
    builder.model.scenes_2d.at(0)->at(2)->validity = vestra::three_state::mixed;
    open();
    EXPECT_EQ("1 [x] Area (invalid)\n2 [x] Plan\n", rows(views::scenes_2d));
    const std::string layers = "1 [x] Base (invalid)\n  1/1 [x] Roads\n  1/2 [x] Rivers (invalid)\n"
                               "2 [ ] Empty\n3 [x] Sites\n";
    EXPECT_EQ(layers, rows(views::layers_2d));
    EXPECT_EQ("1 [x] Model\n", rows(views::scenes_3d));
    EXPECT_EQ("1 [x] Top\n", rows(views::layers_3d));
    EXPECT_EQ("1 [x] Owners (invalid)\n", rows(views::dbf_tables));
    EXPECT_EQ("1 [x] Sheet\n", rows(views::layouts));
    EXPECT_EQ(u"Area", outline(views::layers_2d).caption);
    EXPECT_EQ(u"2D scenes", outline(views::scenes_2d).caption);
    vestra::shell::settings().invert_layers = true;
    fill();
    EXPECT_EQ("1 [x] Sites\n2 [ ] Empty\n3 [x] Base (invalid)\n  3/1 [x] Rivers (invalid)\n  3/2 [x] Roads\n",
              rows(views::layers_2d));
    highlight(views::scenes_2d, {1});
    EXPECT_EQ("1 [x] Walls\n2 [x] Doors\n", rows(views::layers_2d)) << "a scene without groups has one order";
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
    EXPECT_FALSE(is_selected(u"Plan") || is_selected(u"Walls") || is_selected(u"Doors"));
    EXPECT_TRUE(is_selected(u"Area") && is_selected(u"Rivers"));
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
        {"all off again", views::everything, u"unselect", "..|.....", ".."},
        {"all on", views::everything, u"select", "xx|xxx.x", "xx"},
    };
    builder.scene_3d(u"Model").table(u"Owners", u"C:\\d.dbf");
    open();
    for (const auto& row : rows) {
        EXPECT_TRUE(press(row.view, row.tool)) << row.what;
        EXPECT_EQ(row.expected, both()) << row.what;
        highlight(views::scenes_2d, {1});
        EXPECT_EQ(row.other, marks(views::layers_2d)) << row.what;
        highlight(views::scenes_2d, {0});
        const std::string rest = row.what == std::string("all off again") ? "." : "x";
        EXPECT_EQ(rest + rest, marks(views::scenes_3d) + marks(views::dbf_tables)) << row.what;
    }
}

TEST_F(select_model, the_scene_list_turned_over_keeps_on_whatever_still_has_a_layer) {
    const struct {
        const char* what;
        bool scene;
        std::string layers, expected; // expected: scene | layers
    } rows[] = {{"all off", false, "...", "x|xxx"}, {"one of three", true, "x..", "x|.xx"},
                {"all on", true, "xxx", ".|..."},   {"scene alone", true, "...", "x|xxx"},
                {"no layers", true, "", ".|"},      {"no layers, off", false, "", "x|"}};
    for (const auto& row : rows) {
        builder = {};
        builder.scene_2d(u"Only");
        for (size_t index = 0; index < row.layers.size(); ++index) builder.layer("a", u"Layer");
        open();
        check(views::scenes_2d, {0}, row.scene);
        for (size_t index = 0; index < row.layers.size(); ++index)
            if (row.layers[index] == '.') check(views::layers_2d, {index}, false);
        EXPECT_TRUE(press(views::scenes_2d, u"invert_select"));
        EXPECT_EQ(row.expected, both()) << row.what;
    }
}

TEST_F(select_model, a_click_on_one_of_several_highlighted_rows_acts_on_all_of_them) {
    open();
    check(views::scenes_2d, {0}, false);
    highlight(views::layers_2d, {0});
    EXPECT_TRUE(row(outline(views::layers_2d), {0, 1}).highlighted) << "a group takes what is below it along";
    check(views::layers_2d, {2}, true);
    EXPECT_EQ("xx|....x", both()) << "a row beside them stands for itself";
    check(views::layers_2d, {0, 1}, true);
    EXPECT_EQ("xx|xxx.x", both()) << "a row below stands for the group";
    highlight(views::layers_2d, {0}, false);
    check(views::layers_2d, {0, 0}, false);
    EXPECT_EQ("xx|....x", both()) << "the rows below keep their own highlight";
    highlight(views::scenes_2d, {0});
    highlight(views::scenes_2d, {1});
    check(views::scenes_2d, {1}, false);
    EXPECT_EQ("..|..", both()) << "two scenes at once, with their layers";
    highlight(views::scenes_2d, {0});
    EXPECT_EQ("..|.....", both());
}

TEST_F(select_model, a_caption_steers_no_terminal_and_looks_like_no_further_row) {
    open();
    project().scenes_2d.at(0)->caption = u"North\n2 [x] \u001b[2JSouth";
    fill();
    EXPECT_TRUE(rows(views::scenes_2d).starts_with("1 [x] North 2 [x] \ufffd[2JSouth\n"))
        << rows(views::scenes_2d);
}

TEST_F(select_model, what_is_in_the_project_twice_is_left_out_in_both_places) {
    open();
    vestra::project& loaded = project();
    loaded.scenes_2d.at(1)->at(0)->id = loaded.scenes_2d.at(0)->at(0)->id;
    fill();
    check(views::layers_2d, {0, 0}, false);
    EXPECT_FALSE(is_selected(u"Roads"));
    highlight(views::scenes_2d, {1});
    EXPECT_EQ("xx|xx", both()) << "two rows, of which only one was clicked";
    loaded.scenes_2d.at(1)->id = loaded.scenes_2d.at(0)->id;
    fill();
    EXPECT_EQ("xx|xx", both()) << "the later scene's layers stand for both";
    check(views::scenes_2d, {1}, false);
    EXPECT_EQ("x.|..", both());
    check(views::layers_2d, {0}, true);
    EXPECT_EQ("x.|x.", both()) << "the first row of the two answers for the scene";
}

TEST_F(select_model, an_element_without_identity_is_told_each_time_and_has_no_row) {
    builder.table(u"Owners", u"C:\\d.dbf");
    open();
    const struct {
        const char* what;
        std::function<vestra::entity&()> element;
        size_t boxes;
        std::string left; // scenes | layers | tables
    } rows[] = {
        {"a table", [&]() -> vestra::entity& { return *project().tables.at(0); }, 1, "xx|xxx.x|"},
        {"a layer", [&]() -> vestra::entity& { return *project().scenes_2d.at(0)->at(0); }, 1, "xx|xx.x|x"},
        {"a scene, in the list and for its layers",
         [&]() -> vestra::entity& { return *project().scenes_2d.at(1); }, 2, "x|xxx.x|x"},
        {"the first scene, which is the current one",
         [&]() -> vestra::entity& { return *project().scenes_2d.at(0); }, 2, "x||x"}};
    for (const auto& row : rows) {
        vestra::uuid& id = row.element().id;
        const vestra::uuid kept = std::exchange(id, vestra::uuid());
        fill();
        EXPECT_EQ(std::vector<wide_string>(row.boxes, u"Error select"), errors()) << row.what;
        EXPECT_EQ(row.left, both() + "|" + marks(views::dbf_tables)) << row.what;
        id = kept;
    }
    EXPECT_TRUE(press(views::layers_2d, u"select")) << "with no scene current it just does nothing";
}

// What another bundle adds.
class listed final : public referent<resave_service_impl> {
public:
    listed(wide_string words, bool is_shown, bool with_heading, std::vector<wide_string> uuids)
        : words_(std::move(words)), is_shown_(is_shown), with_heading_(with_heading), ids_(uuids.size()) {
        for (size_t index = 0; index < uuids.size(); ++index)
            if (const auto id = vestra::uuid::parse(uuids[index])) ids_[index] = *id;
    }
    bool shows_in_selection() override { return is_shown_; }
    bool has_own_heading() override { return with_heading_; }
    void tree_caption(string_visitor visitor) override { tell(visitor, words_); }
    vs_uuid* item_uuid(uint32_t index) override { return vestra::api::to_handle<vs_uuid>(&ids_.at(index)); }
    void item_caption(uint32_t, string_visitor visitor) override { tell(visitor, u"of " + words_); }
    uint32_t item_count() override { return static_cast<uint32_t>(ids_.size()); }

private:
    const wide_string words_;
    const bool is_shown_, with_heading_;
    std::vector<vestra::uuid> ids_;
};

TEST_F(select_model, items_of_other_bundles_stand_under_the_headings_these_want) {
    const auto offer = [&](const wide_string& words, bool is_shown, bool with_heading,
                           std::vector<wide_string> ids) {
        services.emplace_back(
            pointer_to<resave_service_impl>(*new listed(words, is_shown, with_heading, std::move(ids))));
    };
    services.clear();
    services.emplace_back();
    offer(u"Forms", true, true, {builder.id(u"form 1"), u"", builder.id(u"form 2")});
    offer(u"Secret", false, true, {builder.id(u"secret")});
    offer(u"None", true, true, {});
    offer(u"Loose", true, false, {builder.id(u"loose")});
    offer(u"Notes", true, true, {builder.id(u"note")});
    open();
    EXPECT_TRUE(errors().empty()) << "an item without identity cannot be ticked, and nobody is told";
    EXPECT_EQ("1 [x] Forms\n  1/1 [x] of Forms\n  1/2 [x] of Forms\n2 [x] of Loose\n3 [x] Notes\n"
              "  3/1 [x] of Notes\n",
              rows(views::others));
    check(views::others, {0, 1}, false);
    EXPECT_EQ("-x.xxx", marks(views::others));
    EXPECT_FALSE(is_selected(u"form 2"));
    EXPECT_TRUE(is_selected(u"form 1"));
    context->close_project();
    EXPECT_EQ("", marks(views::others));
}

TEST_F(select_model, of_two_collections_of_sheets_of_one_kind_the_later_can_be_ticked) {
    builder.sheet(vestra::well_sheets_meta_id, u"Well 1", u"C:\\w1.xml")
        .sheet("another_collection", u"Unknown", u"C:\\u.xml")
        .sheet(vestra::correlations_meta_id, u"Line", u"C:\\l.xml")
        .sheet(vestra::well_sheets_meta_id, u"Well 2", u"C:\\w2.xml");
    open();
    EXPECT_EQ("1 [x] Well 2\n", rows(views::wells));
    EXPECT_EQ("1 [x] Line\n", rows(views::correlations));
}

} // namespace
} // namespace vs::project_resave
