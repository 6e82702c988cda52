// Services that a test offers itself: for the order among claims, and to misbehave.
#include <stdexcept>

#include "framework/string_adapter.h"
#include "host/vsk_basic.h"
#include "host/vsk_lr.h"
#include "platform/system.h"
#include "tests/services/services_run.h"

namespace vs::project_resave {
namespace {

// What the next service does; a bundle's class can only be built with its context.
struct {
    int32_t priority = 0;
    bool accepts = true;
    wide_string meta_id = u"graph_lr2d";
} wish;

class entity_service : public referent<resave_entity_service_impl> {
public:
    explicit entity_service(const bundle_context&) {}
    uint32_t meta_id_count() override { return 1; }
    void meta_id(uint32_t, string_visitor visitor) override { tell(visitor, wish.meta_id); }
    int32_t priority() override { return wish.priority; }
    bool accepts(vs_entity*) override { return wish.accepts; }
    uint32_t reference_count(vs_entity*) override { return 0; }
    void reference_uuid(vs_entity*, uint32_t, vs_uuid*) override {}
    uint32_t file_count(vs_entity*) override { return 1; }
    void file_info(vs_entity* entity, uint32_t, string_visitor source, string_visitor folder) override {
        tell(source, host_string(&vs_lr_get_wfilename, vs_lr_safe_downcast(entity)));
        tell(folder, u"claimed");
    }
    void set_file(vs_entity* entity, uint32_t, const char16_t* path) override {
        vs_lr_set_wfilename(vs_lr_safe_downcast(entity), path);
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
    } rows[] = {{-1, true, "graph_lr2d", u"claimed"}, {-1, false, "graph_lr2d", u"graphics"},
                {0, true, "graph_lr2d", u"graphics"}, {1, true, "graph_lr2d", u"graphics"},
                {5, true, "rtr_lr2d", u"claimed"},    {5, false, "rtr_lr2d", u"rtr"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.priority);
        wish = {row.priority, row.accepts, wide_string(row.type, row.type + std::strlen(row.type))};
        clear_output();
        builder.model.scenes_2d.at(0)->remove(0);
        builder.layer(row.type, u"Drawing", u"C:\\prj\\a.dxf");
        loader.unload_all();
        start(false);
        run();
        EXPECT_EQ(u"N:\\out\\" + row.folder + u"\\a.dxf", copied(0).file);
        EXPECT_TRUE(path_exists(copied(0).file));
    }
}

TEST_F(foreign_services,
       of_three_map_legends_the_first_and_the_third_are_left_when_the_middle_one_is_unticked) {
    for (const wide_string caption : {u"Geology", u"Soils", u"Water"}) {
        vestra::map_legend& legend = builder.model.map_legends.make();
        legend.caption = caption;
        legend.id = *vestra::uuid::parse(builder.id(caption));
    }
    start(false);
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
    void progress_caption(string_visitor) override { fail(); }
    vs_uuid* item_uuid(uint32_t) override { fail(); }
    void item_files(uint32_t, vs_wstrings*) override { fail(); }
    void default_folder(string_visitor) override { fail(); }
    void item_source(uint32_t, string_visitor) override { fail(); }
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
class nonsense_service final : public referent<resave_service_impl> {
public:
    explicit nonsense_service(const bundle_context&) : empty(vs_uuid_create()) {}
    ~nonsense_service() override { vs_uuid_destroy(empty); }
    void caption(string_visitor visitor) override { tell_null(visitor); }
    void progress_caption(string_visitor visitor) override { tell_null(visitor); }
    bool shows_in_selection() override { return true; }
    vs_uuid* item_uuid(uint32_t index) override { return index % 2 == 0 ? nullptr : empty; }
    void item_files(uint32_t, vs_wstrings* files) override {
        for (const char16_t* file : {u"", u"::", u"nowhere", u"Q:\\gone\\a.txt"})
            vs_wstrings_add(files, file);
        vs_wstrings_add(files, nullptr);
    }
    void default_folder(string_visitor visitor) override { tell_null(visitor); }
    void item_source(uint32_t index, string_visitor visitor) override {
        if (index == 0) tell_null(visitor);
        if (index > 0) tell(visitor, index == 1 ? u"<>|" : u"C:\\prj\\a.dxf");
    }
    uint32_t item_count() override { return ++counts % 3 == 0 ? 0 : counts; }

private:
    static void tell_null(const string_visitor& visitor) {
        call<&string_visitor_impl::visit>(visitor, nullptr);
    }
    vs_uuid* empty;
    uint32_t counts = 0;
};

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

TEST_F(foreign_services, a_service_that_answers_nonsense_ends_in_a_report) {
    for (const bool copy_fails : {true, false}) {
        wish = {-1, copy_fails, {}};
        offer<nonsense_service, resave_service_impl>();
        offer<nonsense_entity_service, resave_entity_service_impl>();
        start(false);
        run();
        EXPECT_TRUE(context->report.saved);
        EXPECT_EQ(copy_fails, problems.front() == u"Area: Copy error a.dxf\n");
        EXPECT_TRUE(path_exists(u"C:\\prj\\a.dxf"));
        EXPECT_TRUE(copied(0).file.starts_with(u"N:\\out\\claimed\\a")) << platform::to_utf8(copied(0).file);
        context->resave_project(settings); // nothing is loaded: told, and nothing done
        EXPECT_EQ(1U, errors().size());
        loader.unload_all();
    }
}

} // namespace
} // namespace vs::project_resave
