// Whole runs over the files of the host: what was built comes back, wherever the folder stands by then.
#include <gtest/gtest.h>

#include "reference_host/files/files.h"
#include "tests/reference_host/memory_files.h"
#include "tests/support/temporary_folder.h"

namespace vestra::files {
namespace {

uuid id_of(unsigned number) {
    wide_string text = u"00000000-0000-0000-0000-000000000000";
    for (std::size_t place = text.size() - 1; number != 0; number /= 10)
        text[place--] = static_cast<char16_t>(u'0' + number % 10);
    return *uuid::parse(text);
}

template <class T>
T& named(T& object, unsigned number, wide_view caption) {
    object.id = id_of(number);
    object.caption = caption;
    return object;
}

style_manager red() {
    style_manager style("lines");
    style.values = {{u"pen", u"", {{u"colour", u"red", {}}, {u"width", u"2", {}}}}, {u"fill", u"none", {}}};
    return style;
}

void fill_layer(layer& wells, entity& parent) {
    wells.meta_id = "wells_of_ours";
    wells.file = u"C:\\prj\\data\\wells.shp";
    wells.source = u"C:\\prj\\data\\wells.shp|layer";
    wells.visible = false;
    wells.validity = three_state::no;
    wells.parent = entity_link(&parent);
    wells.data = std::make_unique<attr_data>();
    wells.data->file = u"C:\\prj\\data\\wells.dbf";
    wells.data->joins = {{u"D:\\gis\\owners.dbf", 2, -1}, {u"C:\\prj\\years.dbf", 0, 3}};
    tuple bumps;
    bumps.elements.resize(70);
    bumps.elements[9].value = wide_string(u"model\\base.tos");
    tuple inner;
    inner.elements.resize(2);
    inner.elements[1].value = -0.1;
    bumps.elements[44].value = inner;
    wells.extras.set("BumpsSettings").value = bumps;
    wells.extras.set("int").value = std::int32_t{-2147483647 - 1};
    wells.extras.set("bool").value = true;
    wells.extras.set("narrow \xCF").value = std::string("\xEF\xF0");
    wells.extras.set("nothing");
    wells.style = std::make_unique<style_manager>(red());
    wells.styles = std::make_unique<style_manager_list>("list");
    wells.styles->managers = {red(), style_manager("empty")};
}

// One of everything that a project can hold, at C:\prj\area._vp.
void fill(project& prj) {
    entity& block = named(prj.folders.make(folder_meta_id), 1, u"Block 7");
    entity& part = named(prj.folders.make("PartMetaID"), 2, u"North");
    part.parent = entity_link(&block);
    scene& map = named(prj.scenes_2d.make_scene(), 10, u" Area <1> & \"more\"\r\n\t\x1\u0416");
    map.validity = three_state::mixed;
    map.parent = entity_link(&part);
    layer& wells = named(map.make_layer("shp_pnt_lr2d"), 11, u"Wells");
    fill_layer(wells, map);
    layer& cut = named(map.make_layer("tos_grid_lr2d"), 12, u"Cut");
    cut.meta_id = cutline_meta_id;
    cut.file = u"*C:\\prj\\cut.tos";
    layer& link = named(map.make_layer("vector_lr2d"), 13, u"Link");
    link.file = u"*C:\\prj\\not a path";
    named(map.make_layer("prf_compound_lr2d"), 14, u"Profiles").members = {{id_of(11).text(), u"no uuid"}};
    map.make_layer("prf_compound_lr2d").members.emplace(); // without uuid and caption
    layer_group& geology = map.make_groups().add_group(u"Geology");
    geology.add_group(u"Empty");
    geology.add_layer(link);
    map.groups->add_layer(wells);

    scene& model = named(prj.scenes_3d.make_scene(), 20, u"Model");
    named(model.make_layer("segy_lr3d"), 21, u"Line").file = u"c:\\PRJ\\sgy\\";
    attr_data& table = named(prj.tables.make(), 30, u"Owners");
    table.file = u"D:\\gis\\owners.dbf";
    table.joins = {{u"C:\\prj\\years.dbf", 1, 1}};
    named(prj.tos_tables.make(), 31, u"Production").file = u"C:\\prj\\tos\\p.tos";

    scene& sheet = named(prj.layouts.make_scene(), 40, u"Sheet");
    named(sheet.make_layer("layout_scene_frame"), 41, u"Frame").frame.emplace(model);
    named(sheet.make_layer("layout_scene_frame"), 42, u"Gone").frame.emplace(id_of(99));
    named(sheet.make_layer("layout_image"), 43, u"Logo").file = u"C:\\prj\\logo.png";
    layer& legend = named(sheet.make_layer("vs_layout_legend_layer_meta_id"), 44, u"Legend");
    legend.legend = std::make_unique<scene>(dimension::flat);
    named(*legend.legend, 45, u"Signs").make_layer("rtr_lr2d").file = u"C:\\prj\\sign.tif";
    sheet.page = std::make_unique<layer>(dimension::flat, "layout_page");
    named(*sheet.page, 46, u"Page").file = u"C:\\prj\\page.xml";

    scene_collection& wells_sheets = named(prj.add_plugin_scenes(well_sheets_meta_id), 50, u"Well sheets");
    named(wells_sheets.make_scene(), 51, u"P-101").source = u"C:\\prj\\sheets\\P-101.wsh";
    named(prj.add_plugin_scenes("any_other"), 52, u"Other");
    named(prj.map_legends.make(), 60, u"Geology 1:50000");
}

class host_files : public testing::Test {
protected:
    ~host_files() override { EXPECT_EQ(living_objects(), before_); }
    const std::string& content(const wide_string& path) { return files_.content[path]; }

