// Services of the test itself: for the order of claims, and for misbehaviour.
#include <stdexcept>

#include "framework/border/string_adapter.h"
#include "host/vsk_basic.h"
#include "host/vsk_entity.h"
#include "host/vsk_lr.h"
#include "host/vsk_prj.h"
#include "host/vsk_scn_2d.h"
#include "host/vsk_scn_3d.h"
#include "platform/system.h"
#include "services/entity_factory.h"
#include "tests/services/services_run.h"

namespace vs::project_resave {
namespace {

// What the services of the next run do; a class of the bundle can only be built with its context.
struct wishes {
    int32_t priority = -1;
    bool accepts = true;
    wide_string meta_id = u"graph_lr2d";
    uint32_t kinds = 1, references = 0, files = 1, items = 0;
    bool throws = false;
    // The answers contradict each other, refer to missing files, or are missing.
    bool nonsense = false, copies = true;
    wide_string also = {}; // listed as a copy of itself, even if the service did not make it
    bool swaps = false;    // lists its sources as the copies
    wide_string folder = u"claimed";
} wish;

void throw_if_wished() {
    if (wish.throws) throw std::runtime_error("a fault of the bundle");
}

bool is_layer(vs_entity* entity) { return vs_lr_safe_downcast(entity) != nullptr; }

class entity_service : public referent<resave_entity_service_impl> {
public:
    explicit entity_service(const bundle_context&) {}
    uint32_t meta_id_count() override { return wish.kinds; }
    void meta_id(uint32_t index, string_visitor visitor) override {
        if (wish.nonsense && index == 0) return call<&string_visitor_impl::visit>(visitor, nullptr);
        tell(visitor, wish.meta_id);
    }
    int32_t priority() override { return wish.priority; }
    bool accepts(vs_entity*) override { return wish.accepts; }
    uint32_t reference_count(vs_entity*) override {
        throw_if_wished();
        return wish.references;
    }
    void reference_uuid(vs_entity*, uint32_t, vs_uuid*) override {}
    uint32_t file_count(vs_entity*) override { return wish.nonsense ? ++counts_ * 3 : wish.files; }
    void file_info(vs_entity* entity, uint32_t index, string_visitor source, string_visitor folder) override {
        if (wish.nonsense && index == 0) call<&string_visitor_impl::visit>(source, nullptr);
        if (wish.nonsense && index != 1) return;
        tell(source, is_layer(entity) ? host_string(&vs_lr_get_wfilename, vs_lr_safe_downcast(entity))
                                      : host_string(&vs_scn_2d_get_source, vs_scn_2d_safe_downcast(entity)));
        tell(folder, wish.folder);
    }
    void set_file(vs_entity* entity, uint32_t, const char16_t* path) override {
        throw_if_wished();
        if (is_layer(entity))
            vs_lr_set_wfilename(vs_lr_safe_downcast(entity), path);
        else
            vs_scn_2d_set_source(vs_scn_2d_safe_downcast(entity), path);
    }
    bool copy_files(vs_entity*, uint32_t, const char16_t* source, const char16_t* target,
                    vs_wstrings* sources, vs_wstrings* targets) override {
        throw_if_wished();
        vs_wstrings_add(sources, source);
        vs_wstrings_add(targets, wish.nonsense ? u"" : wish.swaps ? source : target);
        for (vs_wstrings* list : {sources, targets})
            if (!wish.also.empty()) vs_wstrings_add(list, wish.also.c_str());
        for (int i = 0; wish.nonsense && i < 2; ++i) vs_wstrings_add(sources, source);
        if (wish.nonsense) return wish.copies;
        return bool(platform::current_system().copy_file(source, target, false)) && wish.copies;
    }
    bool all_files(vs_entity*, vs_wstrings*) override {
        throw_if_wished();
        return false;
    }

private:
    uint32_t counts_ = 0;
};

class foreign_services : public services_run {
protected:
    foreign_services() {
        wish = {};
        builder.scene_2d(u"Area").layer("graph_lr2d", u"Drawing", write(u"C:\\prj\\a.dxf"));
        builder.layer("rtr_lr2d", u"Relief", write(u"C:\\prj\\b.tif"));
    }
    // Checks where the layers are after a run.
    void expect_layers(const std::string& drawing, const std::string& relief) const {
        EXPECT_EQ("Area: Drawing=" + drawing + "\\a.dxf Relief=" + relief + "\\b.tif\n", outline());
        EXPECT_TRUE(context->report.saved);
    }
};

TEST_F(foreign_services, the_claim_with_the_lowest_priority_wins_then_the_resave) {
    offer<entity_service, resave_entity_service_impl>();
    const struct {
        int32_t priority;
        bool accepts;
        wide_string type;
        std::string drawing, relief;
    } rows[] = {{-1, true, u"graph_lr2d", "claimed", "rtr"},
                {-1, false, u"graph_lr2d", "graphics", "rtr"},
                {0, true, u"graph_lr2d", "graphics", "rtr"},
                {5, true, u"rtr_lr2d", "graphics", "claimed"}};
    for (const auto& row : rows) {
        wish = {.priority = row.priority, .accepts = row.accepts, .meta_id = row.type};
        run_anew();
        expect_layers(row.drawing, row.relief);
        EXPECT_EQ(2U, files().size());
    }
}

TEST_F(foreign_services, a_claim_counts_in_scenes_sheets_and_layouts_not_in_legends) {
    offer<entity_service, resave_entity_service_impl>();
    builder.clear();
    builder.scene_2d(u"Flat").layer("rtr_lr2d", u"A", write(u"C:\\prj\\1.tif")).scene_3d(u"Solid");
    builder.layer("segy_lr3d", u"B", write(u"C:\\prj\\2.sgy"));
    builder.sheet(vestra::well_sheets_meta_id, u"C", write(u"C:\\prj\\3.wsh")).layout(u"Sheet");
    builder.layer("layout_image", u"D", write(u"C:\\prj\\4.tif"));
    builder.layer("layout_scene_frame", u"E", write(u"C:\\prj\\5.tif"));
    builder.legend(u"Signs", {{"rtr_lr2d", u"F", write(u"C:\\prj\\6.tif")}});
    const std::pair<wide_string, std::string> rows[] = {{u"rtr_lr2d", "rtr\\1"},
                                                        {u"segy_lr3d", "sgy\\2"},
                                                        {u"Scene2DMetaID", "well\\3"},
                                                        {u"layout_image", "rtr\\4"},
                                                        {u"layout_scene_frame", "C:\\prj\\5"}};
    for (const auto& [meta_id, place] : rows) {
        wish.meta_id = meta_id;
        run_anew();
        std::string expected =
            "Flat: A=rtr\\1.tif\nSolid: B=sgy\\2.sgy\nSheet: D=rtr\\4.tif E=C:\\prj\\5.tif "
            "Signs{Signs: F=legend plus\\6.tif}\nC: well\\3.wsh\n";
        expected.replace(expected.find(place), place.size() - 1, "claimed\\");
        EXPECT_EQ(expected, outline());
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

TEST_F(foreign_services, each_file_of_an_element_gets_a_place_and_keeps_one_found) {
    offer<row_service, resave_entity_service_impl>();
    settings.delete_lost_sources = true;
    const wide_string found = u"C:\\prj\\a.dxf", lost = u"C:\\prj\\gone.dxf", place = u"N:\\out\\claimed";
    const texts lost_drawing{u"Area: Lost files Drawing\n"};
    const struct {
        texts rows, told, problems;
        uint32_t left = 2; // elements
    } rows[] = {{{lost, u"", found}, {u"2 " + place + u"2\\a.dxf"}, lost_drawing},
                {{found, found}, {u"0 " + place + u"0\\a.dxf", u"1 " + place + u"0\\a.dxf"}, {}},
                {{lost, u""}, {}, lost_drawing, 1},
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

TEST_F(foreign_services, an_element_has_its_file_near_the_project_in_each_structure) {
    offer<entity_service, resave_entity_service_impl>();
    write(u"C:\\prj\\w.wsh");
    builder.model.scenes_2d.at(0)->remove(1);
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
        wish.meta_id = row.meta_id;
        settings.structure_variant = static_cast<project_resave::structure>(row.structure);
        run_anew();
        EXPECT_EQ(row.files, files());
        EXPECT_EQ(texts{}, problems);
    }
    EXPECT_EQ("Well: 1: claimed\\w.wsh\n", scene_outline(u"N:\\out\\Well_ 1._sn")) << "as after the resave";
    // No scene of a project is claimed today, but the host may offer one.
    wish = {.meta_id = u"Scene3DMetaID", .files = 0};
    builder.scene_3d(u"Solid").save(source);
    start(false);
    load();
    context->options.save_scene_files = true;
    context->placement.new_project_path = output;
    vs_scn_3d* const solid = vs_scns_3d_get(vs_prj_get_scns_3d_ptr(context->project), 0);
    entity_factory().make(*context, vs_entities_safe_upcast(vs_scn_3d_safe_upcast(solid)))->save();
    EXPECT_TRUE(path_exists(out(u"Solid._sc")));
}

class list_service final : public referent<resave_service_impl> {
public:
    explicit list_service(const bundle_context&) {}
    void set_project(vs_prj*) override { throw_if_wished(); }
    void caption(string_visitor visitor) override {
        throw_if_wished();
        tell(visitor, u"boundless");
    }
    vs_uuid* item_uuid(uint32_t) override { throw std::bad_alloc(); }
    void item_files(uint32_t, vs_wstrings*) override { throw std::bad_alloc(); }
    void set_item_source(uint32_t, const char16_t*) override { throw std::bad_alloc(); }
    void item_source(uint32_t, string_visitor) override { throw std::bad_alloc(); }
    void remove_item(uint32_t) override { throw std::bad_alloc(); }
    uint32_t item_count() override {
        if (++counts_ % 2 == 0) throw_if_wished();
        return wish.items;
    }

private:
    int counts_ = 0;
};

TEST_F(foreign_services, one_that_throws_or_returns_nonsense_loses_only_its_own_part) {
    constexpr uint32_t all = ~0U;
    const texts lost_drawing{u"Area: Copy error Drawing\n"}, lost_file{u"Area: Copy error a.dxf\n"};
    const struct {
        wishes wanted;
        std::string drawing;
        texts problems;
    } rows[] = {{{.references = 1'000'001}, "claimed", lost_drawing},
                {{.files = all}, "C:\\prj", lost_drawing},
                {{.kinds = all}, "graphics", {}},
                {{.folder = u"..\\C:"}, "__\\C_", {}},
                {{.items = all}, "claimed", {u"Layouts: Copy error boundless\n"}},
                {{.items = 3, .throws = true},
                 "C:\\prj",
                 {u"Area: Copy error Drawing\nCopy error a.dxf\n", u"Layouts: Copy error \n"}},
                {{.kinds = 3, .references = 4, .nonsense = true, .copies = false}, "claimed", lost_file},
                {{.kinds = 3, .references = 4, .nonsense = true}, "claimed", {}}};
    offer<entity_service, resave_entity_service_impl>();
    offer<list_service, resave_service_impl>();
    for (const auto& row : rows) {
        wish = row.wanted;
        run_anew();
        EXPECT_EQ(row.problems, problems);
        expect_layers(row.drawing, "rtr");
    }
    EXPECT_NE("", read(u"C:\\prj\\a.dxf"));
}

class moody_service final : public referent<resave_service_impl> {
public:
    explicit moody_service(const bundle_context&) { throw_if_wished(); }
};

class older_service_impl : public interface_of<older_service_impl> {
public:
    static constexpr const char* name = "vs_resave_service_interface_4";
    using operations = operation_list<>;

protected:
    ~older_service_impl() = default;
};
class older_service final : public referent<older_service_impl> {
public:
    explicit older_service(const bundle_context&) {}
};

TEST_F(foreign_services, a_bundle_with_a_service_that_cannot_be_used_is_reported) {
    const auto reason = [this](bool throws) {
        wish.throws = throws;
        loader.unload_all();
        start(false);
        const auto error = loader.find_fault(u"vestra/resave_project", true);
        return error ? error->reason : wide_string();
    };
    offer<moody_service, resave_service_impl>();
    EXPECT_EQ(u"one of its services could not be started", reason(true));
    EXPECT_EQ(u"", reason(false));
    offer<older_service, older_service_impl>();
    EXPECT_EQ(u"one of its services has a version that this program does not know", reason(false));
}

TEST_F(foreign_services, what_a_bundle_found_there_outlives_its_failure_and_a_stop) {
    offer<entity_service, resave_entity_service_impl>();
    const wide_string is_outside = u": it is outside the new project's folder", own = write(src(u"own.txt"));
    const std::pair<wishes, texts> rows[] = {
        {{.copies = false, .also = out(u"claimed\\old.txt")},
         {out(u"claimed\\old.txt: it was there before the bundle copied")}},
        {{.copies = false, .also = u"C:\\prj\\b.tif", .swaps = true},
         {src(u"a.dxf") + is_outside, src(u"b.tif") + is_outside}},
    };
    for (const auto& [wanted, kept] : rows) {
        wish = wanted;
        run_anew();
        clear_output();
        write(out(u"claimed\\old.txt"), "of somebody");
        load();
        resave();
        texts told;
        for (const fact& each : context->report.facts())
            if (each.kind == fact_kind::not_erased) told.push_back(each.new_path + u": " + each.reason);
        EXPECT_EQ(kept, told);
        EXPECT_EQ("of somebody", read(out(u"claimed\\old.txt")));
        EXPECT_FALSE(path_exists(out(u"claimed\\a.dxf")) && !wanted.swaps);
    }
    for (const wide_string& path : {out(u"claimed\\old.txt"), own}) {
        wish = {.also = path};
        script.stop_at_poll = 0;
        load_and_resave();
        load();
        script.stop_at_poll = script.polls - 1;
        script.answers = {answer::yes, answer::no};
        resave();
        EXPECT_TRUE(context->report.stopped);
        EXPECT_NE("", read(path)) << "which the user would lose";
        EXPECT_EQ("of somebody", read(out(u"claimed\\old.txt")));
        EXPECT_FALSE(read(src(u"a.dxf")).empty() || read(src(u"b.tif")).empty());
    }
}

} // namespace
} // namespace vs::project_resave
