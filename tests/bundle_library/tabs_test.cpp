// The tabs through the library's tables, and whole runs from the click to the files on the disk.
#include "operations/run_settings.h"
#include "tests/bundle_library/panel_fixture.h"

namespace vs::project_resave {
namespace {

class tabs : public panel {
protected:
    // Returns the bytes of all files of the new folder, by path.
    std::map<std::string, std::string> written() const {
        std::map<std::string, std::string> all;
        for (const auto& [path, state] : state_of(native("n") / "out"))
            if (!state.is_folder) all[path] = state.bytes;
        return all;
    }
};

// Compares with the run itself, using the settings that the controls represent.
TEST_F(tabs, every_structure_and_option_reaches_the_run_and_its_files) {
    copy_sample();
    open();
    ASSERT_TRUE(enter("prj/field1", output));
    const struct {
        std::vector<std::string> boxes; // those that begin unchecked; what is changed by a click
        resave_settings same;
    } table[] = {
        {{"radio1"}, {}},
        {{"radio2", "check4", "check5"},
         {.structure_variant = from_project_folder, .save_scene_files = true, .save_layer_files = true}},
        {{"radio3", "check1", "check6"},
         {.structure_variant = from_common_top, .write_log = true, .consider_project_file = false}},
        {{"radio4", "check3"}, {.structure_variant = project_tree_else_type, .delete_lost_sources = true}},
        {{"radio5", "check8"}, {.structure_variant = folder_per_scene, .lower_case = true}}};
    const auto click = [this](const std::string& box) {
        return check("prj/" + box, box.starts_with("radio") || !is_checked("prj/" + box));
    };
    for (const auto& row : table) {
        ASSERT_TRUE(enter("field1", source));
        for (const std::string& box : row.boxes) ASSERT_TRUE(click(box)) << box;
        run();
        EXPECT_EQ(u"", text("field1")) << "the run leaves no project";
        const auto by_click = written();
        const auto told_by_click = script.texts(kind::message);
        clear_output();
        settings = row.same;
        load_and_resave();
        EXPECT_LT(20U, by_click.size());
        EXPECT_EQ(written(), by_click);
        EXPECT_EQ(script.texts(kind::message), told_by_click);
        clear_output();
        for (const std::string& box : row.boxes) click(box);
    }
}

TEST_F(tabs, the_structure_is_written_as_the_boxes_and_the_list_say) {
    using all = structure_settings;
    bool all::*const flags[] = {&all::write_layer_names,    &all::write_table_names,
                                &all::write_table_columns,  &all::write_layout_layers,
                                &all::write_legend_content, &all::write_legend_columns,
                                &all::write_file_paths};
    open_on_sample();
    load();
    turn_to(1);
    const wide_string by_click = u"N:\\out\\click.txt", expected = u"N:\\out\\expected.txt";
    ASSERT_TRUE(enter("struct/field1", by_click));
    structure_settings wanted;
    wanted.output_path = expected.c_str();
    const wide_view indents[] = {u"", u"\t", u" ", u"    "};
    for (uint32_t box = 1; box <= std::size(flags); ++box) {
        check("struct/check" + std::to_string(box));
        wanted.*flags[box - 1] = true;
        ASSERT_TRUE(vestra::toolkit::choose(at("struct/choice1"), box % 4));
        wanted.indent_text = indents[box % 4];
        run();
        EXPECT_EQ(texts{u"The project structure is preserved successfully."}, script.texts(kind::message));
        ASSERT_TRUE(context->save_structure(wanted));
        EXPECT_EQ("", first_difference(read(expected), read(by_click))) << box;
        EXPECT_EQ(source, text("field1")) << "the project stays";
    }
}

// Nothing was resaved yet, so the files go to the current folder.
TEST_F(tabs, checked_scenes_get_files_of_new_names_or_the_old_ones) {
    open_on_sample();
    ASSERT_TRUE(check_row("scn2d/list1/Overview", false));
    turn_to(2);
    ASSERT_TRUE(enter("scns_xml/field1", u"N:\\out"));
    const auto before = std::filesystem::current_path();
    for (const bool rewrites : {false, true}) {
        write(u"N:\\out\\Geology._sn", "old");
        ASSERT_TRUE(!rewrites || check("scns_xml/radio2"));
        ASSERT_TRUE(platform::set_current_folder(u"N:\\out"));
        run();
        std::filesystem::current_path(before);
        EXPECT_EQ(texts{u"Files *_sn has been saved"}, script.texts(kind::message));
        EXPECT_EQ(rewrites, written().at("Geology._sn") != "old");
        EXPECT_EQ(4U, files().size());
    }
}

} // namespace
} // namespace vs::project_resave
