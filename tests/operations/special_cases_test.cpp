// What a run does at the edges, where a person might expect something else.
#include "core/path_files.h"
#include "tests/support/host_fixture.h"
#include "tests/support/project_builder.h"

namespace vs::project_resave {
namespace {

using names = std::vector<wide_string>;

class special_cases : public host_fixture {
protected:
    vestra::project& resaved() {
        load_and_resave();
        copy = std::make_unique<vestra::project>();
        read_back(output, *copy);
        return *copy;
    }
    std::unique_ptr<vestra::project> copy;
};

TEST_F(special_cases, whatever_is_taken_out_as_lost_is_a_3d_layer_for_the_log) {
    settings.delete_lost_sources = settings.write_log = true;
    project_builder().table(u"T", u"C:\\gone.dbf").save(source);
    resaved();
    const std::string log = read(u"N:\\out\\new_log.txt");
    const size_t begin = log.find("Begin DBF tables");
    EXPECT_EQ("Begin DBF tables\r\nBegin T\r\nNo file \r\nC:\\gone.dbf\r\n \n\r\n    End T\r\n"
              "Missing in original project layer 3d has been deleted from the new project\r\n \n\r\n"
              "    End DBF tables\r\n",
              log.substr(begin, log.find("Project saved") - begin));
}

TEST_F(special_cases, of_two_tables_on_one_file_the_first_goes_on_joining_the_source) {
    const wide_string joined = write(u"C:\\data\\joined.dbf"), file = write(u"C:\\data\\t.dbf");
    project_builder().table(u"First", file).join(joined).table(u"Second", file).join(joined).save(source);
    const vestra::project& made = resaved(); // which is saved after the second
    const wide_string sources[] = {joined, u"N:\\out\\dbf\\joined.dbf"};
    for (uint32_t index = 0; index < 2; ++index) {
        EXPECT_EQ(u"N:\\out\\dbf\\t.dbf", made.tables.at(index)->file);
        ASSERT_EQ(1U, made.tables.at(index)->joins.size());
        EXPECT_EQ(sources[index], made.tables.at(index)->joins[0].other_source);
    }
}

TEST_F(special_cases, of_scenes_with_one_caption_the_last_gets_the_plain_folder_and_of_files_the_plain_name) {
    project_builder built;
    for (const wide_string place : {u"1", u"2", u"3"})
        built.scene_2d(u" Area ").layer("rtr_lr2d", u"L", write(u"C:\\data\\" + place + u"\\r.tif"));
    built.save(source);
    const struct {
        uint32_t structure;
        names becomes;
    } rows[] = {{folder_per_scene, {u"Area_2\\1\\r.tif", u"Area_1\\2\\r.tif", u"Area\\3\\r.tif"}},
                {by_type, {u"rtr\\r_(2).tif", u"rtr\\r_(1).tif", u"rtr\\r.tif"}}};
    for (const auto& row : rows) {
        settings.structure_variant = row.structure;
        const vestra::project& made = resaved();
        for (uint32_t index = 0; index < 3; ++index)
            EXPECT_EQ(u"N:\\out\\" + row.becomes[index], made.scenes_2d.at(index)->at(0)->file);
    }
}

TEST_F(special_cases, empty_groups_leave_with_an_unchecked_layer_of_a_2d_scene_alone) {
    const wide_string file = write(u"C:\\data\\r.tif");
    project_builder built;
    for (const bool is_flat : {true, false}) {
        if (is_flat)
            built.scene_2d(u"Flat");
        else
            built.scene_3d(u"Solid");
        const char* type = is_flat ? "rtr_lr2d" : "segy_lr3d";
        const wide_string mark = is_flat ? u"2" : u"3";
        built.layer(type, u"gone" + mark, u"C:\\gone.tif")
            .layer(type, u"kept" + mark, file)
            .layer(type, u"unchecked" + mark, file);
        vestra::scene& scene = is_flat ? *built.model.scenes_2d.at(0) : *built.model.scenes_3d.at(0);
        for (const auto& layer : scene.members())
            scene.make_groups().add_group(layer->caption).add_layer(*layer);
    }
    built.save(source);
    const struct {
        bool deletes_lost, deselects;
        names flat, solid;
    } rows[] = {
        {true, false, {u"gone2", u"kept2", u"unchecked2"}, {u"gone3", u"kept3", u"unchecked3"}},
        {false, true, {u"gone2", u"kept2"}, {u"gone3", u"kept3", u"unchecked3"}},
        {true, true, {u"kept2"}, {u"gone3", u"kept3", u"unchecked3"}},
    };
    const auto groups_of = [](const vestra::scene& scene) {
        names captions;
        for (uint32_t index = 0; index < scene.groups->count(); ++index)
            captions.push_back(scene.groups->at(index)->caption);
        return captions;
    };
    for (const auto& row : rows) {
        settings.delete_lost_sources = row.deletes_lost;
        load();
        for (const wide_string caption : {u"unchecked2", u"unchecked3"})
            context->units.at(built.id(caption))->set_selected(!row.deselects);
        resave();
        vestra::project made;
        read_back(output, made);
        EXPECT_EQ(3U - row.deletes_lost - row.deselects, made.scenes_2d.at(0)->count());
        EXPECT_EQ(row.flat, groups_of(*made.scenes_2d.at(0)));
        EXPECT_EQ(row.solid, groups_of(*made.scenes_3d.at(0)));
    }
}

} // namespace
} // namespace vs::project_resave
