// The C functions over the model: what a bundle sees through handles.
#include <limits>
#include <stdexcept>

#include <gtest/gtest.h>

#include "framework/ref.h"
#include "framework/string_adapter.h"
#include "host/interfaces/layout_legend_layer.h"
#include "host/interfaces/profile_compound_layer.h"
#include "host/interfaces/stat_source.h"
#include "reference_host/api/handles.h"
#include "reference_host/shell/front_end.h"
#include "reference_host/shell/settings.h"
#include "tests/reference_host/host_functions.h"
#include "tests/support/temporary_folder.h"

namespace {

using namespace vs::project_resave;
using vestra::api::to_handle;
using vestra::api::to_model;

// A project of the host, and the claim that nothing of it is left.
class host_api : public testing::Test {
protected:
    host_api() : handle(vs_prj_create()), project(*to_model(handle)) {}
    ~host_api() override {
        vs_prj_destroy(handle);
        EXPECT_EQ(vestra::living_objects(), 0U);
        vestra::shell::settings() = {};
    }

    vestra::scene& scene_2d() { return project.scenes_2d.make_scene(); }

    vs_prj* handle;
    vestra::project& project;
};

// Fills a container with three members that are named 0, 1, 2.
template <class List>
void fill(List& list, auto make) {
    for (const char16_t* caption : {u"0", u"1", u"2"}) make(list).caption = caption;
}

template <class Container, class Member>
void expect_container(Container* container, uint32_t (*size)(Container*),
                      Member* (*get)(Container*, uint32_t), void (*del)(Container*, uint32_t),
                      vs_entities* (*upcast)(Container*)) {
    vs_entities* const entities = upcast(container);
    EXPECT_TRUE(vs_uuid_has_value(vs_entity_get_uuid(vs_entities_safe_upcast(entities))));
    EXPECT_EQ(vs_entities_safe_downcast(vs_entities_safe_upcast(entities)), entities);
    ASSERT_EQ(size(container), 3U);
    del(container, 3);
    del(container, std::numeric_limits<uint32_t>::max());
    ASSERT_EQ(size(container), 3U);
    del(container, 1);
    ASSERT_EQ(vs_entities_get_count(entities), 2U);
    EXPECT_EQ(host_string(vs_entity_get_wcaption, vs_entities_get_entity(entities, 1)), u"2");
    EXPECT_EQ(static_cast<void*>(get(container, 1)), vs_entities_get_entity(entities, 1));
    EXPECT_EQ(get(container, 2), nullptr);
    EXPECT_EQ(vs_entities_get_entity(entities, 2), nullptr);
    for (uint32_t index = size(container); index-- > 0;) del(container, index);
    EXPECT_EQ(size(container), 0U);
}

TEST_F(host_api, members_are_deleted_by_index_in_every_container) {
    const auto scene = [](auto& list) -> auto& { return list.make_scene(); };
    const auto make = [](auto& list) -> auto& { return list.make(); };
    fill(project.scenes_2d, scene);
    fill(project.scenes_3d, scene);
    fill(project.layouts, scene);
    fill(project.add_plugin_scenes(vestra::well_sheets_meta_id), scene);
    fill(project.tables, make);
    fill(project.tos_tables, make);
    fill(project.map_legends, make);
    project.plugin_scenes[0]->id = vestra::uuid::random();

    ASSERT_EQ(vs_prj_get_plugin_scns_2d_count(handle), 1U);
    EXPECT_EQ(vs_prj_get_plugin_scns_2d_ptr(handle, 1), nullptr);
    for (vs_scns_2d* scenes : {vs_prj_get_scns_2d_ptr(handle), vs_prj_get_layouts_data_ptr(handle),
                               vs_prj_get_plugin_scns_2d_ptr(handle, 0)})
        expect_container(scenes, vs_scns_2d_get_size, vs_scns_2d_get, vs_scns_2d_del, vs_scns_2d_safe_upcast);
    expect_container(vs_prj_get_scns_3d_ptr(handle), vs_scns_3d_get_size, vs_scns_3d_get, vs_scns_3d_del,
                     vs_scns_3d_safe_upcast);
    expect_container(vs_prj_get_attrs_data_ptr(handle), vs_attrs_data_get_size, vs_attrs_data_get,
                     vs_attrs_data_del, vs_attrs_data_safe_upcast);
    expect_container(vs_prj_get_toss_data_ptr(handle), vs_toss_data_get_size, vs_toss_data_get,
                     vs_toss_data_del, vs_toss_data_safe_upcast);

    vestra::tos_data& wells = project.tos_tables.make();
    vs_tos_data* const table = vs_toss_data_get(vs_prj_get_toss_data_ptr(handle), 0);
    vs_tos_data_set_wfilename(table, u"D:\\new\\wells.tos");
    EXPECT_EQ(host_string(vs_tos_data_get_wfilename, table), u"D:\\new\\wells.tos");
    EXPECT_EQ(vs_table_data_safe_upcast(vs_tos_data_safe_upcast(table)), to_handle<vs_entity>(&wells));

    vs_maplegs* const legends = vs_prj_get_maplegs_ptr(handle);
    vs_maplegs_delete_elem(legends, 3);
    vs_maplegs_delete_elem(legends, 0);
    ASSERT_EQ(vs_maplegs_get_size(legends), 2U);
    EXPECT_EQ(host_string(vs_mapleg_get_title, vs_maplegs_get_ptr(legends, 0)), u"1");
    EXPECT_FALSE(vs_uuid_has_value(vs_mapleg_get_uuid(vs_maplegs_get_ptr(legends, 1))));
}

TEST_F(host_api, a_layer_is_one_thing_by_whatever_road_it_is_reached) {
    vestra::scene& map = scene_2d();
    vestra::layer& roads = map.make_layer("shp_pln_lr2d");
    roads.caption = u"Roads";
    roads.file = u"*C:\\gis\\roads.shp";
    roads.id = vestra::uuid::random();
    roads.validity = vestra::three_state::no;
    roads.visible = false;
    roads.data = std::make_unique<vestra::attr_data>();
    map.make_groups().add_group(u"Base").add_layer(roads);

    vs_scn_2d* const scene = vs_scns_2d_get(vs_prj_get_scns_2d_ptr(handle), 0);
    vs_lr* const layer = vs_scn_2d_get_layer_ptr(scene, 0);
    vs_lr_group* const group = vs_lr_group_get_child_by_index(vs_scn_get_lr_group_ptr(scene), 0);
    vs_lr_group* const leaf = vs_lr_group_get_child_by_index(group, 0);
    vs_entity* const entity = vs_entities_get_entity(vs_scn_safe_upcast(scene), 0);
    EXPECT_EQ(vs_scn_get_layer(scene, 0), layer);
    EXPECT_EQ(vs_lr_group_get_lr_ptr(leaf), layer);
    EXPECT_EQ(vs_lr_safe_upcast(layer), entity);
    EXPECT_EQ(vs_lr_safe_downcast(entity), layer);
    EXPECT_EQ(vs_lr_safe_downcast(vs_entities_safe_upcast(vs_scn_safe_upcast(scene))), nullptr);
    EXPECT_EQ(vs_entities_safe_downcast(entity), nullptr);
    EXPECT_EQ(vs_lr2d_safe_downcast(layer), layer);
    EXPECT_EQ(vs_lr3d_safe_downcast(layer), nullptr);
    EXPECT_TRUE(vs_lr_group_is_group(group));
    EXPECT_FALSE(vs_lr_group_is_group(leaf));
    EXPECT_EQ(host_string(vs_lr_group_get_wcaption, group), u"Base");

    EXPECT_EQ(host_string(vs_lr2d_get_wcaption, layer), u"Roads");
    EXPECT_EQ(host_string(vs_lr2d_get_wfilename, layer), u"*C:\\gis\\roads.shp");
    EXPECT_STREQ(vs_lr2d_get_lr_type(layer), "shp_pln_lr2d");
    EXPECT_STREQ(vs_entity_get_meta_id(entity), "shp_pln_lr2d");
    EXPECT_TRUE(vs_uuid_equal(vs_lr_get_uuid(layer), vs_entity_get_uuid(entity)));
    EXPECT_EQ(vs_lr_is_valid(layer), 1U);
    EXPECT_EQ(vs_entity_is_valid(entity), 1U);
    EXPECT_FALSE(vs_lr_get_visible(layer));
    EXPECT_EQ(vs_attr_data_safe_downcast(vs_lr_get_data_ptr(layer)), vs_shp_lr2d_get_attr_data_ptr(layer));
    EXPECT_EQ(vs_shp_lr3d_get_attr_data_ptr(layer), nullptr);
    vs_lr_set_wfilename(layer, nullptr);
    EXPECT_EQ(roads.file, u"");

    vs_scn_2d_del_lr2d(scene, 0);
    EXPECT_EQ(vs_scn_get_count(scene), 0U);
    EXPECT_EQ(vs_lr_group_get_count_child(group), 0U);
    vs_lr_group_erase_empty_group(vs_scn_2d_get_lr_group_ptr(scene));
    EXPECT_EQ(vs_lr_group_get_count_child(vs_scn_2d_get_lr_group_ptr(scene)), 0U);
}

TEST_F(host_api, what_shows_or_stands_below_a_deleted_element_finds_nothing) {
    vestra::scene& shown = scene_2d();
    vestra::scene& layout = project.layouts.make_scene();
    vs_lr* const frame = to_handle<vs_lr>(&layout.make_layer("layout_scene_frame"));
    to_model(frame)->frame.emplace(shown);
    to_model(frame)->parent = vestra::entity_link(&shown);
    EXPECT_EQ(vs_layout_scene_frame_lr2d_get_scene(frame), to_handle<vs_scn>(&shown));
    EXPECT_EQ(vs_entity_get_parent(vs_lr_safe_upcast(frame)), to_handle<vs_entity>(&shown));
    vs_entities_clear(vs_scns_2d_safe_upcast(vs_prj_get_scns_2d_ptr(handle)));
    EXPECT_EQ(vs_layout_scene_frame_lr2d_get_scene(frame), nullptr);
    EXPECT_EQ(vs_entity_get_parent(vs_lr_safe_upcast(frame)), nullptr);

    EXPECT_EQ(vs_scn_layout_get_page_lr2d(to_handle<vs_scn_2d>(&layout)), nullptr);
    layout.page = std::make_unique<vestra::layer>(vestra::dimension::flat, "layout_page");
    EXPECT_EQ(vs_scn_layout_get_page_lr2d(to_handle<vs_scn_2d>(&layout)),
              to_handle<vs_lr>(layout.page.get()));
    EXPECT_EQ(vs_scn_2d_get_layer_count(to_handle<vs_scn_2d>(&layout)), 1U);
}

TEST_F(host_api, the_plug_ins_of_layers_answer_from_the_layer) {
    vestra::scene& sheet = scene_2d();
    vs_lr* const plain = to_handle<vs_lr>(&sheet.make_layer("rtr_lr2d"));
    EXPECT_EQ(vs_lr2d_get_plugin_interface(plain), nullptr);
    EXPECT_EQ(vs_layout_lr2d_get_plugin_interface(plain), nullptr);

    vestra::layer& profile = sheet.make_layer("profil_cmpnd_lr2d");
    profile.members = std::vector<wide_string>{u"first", u"second"};
    const vs_interface_pointer* const stored = vs_lr2d_get_plugin_interface(to_handle<vs_lr>(&profile));
    ASSERT_TRUE(stored);
    const auto members = cast_to<profil_cmpnd_lr2d_impl>(identity_pointer{*stored});
    EXPECT_EQ(call<&profil_cmpnd_lr2d_impl::member_count>(members), 2);
    std::vector<wide_string> uuids;
    stdwstring_list_visitor visitor(uuids);
    for (int32_t index : {-1, 1, 0, 2}) call<&profil_cmpnd_lr2d_impl::member_uuid>(members, index, visitor);
    EXPECT_EQ(uuids, (std::vector<wide_string>{u"second", u"first"}));
    EXPECT_FALSE(cast_to<layout_legend_layer_impl>(members));
    EXPECT_EQ(vs_lr2d_get_plugin_interface(to_handle<vs_lr>(&profile)), stored);

    vestra::layer& legend = project.layouts.make_scene().make_layer("vs_layout_legend_layer_meta_id");
    legend.legend = std::make_unique<vestra::scene>(vestra::dimension::flat);
    const auto plugin = cast_to<layout_legend_layer_impl>(
        identity_pointer{*vs_layout_lr2d_get_plugin_interface(to_handle<vs_lr>(&legend))});
    EXPECT_EQ(call<&layout_legend_layer_impl::scene>(plugin), to_handle<vs_scn_2d>(legend.legend.get()));
}

TEST_F(host_api, an_extra_record_is_repaired_to_a_tuple_of_the_wanted_size) {
    vestra::layer& grid = scene_2d().make_layer("tos_grid_lr2d");
    grid.extras.set("Other").value = 2.5;
    grid.extras.set("BumpsSettings").value = wide_string(u"no tuple");
    vs_lr* const layer = to_handle<vs_lr>(&grid);

    const vs_table_extra* const table = vs_lr_get_table_extra(layer);
    ASSERT_EQ(table->count, 2);
    EXPECT_STREQ(table->rows[1].key, "BumpsSettings");
    vs_any* const record = vs_lr_get_extra(layer, "BumpsSettings");
    EXPECT_EQ(table->rows[1].value, record);
    EXPECT_EQ(vs_lr_get_extra(layer, "bumpssettings"), nullptr);
    EXPECT_EQ(any_get_type(record), 6U);
    EXPECT_EQ(host_string(any_get_wstring, record), u"no tuple");
    EXPECT_EQ(any_get_tuple(record), nullptr);

    any_assign_tuple(record, tuple_init());
    ASSERT_EQ(any_get_type(record), 1U);
    vs_tuple* const tuple = any_get_tuple(record);
    tuple_resize(tuple, 90);
    any_assign_wstring(tuple_get_element(tuple, 69), u"C:\\maps\\relief.tif");
    tuple_resize(tuple, 70);
    EXPECT_EQ(tuple_get_size(tuple), 70U);
    EXPECT_EQ(tuple_get_element(tuple, 70), nullptr);
    EXPECT_EQ(any_get_type(tuple_get_element(tuple, 0)), 0U);
    EXPECT_EQ(host_string(any_get_wstring, tuple_get_element(tuple, 69)), u"C:\\maps\\relief.tif");
    tuple_destroy(tuple_init());
}

TEST_F(host_api, an_assigned_style_is_a_copy_of_its_own) {
    vestra::layer& layer = scene_2d().make_layer("shp_pnt_lr2d");
    layer.style = std::make_unique<vestra::style_manager>("point");
    layer.style->values = {{u"symbol", u"circle", {{u"size", u"4", {}}}}};
    layer.styles = std::make_unique<vestra::style_manager_list>("points");
    layer.styles->managers.push_back(*layer.style);
    vs_stl_mngr* const style = vs_lr_get_style_mngr_ptr(to_handle<vs_lr>(&layer));
    vs_stl_mngr_list* const styles = vs_lr_get_style_mngr_list_ptr(to_handle<vs_lr>(&layer));

    vs_stl_mngr* const saved = vs_stl_mngr_create(vs_stl_mngr_get_style_type(style));
    vs_stl_mngr_list* const saved_list = vs_stl_mngr_list_create(vs_stl_mngr_list_get_type(styles));
    EXPECT_STREQ(vs_stl_mngr_list_get_type(saved_list), "points");
    vs_stl_mngr_assign(saved, style);
    vs_stl_mngr_list_assign(saved_list, styles);
    layer.style->values[0].values.clear();
    layer.styles->managers.clear();
    EXPECT_EQ(to_model(saved)->values[0].values[0].text, u"4");
    EXPECT_EQ(to_model(saved_list)->managers[0].values[0].text, u"circle");
    vs_stl_mngr_destroy(saved);
    vs_stl_mngr_list_destroy(saved_list);
}

TEST_F(host_api, small_values_answer_by_their_tables) {
    const struct {
        uint32_t state, inverse;
        bool value;
    } states[] = {{0, 1, true}, {1, 0, false}, {2, 2, false}};
    for (const auto& row : states) {
        EXPECT_EQ(vs_3state_invert(row.state), row.inverse);
        EXPECT_EQ(vs_3state_to_bool(row.state), row.value);
    }
    EXPECT_EQ(vs_bool_to_3state(true), 0U);
    EXPECT_EQ(vs_bool_to_3state(false), 1U);

    const struct {
        double value;
        int32_t decimals;
        double rounded;
    } numbers[] = {{2.5, 0, 3},      {-2.5, 0, -3},      {1.234, 2, 1.23},
                   {0.375, 2, 0.38}, {-0.375, 2, -0.38}, {1e300, 20, 1e300}};
    for (const auto& row : numbers) EXPECT_DOUBLE_EQ(vs_round_dbl(row.value, row.decimals), row.rounded);

    vs_uuid* const uuid = vs_uuid_create();
    vs_uuid* const other = vs_uuid_create();
    EXPECT_FALSE(vs_uuid_has_value(uuid));
    EXPECT_EQ(vs_uuid_from_string(uuid, u"{0A1B2C3D-4E5F-6071-8293-A4B5C6D7E8F9}") & 0xFF, 1U);
    EXPECT_EQ(vs_uuid_from_string(uuid, u"C:\\prj\\scene._sn") & 0xFF, 0U);
    EXPECT_EQ(host_string(vs_uuid_to_string, uuid), u"0a1b2c3d-4e5f-6071-8293-a4b5c6d7e8f9");
    EXPECT_FALSE(vs_uuid_equal(uuid, other));
    vs_uuid_assign(other, uuid);
    EXPECT_TRUE(vs_uuid_equal(uuid, other));
    vs_uuid_destroy(uuid);
    vs_uuid_destroy(other);

    vs_wstrings* const list = vs_wstrings_create();
    for (const char16_t* text : {u"C:\\a.shp", static_cast<const char16_t*>(nullptr)})
        vs_wstrings_add(list, text);
    ASSERT_EQ(vs_wstrings_get_size(list), 2U);
    EXPECT_EQ(wide_view(vs_wstrings_get_str(list, 0)), u"C:\\a.shp");
    EXPECT_EQ(wide_view(vs_wstrings_get_str(list, 1)), u"");
    EXPECT_EQ(vs_wstrings_get_str(list, 2), nullptr);
    vs_wstrings_destroy(list);

    vs_dib* const picture = vs_dib_create(5, 3);
    EXPECT_EQ(vs_dib_get_width(picture) * vs_dib_get_height(picture), 15U);
    vs_dib_get_bits(picture)[5 * 3 * 3 - 1] = 255;
    vs_dib_destroy(picture);
    EXPECT_EQ(vs_dib_create(0xFFFFFFFF, 0xFFFFFFFF), nullptr);
}

// Bytes of a DBF table without records.
std::string table_bytes(const std::vector<std::string>& fields) {
    std::string bytes(32, '\0');
    bytes[0] = 3;
    bytes[8] = static_cast<char>(32 * (fields.size() + 1) + 1);
    for (std::string row : fields) {
        row.resize(32, '\0');
        row[11] = 'C';
        row[16] = 8;
        bytes += row;
    }
    return bytes + "\r\x1A";
}

TEST_F(host_api, joined_fields_stand_behind_the_tables_own) {
    const temporary_folder folder;
    vs_attr_data* const other = vs_attr_data_create();
    vs_attr_data* const table = to_handle<vs_attr_data>(&project.tables.make());
    vs_attr_data_set_wfilename(table, folder.write(u"wells.dbf", table_bytes({"ID", "NAME"})).c_str());
    vs_attr_data_set_wfilename(other, folder.write(u"owners.dbf", table_bytes({"ID", "OWNER"})).c_str());
    EXPECT_FALSE(vs_attr_data_is_joined(table));
    vs_attr_data_join(table, other, 0, 1);
    vs_attr_data_set_wfilename(other, folder.path(u"gone.dbf").c_str());
    vs_attr_data_join(table, other, 1, 0);
    vs_attr_data_destroy(other);
    ASSERT_EQ(vs_attr_data_get_join_count(table), 2);
    EXPECT_EQ(host_string(vs_attr_data_get_join_other_source, table, 0), folder.path(u"owners.dbf"));
    EXPECT_EQ(host_string(vs_attr_data_get_join_other_source, table, -1), u"");
    EXPECT_EQ(vs_attr_data_get_join_base_field(table, 1), 1);
    EXPECT_EQ(vs_attr_data_get_join_other_field(table, 0), 1);

    vs_attr_files* const files = vs_attr_files_open(table, 1, 0, 0, 0);
    const std::pair<const char*, bool> fields[] = {
        {"ID", false}, {"NAME", false}, {"ID", true}, {"OWNER", true}};
    ASSERT_EQ(vs_attr_files_get_np(files), 4);
    for (int32_t index = 0; index < 4; ++index) {
        EXPECT_STREQ(vs_attr_files_get_field_name(files, index), fields[index].first);
        EXPECT_EQ(vs_attr_files_get_field_is_joined(files, index), fields[index].second);
    }
    EXPECT_EQ(vs_attr_files_get_field_name(files, 4), nullptr);
    vs_attr_files_close(files);
    vs_attr_data_unjoin(table);
    EXPECT_FALSE(vs_attr_data_is_joined(table));
    vs_attr_data_set_wfilename(table, folder.path(u"gone.dbf").c_str());
    EXPECT_EQ(vs_attr_files_open(table, 1, 0, 0, 0), nullptr);
}

TEST_F(host_api, tos_files_open_for_their_properties_and_as_a_data_set) {
    const temporary_folder folder;
    const wide_string path =
        folder.write(u"log.tos", "TOS 1\nproperty Depth, m\nproperty Gamma\nmember log.tod\n");
    vs_tos4_file* const file = vs_tos4_file_open_w(path.c_str(), 1);
    ASSERT_EQ(vs_tos4_get_prop_count(file), 2U);
    EXPECT_EQ(host_string(vs_tos4_get_prop_caption_w, file, 0), u"Depth, m");
    EXPECT_EQ(host_string(vs_tos4_get_prop_caption_w, file, 2), u"");
    vs_tos4_file_close(file);
    EXPECT_EQ(vs_tos4_file_open_w(folder.path(u"gone.tos").c_str(), 1), nullptr);

    std::vector<wide_string> files;
    stdwstring_list_visitor visitor(files);
    identity_pointer opened;
    vs_datasource_open(&opened, path.c_str(), nullptr);
    {
        const ref<stat_source_impl> source(cast_to<stat_source_impl>(opened));
        call<&stat_source_impl::files>(source.get(), visitor);
    }
    EXPECT_EQ(files, (std::vector<wide_string>{path, folder.path(u"log.tod")}));
    vs_datasource_open(&opened, folder.path(u"gone.tos").c_str(), nullptr);
    EXPECT_FALSE(opened);
}

TEST_F(host_api, files_are_written_and_read_and_the_reason_of_a_failure_is_kept) {
    const temporary_folder folder;
    const auto& settings = vestra::shell::settings();
    scene_2d().caption = u"Area 1";
    project.scenes_2d.at(0)->id = vestra::uuid::random();
    vs_lr* const layer = to_handle<vs_lr>(&project.scenes_2d.at(0)->make_layer("rtr_lr2d"));
    to_model(layer)->id = vestra::uuid::random();

    vs_xml_save_prj* const xml = vs_xml_save_prj_create();
    const wide_string path = folder.path(u"a._vp");
    EXPECT_EQ(vs_xml_data_save_prj_w(xml, path.c_str(), handle), 1U);
    vs_prj* const copy = vs_prj_create();
    EXPECT_EQ(vs_xml_data_load_prj_w(xml, path.c_str(), copy), 1U);
    EXPECT_EQ(settings.read_error, u"");
    EXPECT_EQ(host_string(vs_prj_get_filename, copy), path);

    const wide_string broken = folder.write(u"b._vp", "<project version=\"1\">\n<nonsense/>\n</project>\n");
    EXPECT_EQ(vs_xml_data_load_prj_w(xml, broken.c_str(), copy), 0U);
    EXPECT_TRUE(settings.read_error.starts_with(broken + u":2: "));
    ASSERT_EQ(vs_scns_2d_get_size(vs_prj_get_scns_2d_ptr(copy)), 1U);
    EXPECT_EQ(host_string(vs_scn_get_wcaption, vs_scns_2d_get(vs_prj_get_scns_2d_ptr(copy), 0)), u"Area 1");
    EXPECT_EQ(vs_xml_data_save_prj_w(xml, folder.path(u"no\\such\\folder._vp").c_str(), copy), 0U);
    EXPECT_NE(settings.write_error, u"");
    vs_xml_save_prj_destroy(xml);

    vestra::shell::settings().open_project = to_model(copy);
    EXPECT_EQ(vs_prj_get_instance(), copy);
    vs_prj_destroy(copy);
    EXPECT_EQ(vs_prj_get_instance(), nullptr);

    vs_xml_save_2d* const flat = vs_xml_save_2d_create();
    vs_xml_save_3d* const solid = vs_xml_save_3d_create();
    vs_scn_2d* const scene = vs_scn_2d_create();
    const wide_string scene_path = folder.path(u"a._sn");
    vs_scn_2d* const written = vs_scns_2d_get(vs_prj_get_scns_2d_ptr(handle), 0);
    EXPECT_EQ(vs_xml_data_save_scn2d_w(flat, scene_path.c_str(), written), 1U);
    EXPECT_EQ(vs_xml_data_load_scn2d_w(flat, scene_path.c_str(), scene), 1U);
    EXPECT_EQ(vs_scn_2d_get_layer_count(scene), 1U);
    EXPECT_EQ(vs_xml_data_save_lr2d_w(flat, folder.path(u"a._lr").c_str(), layer), 1U);
    EXPECT_EQ(vs_xml_data_save_lr3d_w(solid, folder.path(u"a._lrd").c_str(), layer), 0U);
    vs_scn_2d_destroy(scene);
    vs_xml_save_2d_destroy(flat);
    vs_xml_save_3d_destroy(solid);
}

// Writes down what it is told, and throws on a warning.
class recording_front_end final : public vestra::shell::front_end {
public:
    void error(wide_view text) override { add(u"error ", text); }
    void warning(wide_view) override { throw std::runtime_error("broken terminal"); }
    void message(wide_view text) override { add(u"message ", text); }
    bool yes_no(wide_view) override { return true; }
    vestra::shell::answer yes_no_cancel(wide_view) override { return vestra::shell::answer::yes; }
    void progress_opened(bool stoppable) override { add(stoppable ? u"open, stoppable" : u"open", u""); }
    void progress_shown(uint32_t current, uint32_t total) override {
        add(current == 1 && total == 3 ? u"1 of 3" : u"?", u"");
    }
    void progress_caption(wide_view text) override { add(u"caption ", text); }
    void progress_indeterminate(bool on) override { add(on ? u"endless" : u"known", u""); }
    void progress_closed() override { add(u"close", u""); }
    bool stop_requested() override { return stop; }
    void stop_reset() override { stop = false; }
    void wait_opened(wide_view text) override { add(u"wait ", text); }
    void wait_closed() override { add(u"waited", u""); }

