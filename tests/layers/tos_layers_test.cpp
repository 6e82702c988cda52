// TOS layers: the files of a complex model, and the style that a save keeps.
#include "core/data_source.h"
#include "layers/resave_tos_layers.h"
#include "reference_host/api/handles.h"
#include "tests/support/builder_run.h"

namespace vs::project_resave {

namespace {

using vestra::api::to_handle;
using elements = std::map<size_t, wide_string>; // those that hold a text

constexpr const char* record_key = "BumpsSettings";

class tos_layers : public builder_run {
protected:
    tos_layers() {
        for (const wide_view name : {u"main", u"a", u"b", u"sub\\c"}) {
            const wide_string stem(name);
            write(src(stem + u".tos"), "TOS 1\nmember " + platform::to_utf8(path_file_name(name)) + ".tod\n");
            write(src(stem + u".tod"));
        }
    }

    // Adds a layer to the scene that was begun last.
    vestra::layer& add_tos(const elements& texts, size_t size = 70, wide_view file = u"main.tos") {
        vestra::layer& layer = builder.layer("tos_grid_lr2d", u"L", src(file)).last();
        vestra::tuple record;
        record.elements.resize(size);
        for (const auto& [place, text] : texts) record.elements[place].value = text;
        layer.extras.set(record_key).value = record;
        return layer;
    }
    // Returns the texts of a layer of the new project.
    elements texts_of(uint32_t layer, uint32_t scene = 0) const {
        elements result;
        vestra::layer& shown = *copy->scenes_2d.at(scene)->at(layer);
        const auto& record = shown.extras.find(record_key)->as_tuple()->elements;
        EXPECT_EQ(record.size(), 70U);
        for (size_t place = 0; place < record.size(); ++place)
            if (const wide_string* text = record[place].as_text()) result[place] = *text;
        return result;
    }
    wide_string lost(int32_t text) const { return u"Lost files L. " + load_string(text) + u"\n"; }
};

} // namespace

TEST_F(tos_layers, files_of_a_complex_model_are_copied_and_referred_to) {
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
        // An element without a path does not count: the later ones move up.
        {{{44, u"sub\\c.tos"}}, {{9, u"c.tos"}, {15, u""}, {39, u""}, {44, u"sub\\c.tos"}}, u"c main", u""},
        {{{44, u"gone.tos"}},
         {{9, u""}, {15, u""}, {39, u""}, {44, u"gone.tos"}},
         u"main",
         lost(text::complex_model_structural_map)},
        {{{15, u"a.tos"}, {39, u"gone.tos"}},
         {{9, u"a.tos"}, {15, u""}, {39, u"gone.tos"}, {44, u""}},
         u"a main",
         lost(text::complex_model_depth_cube)},
        {{{9, u"gone.tos"}, {15, u"b.tos"}, {44, u"gone.tos"}, {39, u"main.tos"}},
         {{9, u""}, {15, u"b.tos"}, {44, u""}, {39, u"main.tos"}},
         u"b main",
         lost(text::complex_model_structural_map) + lost(text::complex_model_time_cube)},
        {{}, {{9, u""}, {15, u""}, {39, u""}, {44, u""}}, u"main", u""},
    };
    for (const auto& row : rows) {
        for (const size_t size : {size_t{70}, size_t{45}, size_t{90}}) {
            SCOPED_TRACE(testing::Message() << testing::PrintToString(row.before) << ' ' << size);
            clear_run();
            settings.delete_lost_sources = true; // the layer stays even if a model file is lost
            builder.scene_2d(u"S");
            add_tos(row.before, size);
            run();
            EXPECT_EQ(texts_of(0), row.after);
            EXPECT_EQ(problems, row.problems.empty() ? texts{} : texts{u"S: " + row.problems});
            std::vector<std::string> expected;
            for (const wide_string& stem : path_split(row.copied, u" ", true))
                for (const char* extension : {".tod", ".tos"})
                    expected.push_back("tos/" + platform::to_utf8(stem) + extension);
            EXPECT_EQ(files(), expected);
        }
    }
}

