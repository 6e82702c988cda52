// The selection panel, driven as a host drives it: behaviour that the sessions of the whole window in
// tests/apps/sessions do not show.
#include "host/toolkit/outline.h"
#include "platform/forwarding_system.h"
#include "reference_host/api/handles.h"
#include "reference_host/toolkit/element_description.h"
#include "tests/support/builder_run.h"
#include "ui/select_element.h"

namespace vs::project_resave {
namespace {

using namespace vestra::toolkit;

// A project of two scenes; the first one has groups.
class select_panel : public builder_run {
protected:
    select_panel() {
        refill_ = context->project_changed_event().connect([this] { fill(); });
        builder.scene_2d(u"Area").layer("a", u"Roads").layer("b", u"Rivers").layer("c", u"Sites");
        vestra::scene& area = *builder.model.scenes_2d.at(0);
        vestra::layer_group& base = area.make_groups().add_group(u"Base");
        base.add_layer(*area.at(0));
        base.add_layer(*area.at(1));
        area.groups->add_layer(*area.at(2));
        builder.scene_2d(u"Plan").layer("a", u"Walls").save(source);
    }
    // Fills the panel again after a change to the loaded project that no file could contain.
    void fill() {
        script.events.clear();
        panel.set_project(nullptr);
        if (vs_prj* handle = context->project_handle()) panel.set_project(handle);
    }
    element_view look() {
        element_view view = look_at(panel);
        name_elements(view);
        return view;
    }
    // Returns the rows of a list.
    std::string rows(const std::string& list) {
        const element_view view = look();
        const std::string text = described(*all_named(view, list).at(0));
        return text.substr(text.find('\n') + 1);
    }
    void check(const std::string& path, bool on, decltype(check_row)& act = check_row) {
        const element_view view = look(), *outline = nullptr;
        const row_view* row = find_row(view, path, outline);
        EXPECT_TRUE(row && act(*outline, *row, on)) << path;
    }
    bool is_selected(const wide_string& caption) {
        return context->selection.is_selected(builder.id(caption));
    }

    select_element panel{*context};

private:
    std::shared_ptr<void> refill_;
};

TEST_F(select_panel, layers_are_in_the_order_that_the_host_shows) {
    vestra::shell::settings().invert_layers = true;
    load();
    EXPECT_EQ("  scn2d/list2/1 [x] Sites\n  scn2d/list2/2 [x] Base\n"
              "    scn2d/list2/2/1 [x] Rivers\n    scn2d/list2/2/2 [x] Roads\n",
              rows("scn2d/list2"));
}

TEST_F(select_panel, what_is_in_the_project_twice_is_left_out_in_both_places) {
    load();
    vestra::project& loaded = *vestra::api::to_model(context->project_handle());
    loaded.scenes_2d.at(1)->at(0)->id = loaded.scenes_2d.at(0)->at(0)->id;
    loaded.tables.make(); // without identity
    fill();
    EXPECT_EQ(texts{u"Error select"}, errors());
    EXPECT_EQ("", rows("dbf/list1")) << "what has no identity has no row";
    check("scn2d/list2/Base/Roads", false);
    EXPECT_FALSE(is_selected(u"Roads"));
    EXPECT_EQ("  scn2d/list1/1 [x] Area\n  scn2d/list1/2 [x] Plan\n", rows("scn2d/list1"))
        << "two rows, of which only one was clicked";
}

// An element that another bundle adds.
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

TEST_F(select_panel, items_of_other_bundles_are_under_the_headings_they_ask_for) {
    services.clear();
    const auto id = [&](const wide_string& caption) { return *vestra::uuid::parse(builder.id(caption)); };
    for (auto* each : {new listed(true, {id(u"1"), vestra::uuid(), id(u"2")}), new listed(false, {id(u"3")})})
        services.emplace_back(pointer_to<resave_service_impl>(*each));
    load();
    check("plugin/list1/Forms/2", false);
    EXPECT_EQ("  plugin/list1/1 [-] Forms\n    plugin/list1/1/1 [x] form\n    plugin/list1/1/2 [ ] form\n"
              "  plugin/list1/2 [x] form\n",
              rows("plugin/list1"));
    EXPECT_TRUE(is_selected(u"1") && !is_selected(u"2"));
}

TEST_F(select_panel, the_size_is_shown_in_the_unit_that_fits_it) {
    // Reports the size of the current row for every file.
    struct told_sizes final : forwarding_system {
        uint64_t bytes = 0;
        platform::entry_status status_of(const wide_string& path) override {
            return {forwarding_system::status_of(path).kind, bytes};
        }
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
        EXPECT_EQ(row.expected, find(look(), u"label_ex")->text) << row.bytes;
    }
}

TEST_F(select_panel, an_outline_notifies_its_host_of_every_change_of_its_rows) {
    struct counter final : outline_events_impl {
        void reset_rows() override { ++told; }
        void reset_columns() override {}
        void reset_images() override {}
        int told = 0;
    } layers;
    load();
    const auto live = cast_to<outline_impl>(all_named(look(), "scn2d/list2").at(0)->live);
    call<&outline_impl::set_events>(live, pointer_to<outline_events_impl>(layers));
    const std::function<void()> rows[] = {
        [&] { check("scn2d/list1/Area", false); }, [&] { check("scn2d/list2/Sites", true); },
        [&] { check("scn2d/list1/Plan", true, highlight_row); },
        [&] { click_tool(*all_named(look(), "tool1").at(0)); }, [&] { load(); }};
    for (const auto& change : rows) {
        layers.told = 0;
        change();
        EXPECT_NE(0, layers.told);
    }
    call<&outline_impl::set_events>(live, outline_events());
}

} // namespace
} // namespace vs::project_resave