    std::size_t before_ = living_objects();
    memory_files files_;
    platform::system_override in_force_{files_};
};

void expect_wells(const layer& wells, const scene& map) {
    project made;
    scene& owner = made.scenes_2d.make_scene();
    layer& expected = named(owner.make_layer("shp_pnt_lr2d"), 11, u"Wells");
    fill_layer(expected, owner);
    EXPECT_EQ(wells.id, expected.id);
    EXPECT_EQ(wells.caption, expected.caption);
    EXPECT_EQ(wells.type, expected.type);
    EXPECT_EQ(wells.meta_id, expected.meta_id);
    EXPECT_EQ(wells.file, expected.file);
    EXPECT_EQ(wells.source, expected.source);
    EXPECT_FALSE(wells.visible);
    EXPECT_EQ(wells.validity, three_state::no);
    EXPECT_EQ(wells.parent.get(), &map);
    EXPECT_EQ(wells.data->file, expected.data->file);
    EXPECT_EQ(wells.data->joins, expected.data->joins);
    EXPECT_EQ(wells.extras.rows(), expected.extras.rows());
    EXPECT_EQ(wells.style->type, red().type);
    EXPECT_EQ(wells.style->values, red().values);
    ASSERT_EQ(wells.styles->managers.size(), 2U);
    EXPECT_EQ(wells.styles->type, "list");
    EXPECT_EQ(wells.styles->managers[0].values, red().values);
}

void expect_map(const scene& map, const project& prj) {
    EXPECT_EQ(map.caption, u" Area <1> & \"more\"\r\n\t\x1\u0416");
    EXPECT_EQ(map.validity, three_state::mixed);
    EXPECT_EQ(map.meta_id, scene_2d_meta_id);
    EXPECT_EQ(map.parent.get(), prj.folders.at(1));
    EXPECT_EQ(prj.folders.at(1)->parent.get(), prj.folders.at(0));
    ASSERT_EQ(map.count(), 5U);
    expect_wells(*map.at(0), map);
    EXPECT_EQ(map.at(1)->file, u"*C:\\prj\\cut.tos");
    EXPECT_EQ(map.at(2)->file, u"*C:\\prj\\not a path");
    EXPECT_EQ(map.at(2)->meta_id, "vector_lr2d");
    EXPECT_TRUE(map.at(2)->visible && !map.at(2)->data && !map.at(2)->style && !map.at(2)->members);
    EXPECT_EQ(*map.at(3)->members, (std::vector<wide_string>{id_of(11).text(), u"no uuid"}));
    EXPECT_TRUE(map.at(4)->members && map.at(4)->members->empty() && !map.at(4)->id.has_value());
    ASSERT_EQ(map.groups->count(), 2U);
    EXPECT_EQ(map.groups->at(0)->caption, u"Geology");
    EXPECT_TRUE(map.groups->at(0)->at(0)->is_group());
    EXPECT_EQ(map.groups->at(0)->at(1)->member(), map.at(2));
    EXPECT_EQ(map.groups->at(1)->member(), map.at(0));
}

void expect_layout(const scene& sheet, scene* model) {
    ASSERT_EQ(sheet.count(), 4U);
    EXPECT_EQ(sheet.at(0)->frame->get(), model);
    EXPECT_EQ(sheet.at(1)->frame->get(), nullptr);
    EXPECT_EQ(sheet.at(1)->frame->id, id_of(99));
    EXPECT_EQ(sheet.at(2)->file, u"C:\\prj\\logo.png");
    EXPECT_EQ(sheet.at(3)->legend->caption, u"Signs");
    EXPECT_EQ(sheet.at(3)->legend->at(0)->file, u"C:\\prj\\sign.tif");
    EXPECT_EQ(sheet.page->file, u"C:\\prj\\page.xml");
}

TEST_F(host_files, a_project_of_everything_comes_back_and_is_written_the_same_again) {
    {
        project prj;
        fill(prj);
        ASSERT_FALSE(write_project(u"C:\\prj\\area._vp", prj));
    }
    project read;
    const auto error = read_project(u"C:\\prj\\area._vp", read);
    ASSERT_FALSE(error) << platform::to_utf8(error->text());
    EXPECT_EQ(read.file, u"C:\\prj\\area._vp");
    EXPECT_EQ(read.folders.at(1)->meta_id, "PartMetaID");
    expect_map(*read.scenes_2d.at(0), read);
    EXPECT_EQ(read.scenes_2d.meta_id, "Scene2DCollectionMetaID");
    EXPECT_EQ(read.scenes_2d.id, project().scenes_2d.id);
    EXPECT_EQ(read.scenes_3d.at(0)->meta_id, scene_3d_meta_id);
    EXPECT_EQ(read.scenes_3d.at(0)->at(0)->kind, dimension::solid);
    EXPECT_EQ(read.scenes_3d.at(0)->at(0)->file, u"C:\\prj\\sgy\\") << "the folder takes the file's spelling";
    EXPECT_EQ(read.tables.at(0)->file, u"D:\\gis\\owners.dbf");
    EXPECT_EQ(read.tables.at(0)->joins, (std::vector<table_join>{{u"C:\\prj\\years.dbf", 1, 1}}));
    EXPECT_EQ(read.tos_tables.at(0)->file, u"C:\\prj\\tos\\p.tos");
    expect_layout(*read.layouts.at(0), read.scenes_3d.at(0));
    ASSERT_EQ(read.plugin_scenes.size(), 2U);
    EXPECT_EQ(read.plugin_scenes[0]->meta_id, well_sheets_meta_id);
    EXPECT_EQ(read.plugin_scenes[0]->at(0)->source, u"C:\\prj\\sheets\\P-101.wsh");
    EXPECT_EQ(read.plugin_scenes[1]->meta_id, "any_other");
    EXPECT_EQ(read.map_legends.at(0)->caption, u"Geology 1:50000");
    EXPECT_EQ(read.map_legends.at(0)->id, id_of(60));

    const std::string first = content(u"C:\\prj\\area._vp");
    ASSERT_FALSE(write_project(u"C:\\prj\\area._vp", read));
    EXPECT_EQ(content(u"C:\\prj\\area._vp"), first);
    EXPECT_EQ(files_.content.size(), 1U) << "nothing is left beside it";
}

TEST_F(host_files, a_project_that_was_moved_refers_to_what_was_moved_with_it) {
    project prj;
    fill(prj);
    ASSERT_FALSE(write_project(u"C:\\prj\\area._vp", prj));
    files_.content[u"E:\\new home\\area._vp"] = content(u"C:\\prj\\area._vp");
    ASSERT_FALSE(read_project(u"E:\\new home\\area._vp", prj));
    const scene& map = *prj.scenes_2d.at(0);
    EXPECT_EQ(map.at(0)->file, u"E:\\new home\\data\\wells.shp");
    EXPECT_EQ(map.at(0)->data->file, u"E:\\new home\\data\\wells.dbf");
    EXPECT_EQ(map.at(0)->data->joins[0].other_source, u"D:\\gis\\owners.dbf");
    EXPECT_EQ(map.at(0)->data->joins[1].other_source, u"E:\\new home\\years.dbf");
    EXPECT_EQ(map.at(1)->file, u"*E:\\new home\\cut.tos");
    EXPECT_EQ(map.at(2)->file, u"*C:\\prj\\not a path");
    EXPECT_EQ(prj.layouts.at(0)->page->file, u"E:\\new home\\page.xml");
    EXPECT_EQ(prj.plugin_scenes[0]->at(0)->source, u"E:\\new home\\sheets\\P-101.wsh");
}

TEST_F(host_files, scene_and_layer_files_stand_alone) {
    project prj;
    fill(prj);
    const scene& map = *prj.scenes_2d.at(0);
    ASSERT_FALSE(write_scene(u"C:\\prj\\map._sn", map));
    scene read(dimension::flat);
    ASSERT_FALSE(read_scene(u"C:\\prj\\map._sn", read));
    EXPECT_FALSE(read.parent) << "it is not in the file";
    EXPECT_EQ(read.groups->at(1)->member(), read.at(0));
    expect_wells(*read.at(0), read);

    for (const layer* in : {map.at(0), prj.scenes_3d.at(0)->at(0)}) {
        ASSERT_FALSE(write_layer(u"C:\\prj\\one._lr", *in));
        std::unique_ptr<layer> out;
        ASSERT_FALSE(read_layer(u"C:\\prj\\one._lr", in->kind, out));
        EXPECT_EQ(out->id, in->id);
        EXPECT_EQ(out->extras.rows(), in->extras.rows());
    }
}

TEST_F(host_files, a_failed_write_leaves_the_old_file_and_nothing_else) {
    files_.content[u"C:\\prj\\area._vp"] = "old";
    files_.content[u"C:\\prj\\area._vp.new1"] = "of somebody else";
    const auto before = files_.content;
    project prj;
    fill(prj);
    for (bool memory_files::*fault : {&memory_files::disk_full, &memory_files::rename_fails}) {
        files_.*fault = true;
        const auto error = write_project(u"C:\\prj\\area._vp", prj);
        files_.*fault = false;
        ASSERT_TRUE(error);
        EXPECT_EQ(error->text(), u"C:\\prj\\area._vp: the file cannot be written");
        EXPECT_EQ(files_.content, before);
    }
}

TEST(host_files_on_disk, a_project_is_replaced_in_its_folder) {
    const std::size_t before = living_objects();
    const vs::project_resave::temporary_folder folder;
    {
        project prj;
        fill(prj);
        EXPECT_FALSE(write_project(folder.path(u"area._vp"), project()));
        EXPECT_FALSE(write_project(folder.path(u"area._vp"), prj));
        EXPECT_FALSE(read_project(folder.path(u"area._vp"), prj));
        EXPECT_EQ(prj.scenes_2d.at(0)->count(), 5U);
        EXPECT_TRUE(write_project(folder.path(u"none\\area._vp"), prj));
        EXPECT_EQ(platform::current_system().list(folder.path()).size(), 1U);
    }
    EXPECT_EQ(living_objects(), before);
}

} // namespace
} // namespace vestra::files