    std::vector<wide_string> told;
    bool stop = true;

private:
    void add(wide_view what, wide_view text) { told.push_back(wide_string(what) + wide_string(text)); }
};

TEST_F(host_api, messages_and_progress_go_to_the_front_end_in_force) {
    EXPECT_EQ(vs_yesnocancel_wmessage(u"without a front end"), 7);
    recording_front_end front_end;
    {
        const vestra::shell::front_end_override in_force(front_end);
        vs_progress* const window = vs_progress_create(1);
        vs_progress_wcaption(window, u"Saving");
        vs_progress_indeterminate(window, 1);
        vs_progress_show(window, 1, 3);
        EXPECT_TRUE(vs_progress_get_stopped(window));
        vs_progress_reset(window);
        EXPECT_FALSE(vs_progress_get_stopped(window));
        vs_progress_destroy(window);
        vs_wait_destroy(vs_wait_wcreate(u"Loading"));
        vs_show_werror(nullptr);
        vs_show_wwarning(u"thrown inside the host");
        vs_show_wmessage(u"done");
        EXPECT_TRUE(vs_yesno_wmessage(u"?"));
        EXPECT_EQ(vs_yesnocancel_wmessage(u"?"), 6);
    }
    EXPECT_FALSE(vs_yesno_wmessage(u"?"));
    EXPECT_EQ(front_end.told,
              (std::vector<wide_string>{u"open, stoppable", u"caption Saving", u"endless", u"1 of 3",
                                        u"close", u"wait Loading", u"waited", u"error ", u"message done"}));

    vestra::shell::settings().language_offset = 50000;
    vestra::shell::settings().invert_layers = true;
    EXPECT_EQ(vs_res_get_lng(), 50000U);
    EXPECT_TRUE(vs_options_get_invert_layers());
}

} // namespace
