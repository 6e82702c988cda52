// Services that a test offers itself: for the order among claims, and to misbehave.
#include <stdexcept>

#include "framework/string_adapter.h"
#include "host/vsk_basic.h"
#include "host/vsk_lr.h"
#include "host/vsk_scn_2d.h"
#include "platform/system.h"
#include "tests/services/services_run.h"

namespace vs::project_resave {
namespace {

// What the next service does; a bundle's class can only be built with its context.
struct {
    int32_t priority = 0;
    bool accepts = true;
    wide_string meta_id = u"graph_lr2d";
    uint32_t kinds = 1, references = 0, files = 1, items = 0;
} wish;

bool is_layer(vs_entity* entity) { return vs_lr_safe_downcast(entity) != nullptr; }

class entity_service : public referent<resave_entity_service_impl> {
public:
    explicit entity_service(const bundle_context&) {}
    uint32_t meta_id_count() override { return wish.kinds; }
    void meta_id(uint32_t, string_visitor visitor) override { tell(visitor, wish.meta_id); }
    int32_t priority() override { return wish.priority; }
    bool accepts(vs_entity*) override { return wish.accepts; }
    uint32_t reference_count(vs_entity*) override { return wish.references; }
    void reference_uuid(vs_entity*, uint32_t, vs_uuid*) override {}
    uint32_t file_count(vs_entity*) override { return wish.files; }
    void file_info(vs_entity* entity, uint32_t, string_visitor source, string_visitor folder) override {
        tell(source, is_layer(entity) ? host_string(&vs_lr_get_wfilename, vs_lr_safe_downcast(entity))
                                      : host_string(&vs_scn_2d_get_source, vs_scn_2d_safe_downcast(entity)));
        tell(folder, u"claimed");
    }
    void set_file(vs_entity* entity, uint32_t, const char16_t* path) override {
        if (is_layer(entity))
            vs_lr_set_wfilename(vs_lr_safe_downcast(entity), path);
        else
            vs_scn_2d_set_source(vs_scn_2d_safe_downcast(entity), path);
    }
    bool copy_files(vs_entity*, uint32_t, const char16_t* source, const char16_t* target,
                    vs_wstrings* sources, vs_wstrings* targets) override {
        vs_wstrings_add(sources, source);
        vs_wstrings_add(targets, target);
        return platform::current_system().copy_file(source, target, false);
    }
    bool all_files(vs_entity*, vs_wstrings*) override { return false; }
};

class foreign_services : public services_run {
protected:
    foreign_services() {
        wish = {};
        write(u"C:\\prj\\a.dxf");
        builder.scene_2d(u"Area").layer("graph_lr2d", u"Drawing", u"C:\\prj\\a.dxf");
    }
};

TEST_F(foreign_services, the_claim_with_the_lowest_priority_wins_and_among_equals_that_of_the_resave_itself) {
    offer<entity_service, resave_entity_service_impl>();
    const struct {
        int32_t priority;
        bool accepts;
        const char* type;
        wide_string folder;
    } rows[] = {{-1, true, "graph_lr2d", u"claimed"},
                {-1, false, "graph_lr2d", u"graphics"},
                {0, true, "graph_lr2d", u"graphics"},
                {5, true, "rtr_lr2d", u"claimed"}};
    for (const auto& row : rows) {
        wish = {row.priority, row.accepts, platform::from_utf8(row.type)};
        builder.model.scenes_2d.at(0)->remove(0);
        builder.layer(row.type, u"Drawing", u"C:\\prj\\a.dxf");
        run_anew();
        EXPECT_EQ(u"N:\\out\\" + row.folder + u"\\a.dxf", copied(0).file) << row.priority << row.type;
        EXPECT_TRUE(path_exists(copied(0).file));
    }
}

TEST_F(foreign_services, a_claim_is_heard_in_scenes_sheets_and_layouts_but_never_in_a_legend) {
    offer<entity_service, resave_entity_service_impl>();
    for (const char16_t* file : {u"1.tif", u"2.sgy", u"3.wsh", u"4.tif", u"5.tif", u"6.tif"})
        write(u"C:\\prj\\" + wide_string(file));
    builder.scene_2d(u"Flat")
        .layer("rtr_lr2d", u"A", u"C:\\prj\\1.tif")
        .scene_3d(u"Solid")
        .layer("segy_lr3d", u"B", u"C:\\prj\\2.sgy")
        .sheet(vestra::well_sheets_meta_id, u"C", u"C:\\prj\\3.wsh")
        .layout(u"Sheet")
        .layer("layout_image", u"D", u"C:\\prj\\4.tif")
        .layer("layout_scene_frame", u"E", u"C:\\prj\\5.tif")
        .legend(u"Signs", {{"rtr_lr2d", u"F", u"C:\\prj\\6.tif"}});
    const texts meta_ids{u"rtr_lr2d", u"segy_lr3d", u"Scene2DMetaID", u"layout_image", u"layout_scene_frame"};
    for (size_t claimed = 0; claimed < meta_ids.size(); ++claimed) {
        wish = {-1, true, meta_ids[claimed]};
        run_anew();
        texts expected{u"N:\\out\\rtr\\1.tif", u"N:\\out\\sgy\\2.sgy", u"N:\\out\\well\\3.wsh",
                       u"N:\\out\\rtr\\4.tif", u"C:\\prj\\5.tif",      u"N:\\out\\legend plus\\6.tif"};
        expected[claimed] = u"N:\\out\\claimed\\" + path_file_name(expected[claimed]);
        const vestra::scene& sheet = *copy->layouts.at(0);
        const texts found{copy->scenes_2d.at(1)->at(0)->file,
                          copy->scenes_3d.at(0)->at(0)->file,
                          copy->plugin_scenes.at(0)->at(0)->source,
                          sheet.at(0)->file,
                          sheet.at(1)->file,
                          sheet.at(2)->legend->at(0)->file};
        EXPECT_EQ(expected, found);
    }
}

class row_service final : public entity_service {
public:
    using entity_service::entity_service;
    uint32_t file_count(vs_entity*) override { return static_cast<uint32_t>(rows.size()); }
    void file_info(vs_entity*, uint32_t index, string_visitor source, string_visitor folder) override {
        tell(source, rows[index]);
        tell(folder, u"claimed" + decimal(index));
    }
    void set_file(vs_entity*, uint32_t index, const char16_t* path) override {
        told.push_back(decimal(index) + u" " + path);
    }
    static inline texts rows, told;
};

TEST_F(foreign_services, each_file_of_an_element_is_told_its_place_and_one_that_is_found_keeps_it) {
    offer<row_service, resave_entity_service_impl>();
    wish.priority = -1;
    settings.delete_lost_sources = true;
    const wide_string found = u"C:\\prj\\a.dxf", lost = u"C:\\prj\\gone.dxf", place = u"N:\\out\\claimed";
    const texts lost_drawing{u"Area: Lost files Drawing\n"};
    const struct {
        texts rows, told, problems;
        uint32_t left = 1; // elements
    } rows[] = {{{lost, u"", found}, {u"2 " + place + u"2\\a.dxf"}, lost_drawing},
                {{found, found}, {u"0 " + place + u"0\\a.dxf", u"1 " + place + u"0\\a.dxf"}, {}},
                {{lost, u""}, {}, lost_drawing, 0},
                {{}, {}, {}}};
    for (const auto& row : rows) {
        row_service::rows = row.rows;
        row_service::told.clear();
        run_anew();
        EXPECT_EQ(row.told, row_service::told);
        EXPECT_EQ(row.problems, problems);
        EXPECT_EQ(row.left, copy->scenes_2d.at(0)->count());
    }
}

TEST_F(foreign_services, an_element_has_its_own_file_beside_the_new_project_under_every_structure) {
    offer<entity_service, resave_entity_service_impl>();
    write(u"C:\\prj\\w.wsh");
    builder.sheet(vestra::well_sheets_meta_id, u"Well: 1", u"C:\\prj\\w.wsh");
    settings.save_scene_files = settings.save_layer_files = true;
    const struct {
        uint32_t structure;
        wide_string meta_id;
        std::vector<std::string> files;
    } rows[] = {{folder_per_scene, u"graph_lr2d", {"Area/Area._sn", "Area/prj/a.dxf", "Drawing._lr"}},
                {by_type, u"graph_lr2d", {"Area._sn", "Drawing._lr", "claimed/a.dxf", "well/w.wsh"}},
                {folder_per_scene, u"Scene2DMetaID", {"Area/Area._sn", "Area/prj/a.dxf"}}, // no sheets
                {by_type, u"Scene2DMetaID", {"Area._sn", "Well_ 1._sn", "claimed/w.wsh", "graphics/a.dxf"}}};
    for (const auto& row : rows) {
        wish = {-1, true, row.meta_id};
        settings.structure_variant = row.structure;
        run_anew();
        EXPECT_EQ(row.files, files());
        EXPECT_EQ(texts{}, problems);
    }
    vestra::scene sheet(vestra::dimension::flat);
    EXPECT_FALSE(vestra::files::read_scene(u"N:\\out\\Well_ 1._sn", sheet));
    EXPECT_EQ(u"N:\\out\\claimed\\w.wsh", sheet.source) << "as it is after the resave";
}

TEST_F(foreign_services,
       of_three_map_legends_the_first_and_the_third_are_left_when_the_middle_one_is_unticked) {
    for (const wide_string caption : {u"Geology", u"Soils", u"Water"}) {
        vestra::map_legend& legend = builder.model.map_legends.make();
        legend.caption = caption;
        legend.id = *vestra::uuid::parse(builder.id(caption));
    }
    start(false);
    builder.save(source);
    load();
    call<&resave_service_impl::set_project>(services.front().get(), nullptr);
    EXPECT_EQ(0U, call<&resave_service_impl::item_count>(services.front().get()));
    resave_and_read();
    EXPECT_EQ(3U, copy->map_legends.count());
    unticked = {u"Soils"};
    run();
    ASSERT_EQ(2U, copy->map_legends.count());
    EXPECT_EQ(u"Geology", copy->map_legends.at(0)->caption);
    EXPECT_EQ(u"Water", copy->map_legends.at(1)->caption);
}

[[noreturn]] void fail() { throw std::runtime_error("a fault of the bundle"); }

class throwing_service final : public referent<resave_service_impl> {
public:
    explicit throwing_service(const bundle_context&) {}
    void set_project(vs_prj*) override { fail(); }
    void caption(string_visitor) override { fail(); }
    vs_uuid* item_uuid(uint32_t) override { fail(); }
    void item_files(uint32_t, vs_wstrings*) override { fail(); }
    void set_item_source(uint32_t, const char16_t*) override { fail(); }
    uint32_t item_count() override {
        if (++counts % 2 == 0) fail();
        return 3;
    }
    void remove_item(uint32_t) override { fail(); }

private:
    int counts = 0;
};

class throwing_entity_service final : public entity_service {
public:
    using entity_service::entity_service;
    bool accepts(vs_entity*) override { return true; }
    uint32_t reference_count(vs_entity*) override { fail(); }
    bool copy_files(vs_entity*, uint32_t, const char16_t*, const char16_t*, vs_wstrings*,
                    vs_wstrings*) override {
        fail();
    }
    void set_file(vs_entity*, uint32_t, const char16_t*) override { fail(); }
    bool all_files(vs_entity*, vs_wstrings*) override { fail(); }
};

TEST_F(foreign_services, a_service_that_throws_loses_its_own_part_and_nothing_else) {
    wish.priority = -1;
    offer<throwing_service, resave_service_impl>();
    offer<throwing_entity_service, resave_entity_service_impl>();
    write(u"C:\\prj\\b.tif");
    builder.layer("rtr_lr2d", u"Relief", u"C:\\prj\\b.tif");
    start(false);
    run();
    EXPECT_EQ(texts{u"Area: Copy error a.dxf\n"}, problems);
    EXPECT_EQ(u"C:\\prj\\a.dxf", copied(0).file);
    EXPECT_TRUE(path_exists(u"N:\\out\\rtr\\b.tif"));
    EXPECT_TRUE(context->report.saved);
    EXPECT_EQ(texts{}, errors());
}

// Answers that contradict each other, lead nowhere or are not there.
class nonsense_entity_service final : public entity_service {
public:
    using entity_service::entity_service;
    uint32_t meta_id_count() override { return 3; }
    void meta_id(uint32_t index, string_visitor visitor) override {
        if (index == 0) call<&string_visitor_impl::visit>(visitor, nullptr);
        if (index == 1) tell(visitor, u"graph_lr2d");
    }
    uint32_t reference_count(vs_entity*) override { return 4; }
    uint32_t file_count(vs_entity*) override { return ++counts * 3; }
    void file_info(vs_entity* entity, uint32_t index, string_visitor source, string_visitor folder) override {
        if (index == 0) call<&string_visitor_impl::visit>(source, nullptr);
        if (index == 1) entity_service::file_info(entity, index, source, folder);
    }
    bool copy_files(vs_entity*, uint32_t, const char16_t*, const char16_t*, vs_wstrings* sources,
                    vs_wstrings* targets) override {
        for (int i = 0; i < 3; ++i) vs_wstrings_add(sources, u"C:\\prj\\a.dxf");
        vs_wstrings_add(targets, u"");
        return !wish.accepts;
    }
    bool accepts(vs_entity*) override { return true; }

private:
    uint32_t counts = 0;
};

class boundless_service final : public referent<resave_service_impl> {
public:
    explicit boundless_service(const bundle_context&) {}
    void caption(string_visitor visitor) override { tell(visitor, u"boundless"); }
    void item_source(uint32_t, string_visitor) override { ADD_FAILURE() << "no item is asked for"; }
    uint32_t item_count() override { return wish.items; }
};

TEST_F(foreign_services, counts_that_cannot_be_are_reported_and_nobody_waits_for_their_end) {
    constexpr uint32_t all = ~0U;
    const texts lost_drawing{u"Area: Copy error Drawing\n"};
    const struct {
        uint32_t kinds, references, files, items;
        wide_string place; // of the drawing
        texts problems;
    } rows[] = {{1, 1'000'001, 1, 0, u"N:\\out\\claimed\\a.dxf", lost_drawing},
                {1, 0, all, 0, u"C:\\prj\\a.dxf", lost_drawing},
                {all, 0, 1, 0, u"N:\\out\\graphics\\a.dxf", {}},
                {1, 0, 1, all, u"N:\\out\\claimed\\a.dxf", {u"Layouts: Copy error boundless\n"}}};
    offer<entity_service, resave_entity_service_impl>();
    offer<boundless_service, resave_service_impl>();
    for (const auto& row : rows) {
        wish = {-1, true, u"graph_lr2d", row.kinds, row.references, row.files, row.items};
        run_anew();
        EXPECT_TRUE(context->report.saved);
        EXPECT_EQ(row.problems, problems);
        EXPECT_EQ(row.place, copied(0).file);
    }
}

TEST_F(foreign_services, a_service_that_answers_nonsense_ends_in_a_report) {
    offer<nonsense_entity_service, resave_entity_service_impl>();
    for (const bool copy_fails : {true, false}) {
        wish = {-1, copy_fails, {}};
        run_anew();
        EXPECT_TRUE(context->report.saved);
        EXPECT_EQ(copy_fails ? texts{u"Area: Copy error a.dxf\n"} : texts{}, problems);
        EXPECT_TRUE(path_exists(u"C:\\prj\\a.dxf"));
        EXPECT_TRUE(copied(0).file.starts_with(u"N:\\out\\claimed\\a")) << platform::to_utf8(copied(0).file);
    }
}

} // namespace
} // namespace vs::project_resave