// The second pair finds the names taken by the first one.
TEST_F(tos_layers, renamed_sets_are_read_with_their_own_values) {
    texts sources;
    for (const wide_view folder : {u"1\\", u"2\\"}) {
        const std::string values = "of " + platform::to_utf8(folder);
        sources.push_back(write(src(folder) + u"model.tos", "TOS 1\nmember .tod\nmember .tos.idx\n"));
        write(src(folder) + u"model.tod", values);
        write(src(folder) + u"model.tos.idx", values);
        sources.push_back(write(src(folder) + u"g\\g.pgrid", "PGRID 1\nvalues .val\n"));
        write(src(folder) + u"g\\g.val", values);
    }
    builder.scene_2d(u"S");
    for (const wide_string& file : sources)
        builder.layer(file.ends_with(u".tos") ? "tos_grid_lr2d" : "grid_lr2d", u"L", file);
    run();
    std::set<wide_string> copies;
    for (uint32_t i = 0; i < sources.size(); ++i) {
        const wide_string copied = copy->scenes_2d.at(0)->at(i)->file;
        EXPECT_TRUE(copies.insert(copied).second);
        texts of_source, of_copy;
        ASSERT_TRUE(data_source_files(sources[i], of_source) && data_source_files(copied, of_copy));
        ASSERT_EQ(of_source.size(), of_copy.size()) << i;
        for (size_t member = 0; member < of_source.size(); ++member)
            EXPECT_EQ(read(of_source[member]), read(of_copy[member])) << platform::to_utf8(of_copy[member]);
        EXPECT_TRUE(i % 2 == 0 || of_copy.at(1) == path_replace_extension(copied, u".val"));
    }
}

TEST_F(tos_layers, layers_that_share_a_model_file_refer_to_one_copy) {
    builder.scene_2d(u"S");
    add_tos({{9, u"sub\\c.tos"}});
    add_tos({{9, u"..\\main.tos"}}, 70, u"sub\\c.tos"); // saved first
    vestra::layer& cutline = add_tos({{9, u"a.tos"}});
    cutline.meta_id = "grid_cutline_lr2d";
    cutline.file = u"*" + cutline.file;
    settings.structure_variant = from_project_folder;
    run();
    EXPECT_EQ("a.tod a.tos main.tod main.tos sub/c.tod sub/c.tos \nS: L=main.tos L=sub\\c.tos L=*main.tos\n",
              outcome());
    EXPECT_EQ(texts_of(0)[9], u"sub\\c.tos");
    EXPECT_EQ(texts_of(1)[9], u"..\\main.tos");
    EXPECT_EQ(texts_of(2)[9], out(u"a.tos")); // paths are not relative to a reference with a mark
}

TEST_F(tos_layers, with_a_folder_for_each_scene_each_has_its_model_files) {
    builder.scene_2d(u"S");
    add_tos({{9, u"a.tos"}, {15, u"..\\prj\\main.tos"}});
    builder.scene_2d(u"T");
    add_tos({{44, u"a.tos"}}, 70, u"sub\\c.tos"); // is not in the folder of the model file
    add_tos({{9, u"sub\\c.tos"}});
    settings.structure_variant = folder_per_scene;
    run();
    EXPECT_EQ("S/prj/a.tod S/prj/a.tos S/prj/main.tod S/prj/main.tos "
              "T/prj/main.tod T/prj/main.tos T/prj/sub/c.tod T/prj/sub/c.tos \n"
              "S: L=S\\prj\\main.tos\nT: L=T\\prj\\sub\\c.tos L=T\\prj\\main.tos\n"
              "!T: " +
                  platform::to_utf8(lost(text::complex_model_structural_map)), // there is no sub\\a.tos
              outcome());
    EXPECT_EQ(texts_of(0)[9] + texts_of(0)[15] + texts_of(1, 1)[9], u"a.tosmain.tossub\\c.tos");
}

TEST_F(tos_layers, a_model_file_that_is_not_copied_is_reported) {
    builder.scene_2d(u"S");
    add_tos({{9, u"a.tos"}, {15, u"gone.tos"}});
    write(out(u"tos\\a.tod"), "in the way");
    run();
    EXPECT_EQ(texts_of(0)[9], u"a.tos");
    EXPECT_EQ(problems, texts{u"S: Copy error a.tod\n" + lost(text::complex_model_depth_cube)});
}

TEST_F(tos_layers, the_style_of_a_one_dimensional_grid_alone_survives_a_save) {
    for (const bool kept : {true, false}) {
        const wide_string expected = kept ? u"red" : u"blue";
        vestra::layer& layer =
            builder.scene_2d(u"S").layer(kept ? "tos_grid_lr1d" : "tos_grid_lr2d", u"L").last();
        layer.style = std::make_unique<vestra::style_manager>("curve");
        layer.style->values = {{u"colour", u"red", {}}};
        layer.styles = std::make_unique<vestra::style_manager_list>("curves");
        layer.styles->managers.push_back(*layer.style);
        Tvs_resave_tos_lr2d unit(to_handle<vs_lr>(&layer), *context);
        unit.before_save();
        layer.style->values[0].text = layer.styles->managers[0].values[0].text = u"blue";
        unit.after_save(false);
        EXPECT_EQ(layer.style->values[0].text, expected);
        EXPECT_EQ(layer.styles->managers[0].values[0].text, expected);
        unit.before_save();
        layer.style.reset(); // the copies end with the unit, or with a save that finds no style
        unit.after_save(true);
        unit.before_save();
    }
}

} // namespace vs::project_resave
