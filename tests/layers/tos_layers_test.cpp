// TOS layers: the files of a complex model, and the style that a save carries over.
#include <map>

#include "layers/resave_tos_layers.h"
#include "reference_host/api/handles.h"
#include "tests/layers/layer_run.h"
#include "tests/support/forwarding_system.h"

namespace vs::project_resave {

namespace {

using vestra::api::to_handle;
using elements = std::map<size_t, wide_string>; // those that hold a text

constexpr const char* record_key = "BumpsSettings";

class tos_layers : public layer_run {
protected:
    tos_layers() {
        for (const wide_view name : {u"main", u"a", u"b", u"sub\\c"}) {
            const wide_string stem(name);
            disk.write(u"src\\" + stem + u".tos",
                       "TOS 1\nmember " + platform::to_utf8(path_file_name(name)) + ".tod\n");
            disk.write(u"src\\" + stem + u".tod");
        }
    }

    vestra::layer& add_tos(vestra::scene& scene, const elements& texts, size_t size = 70) {
        vestra::layer& layer = add(scene, "tos_grid_lr2d", src(u"main.tos"));
        vestra::tuple record;
        record.elements.resize(size);
        for (const auto& [place, text] : texts) record.elements[place].value = text;
        layer.extras.set(record_key).value = record;
        return layer;
    }
    static elements texts_of(vestra::layer& layer) {
        elements result;
        const auto& record = layer.extras.find(record_key)->as_tuple()->elements;
        EXPECT_EQ(record.size(), 70U);
        for (size_t place = 0; place < record.size(); ++place)
            if (const wide_string* text = record[place].as_text()) result[place] = *text;
        return result;
    }
    wide_string lost(int32_t text) const { return u"Lost files L. " + load_string(text) + u"\n"; }
};

} // namespace

TEST_F(tos_layers, files_of_a_complex_model_come_along_and_the_record_names_them_from_the_new_place) {
    const wide_string absolute = src(u"b.tos");
    const struct {
        elements before, after;
        wide_view copied; // names without extension, the main file too
        wide_string problems;
    } rows[] = {
        {{{9, u"a.tos"}, {15, absolute}, {44, u"sub\\c.tos"}, {39, u"a.tos"}, {1, u"not a file"}},
         {{9, u"a.tos"}, {15, u"b.tos"}, {44, u"c.tos"}, {39, u"a.tos"}, {1, u"not a file"}},
         u"a b c main",
         u""},
        // A row without a path does not count: the ones behind it are handled as earlier ones.
        {{{44, u"sub\\c.tos"}}, {{9, u"c.tos"}, {15, u""}, {39, u""}, {44, u"sub\\c.tos"}}, u"c main", u""},
        {{{44, u"gone.tos"}}, {{9, u""}, {15, u""}, {39, u""}, {44, u"gone.tos"}}, u"main", lost(523)},
        {{{15, u"a.tos"}, {39, u"gone.tos"}},
         {{9, u"a.tos"}, {15, u""}, {39, u"gone.tos"}, {44, u""}},
         u"a main",
         lost(524)},
        {{{9, u"gone.tos"}, {15, u"b.tos"}, {44, u"gone.tos"}, {39, u"main.tos"}},
         {{9, u""}, {15, u"b.tos"}, {44, u""}, {39, u"main.tos"}},
         u"b main",
         lost(523) + lost(525)},
        {{}, {{9, u""}, {15, u""}, {39, u""}, {44, u""}}, u"main", u""},
    };
    for (const auto& row : rows) {
        for (const size_t size : {size_t{70}, size_t{45}, size_t{90}}) {
            SCOPED_TRACE(testing::Message() << testing::PrintToString(row.before) << ' ' << size);
            clear_run();
            settings.delete_lost_sources = true; // a lost model file does not cost the layer
            add_tos(scene_2d(), row.before, size);
            resave();
            EXPECT_EQ(texts_of(layer_2d()), row.after);
            EXPECT_EQ(problems, row.problems);
            names expected;
            for (const wide_string& stem : path_split(row.copied, u" ", true))
                for (const wide_view extension : {u".tod", u".tos"})
                    expected.push_back(u"tos\\" + stem + wide_string(extension));
            EXPECT_EQ(copied(), expected);
        }
    }
}

TEST_F(tos_layers, without_a_new_name_model_files_and_maps_are_named_by_nothing) {
    disk.write(u"src\\a.tif");
    write_map(u"m._sn", u"a.tif");
    vestra::scene& scene = scene_2d();
    add_tos(scene, {{9, u"a.tos"}, {15, u"b.tos"}});
    add(scene, "vs_scene_layer_meta_id", src(u"m._sn"));
    settings.structure_variant = 7;
    settings.write_log = true;
    resave();
    EXPECT_EQ(texts_of(layer_2d()), (elements{{9, u""}, {15, u""}, {39, u""}, {44, u""}}));
    EXPECT_EQ(layer_2d(1).file, u"");
    EXPECT_EQ(copied(), names{u"new_log.txt"});
    size_t lines = 0;
    const std::string log = disk.read(u"out\\new_log.txt"),
                      told = platform::to_utf8(load_string(603)) + "\r\n\r\n";
    for (size_t at = log.find(told); at != std::string::npos; at = log.find(told, at + 1)) ++lines;
    EXPECT_EQ(lines, 5U) << "the grid, its two model files, the map and the raster in it";
}

TEST_F(tos_layers, what_is_no_record_becomes_an_empty_one_and_other_keys_are_left_alone) {
    vestra::scene& scene = scene_2d();
    add(scene, "tos_grid_lr2d", src(u"main.tos")).extras.set(record_key).value = wide_string(u"a.tos");
    add(scene, "tos_grid_lr2d", src(u"main.tos")).extras.set("bumpssettings").value = wide_string(u"a.tos");
    resave();
    EXPECT_EQ(texts_of(layer_2d(0)), (elements{{9, u""}, {15, u""}, {39, u""}, {44, u""}}));
    EXPECT_EQ(*layer_2d(1).extras.find("bumpssettings")->as_text(), u"a.tos");
}

TEST_F(tos_layers, layers_that_share_a_model_file_name_one_copy_each_from_its_own_place) {
    vestra::scene& scene = scene_2d();
    add_tos(scene, {{9, u"sub\\c.tos"}});
    add_tos(scene, {{9, u"..\\main.tos"}}).file = src(u"sub\\c.tos"); // saved first
    vestra::layer& cutline = add_tos(scene, {{9, u"a.tos"}});
    cutline.meta_id = "grid_cutline_lr2d";
    cutline.file = u"*" + cutline.file;
    settings.structure_variant = from_project_folder;
    resave();
    EXPECT_EQ(copied(), (names{u"a.tod", u"a.tos", u"main.tod", u"main.tos", u"sub\\c.tod", u"sub\\c.tos"}));
    EXPECT_EQ(texts_of(layer_2d(0))[9], u"sub\\c.tos");
    EXPECT_EQ(texts_of(layer_2d(1))[9], u"..\\main.tos");
    EXPECT_EQ(texts_of(layer_2d(2))[9], out(u"a.tos")); // a marked reference is no folder to start from
}

TEST_F(tos_layers, with_a_folder_for_each_scene_each_has_the_model_files_it_names) {
    add_tos(scene_2d(), {{9, u"a.tos"}, {15, u"..\\src\\main.tos"}});
    vestra::scene& other = scene_2d();
    other.caption = u"T";
    add_tos(other, {{44, u"a.tos"}}).file = src(u"sub\\c.tos"); // which is in no folder of the model file
    add_tos(other, {{9, u"sub\\c.tos"}});
    settings.structure_variant = folder_per_scene;
    resave();
    EXPECT_EQ(copied(), (names{u"S\\src\\a.tod", u"S\\src\\a.tos", u"S\\src\\main.tod", u"S\\src\\main.tos",
                               u"T\\src\\main.tod", u"T\\src\\main.tos", u"T\\src\\sub\\c.tod",
                               u"T\\src\\sub\\c.tos"}));
    EXPECT_EQ(texts_of(layer_2d())[9], u"a.tos");
    EXPECT_EQ(texts_of(layer_2d())[15], u"main.tos");
    EXPECT_EQ(texts_of(*copy->scenes_2d.at(1)->at(1))[9], u"sub\\c.tos");
    EXPECT_EQ(problems, lost(523)); // there is no sub\\a.tos
}

TEST_F(tos_layers, a_model_file_that_is_not_copied_is_named_in_its_new_place_and_a_lost_one_takes_a_step) {
    struct : forwarding_system {
        bool copy_file(const wide_string& from, const wide_string& to, bool replace) override {
            return !from.ends_with(u"a.tod") && forwarding_system::copy_file(from, to, replace);
        }
    } faults;
    for (const bool is_lost : {false, true}) {
        clear_run();
        vestra::scene& scene = scene_2d();
        add(scene, "wms_lr2d", u""); // counted, but makes no step
        add(scene, "wms_lr2d", u"");
        add_tos(scene, {{9, u"a.tos"}, {15, is_lost ? u"gone.tos" : u"b.tos"}});
        const platform::system_override in_force(faults);
        resave();
        EXPECT_EQ(texts_of(layer_2d(2))[9], u"a.tos");
        EXPECT_EQ(problems, u"Copy error a.tod\n" + (is_lost ? lost(524) : u""));
        EXPECT_EQ(front_end.total, 3U);
        EXPECT_EQ(front_end.current, is_lost ? 2U : 1U);
    }
}

TEST_F(tos_layers, files_count_for_the_size_up_to_the_first_model_file_that_does_not_open) {
    vestra::layer& layer = add_tos(scene_2d(), {{9, u"a.tos"}, {15, u"gone.tos"}, {44, u"b.tos"}});
    project_context context(nullptr);
    Tvs_resave_tos_lr2d unit(to_handle<vs_lr>(&layer), context);
    unit.build_once();
    names files;
    unit.collect_source_files(files);
    EXPECT_EQ(files, (names{src(u"main.tos"), src(u"main.tod"), src(u"a.tos"), src(u"a.tod")}));
    common_directory common;
    unit.collect_common_directory(common);
    EXPECT_EQ(common.drives[path_root(src(u""))].counted,
              7U); // three model files and four that stand there
    EXPECT_TRUE(platform::current_system().delete_file(src(u"main.tos")));
    unit.collect_source_files(files);
    EXPECT_TRUE(files.empty());
}

TEST_F(tos_layers, the_style_of_a_one_dimensional_grid_alone_survives_a_save) {
    for (const bool kept : {true, false}) {
        const wide_string expected = kept ? u"red" : u"blue";
        vestra::layer& layer = add(scene_2d(), kept ? "tos_grid_lr1d" : "tos_grid_lr2d", src(u"main.tos"));
        layer.style = std::make_unique<vestra::style_manager>("curve");
        layer.style->values = {{u"colour", u"red", {}}};
        layer.styles = std::make_unique<vestra::style_manager_list>("curves");
        layer.styles->managers.push_back(*layer.style);
        project_context context(nullptr);
        Tvs_resave_tos_lr2d unit(to_handle<vs_lr>(&layer), context);
        unit.before_save();
        layer.style->values[0].text = u"blue";
        layer.styles->managers[0].values[0].text = u"blue";
        unit.after_save(false);
        EXPECT_EQ(layer.style->values[0].text, expected);
        EXPECT_EQ(layer.styles->managers[0].values[0].text, expected);
        unit.before_save();
        layer.style.reset(); // the copies go with the unit, or with a save that finds no style
        unit.after_save(true);
        unit.before_save();
    }
}

} // namespace vs::project_resave
