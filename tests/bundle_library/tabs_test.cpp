// The tabs through the library's tables, and whole runs from the click to the files on the disk.
#include "operations/scene_files_run.h"
#include "operations/structure_run.h"
#include "tests/bundle_library/panel_fixture.h"
#include "tests/support/tree_state.h"

namespace vs::project_resave {
namespace {

class tabs : public panel {
protected:
    // Whether each box of a page is checked, from the first on.
    std::string boxes(const std::string& page, int count) {
        std::string all;
        for (int box = 1; box <= count; ++box)
            all += is_checked(page + "/check" + std::to_string(box)) ? '1' : '0';
        return all;
    }
    // The marks of an outline from top to bottom: "x" checked, "." not, "~" in part.
    std::string marks(const std::string& outline) {
        std::string all;
        for (const wide_string& row : rows(outline)) {
            const char16_t sign = row[row.find_first_not_of(u' ')];
            all += sign == u'-' ? '.' : sign == u'~' ? '~' : 'x';
        }
        return all;
    }
    // Bytes of all files of the new folder, by path.
    std::map<std::string, std::string> written() const {
        std::map<std::string, std::string> all;
        for (const auto& [path, state] : state_of(native("n") / "out"))
            if (!state.is_folder) all[path] = state.bytes;
        return all;
    }
    void clear_output() {
        std::filesystem::remove_all(native("n") / "out");
        std::filesystem::create_directories(native("n") / "out");
    }
};

TEST_F(tabs, the_options_begin_with_their_defaults) {
    open();
    EXPECT_EQ("11000000", boxes("prj", 8));
    EXPECT_TRUE(is_checked("prj/radio1"));
    EXPECT_FALSE(at("prj/check1").enabled);
    EXPECT_EQ("0000000", boxes("struct", 7));
    EXPECT_EQ((texts{u"None", u"Tab", u"Space", u"4 space"}), at("struct/choice1").choices);
    EXPECT_EQ(1U, at("struct/choice1").current);
    EXPECT_TRUE(is_checked("scns_xml/radio1"));
    EXPECT_FALSE(is_checked("scns_xml/radio2"));
}

TEST_F(tabs, each_field_asks_the_user_for_what_belongs_in_it) {
    const wide_string project_files = u"Vestra project file (*._vp)|*._vp";
    const struct {
        const char* field;
        file_input_mode mode;
        wide_string filter, button;
    } table[] = {{"field1", file_input_mode{0}, project_files, u"Select project"},
                 {"prj/field1", file_input_mode{2}, project_files, u"Select new project"},
                 {"struct/field1", file_input_mode{1}, u"Text file (*.txt)|*.txt", u""},
                 {"scns_xml/field1", file_input_mode{3}, u"", u""}};
    open();
    for (const auto& row : table) {
        const element_view& field = at(row.field);
        EXPECT_EQ(row.mode, field.mode) << row.field;
        EXPECT_EQ(row.filter, field.filter) << row.field;
        EXPECT_EQ(row.button, field.caption) << row.field;
    }
}

TEST_F(tabs, what_needs_another_option_brings_it_along_and_goes_with_it) {
    const struct {
        const char* before;
        int box;
        bool on;
        const char* after;
    } table[] = {
        {"0000000", 3, true, "1110000"},  {"1110000", 1, false, "0110000"}, {"1110000", 3, false, "1100000"},
        {"0000000", 6, true, "0001110"},  {"0001110", 4, false, "0000000"}, {"0001110", 5, false, "0001000"},
        {"0001110", 6, false, "0001100"}, {"0000000", 5, true, "0001100"},  {"0000000", 4, true, "0001000"},
        {"0000000", 7, true, "0000001"},
    };
    open();
    for (const auto& row : table) {
        for (int box = 7; box > 0; --box) check("struct/check" + std::to_string(box), false);
        for (int box = 1; box <= 7; ++box)
            if (row.before[box - 1] == '1') check("struct/check" + std::to_string(box));
        for (int box = 1; box <= 7; ++box)
            if (row.before[box - 1] == '0') check("struct/check" + std::to_string(box), false);
        ASSERT_EQ(row.before, boxes("struct", 7));
        check("struct/check" + std::to_string(row.box), row.on);
        EXPECT_EQ(row.after, boxes("struct", 7)) << row.before << ' ' << row.box;
    }
}

TEST_F(tabs, one_structure_is_chosen_at_a_time_and_one_of_them_asks_about_the_project_file) {
    open();
    for (int chosen = 5; chosen > 0; --chosen) {
        ASSERT_TRUE(check("prj/radio" + std::to_string(chosen)));
        for (int other = 1; other <= 5; ++other)
            EXPECT_EQ(other == chosen, is_checked("prj/radio" + std::to_string(other)));
        EXPECT_EQ(chosen == 3, at("prj/check1").enabled);
        EXPECT_EQ(chosen == 3, check("prj/check1", false));
        EXPECT_EQ(chosen > 3, is_checked("prj/check1")) << "left as the user left it";
    }
}

TEST_F(tabs, without_a_path_nothing_starts_and_without_a_project_the_user_is_told) {
    const std::pair<std::string, wide_string> pages[] = {
        {"prj", output}, {"struct", u"N:\\out\\area.txt"}, {"scns_xml", u"N:\\out"}};
    open();
    for (const auto& [page, path] : pages) {
        if (page != "prj") turn_to(page);
        run();
        EXPECT_TRUE(script.events.empty()) << page;
        ASSERT_TRUE(enter(page + "/field1", path));
        run();
        EXPECT_EQ(texts{u"The project is loaded incorrectly. Please reload the project"}, errors()) << page;
        ASSERT_TRUE(enter(page + "/field1", u""));
    }
    EXPECT_TRUE(written().empty());
}

// Against the run itself with the settings that the controls stand for.
TEST_F(tabs, every_structure_and_option_reaches_the_run_from_the_click_to_the_files) {
    copy_sample();
    open();
    ASSERT_TRUE(enter("prj/field1", output));
    const struct {
        std::vector<std::pair<std::string, bool>> checks;
        void (*set)(resave_settings&);
    } table[] = {
        {{{"prj/radio1", true}}, [](resave_settings&) {}},
        {{{"prj/radio2", true}, {"prj/check4", true}, {"prj/check5", true}},
         [](resave_settings& s) {
             s.structure_variant = from_project_folder;
             s.save_scene_files = s.save_layer_files = true;
         }},
        {{{"prj/radio3", true}, {"prj/check1", false}, {"prj/check6", true}},
         [](resave_settings& s) {
             s.structure_variant = from_common_top;
             s.consider_project_file = false;
             s.write_log = true;
         }},
        {{{"prj/radio4", true}, {"prj/check3", true}},
         [](resave_settings& s) {
             s.structure_variant = project_tree_else_type;
             s.delete_lost_sources = true;
         }},
        {{{"prj/radio5", true}, {"prj/check8", true}},
         [](resave_settings& s) {
             s.structure_variant = folder_per_scene;
             s.lower_case = true;
         }},
    };
    for (const auto& row : table) {
        ASSERT_TRUE(enter("field1", source));
        for (const auto& [box, on] : row.checks) ASSERT_TRUE(check(box, on)) << box;
        run();
        EXPECT_EQ(u"", text("field1")) << "the run leaves no project";
        const auto by_click = written();
        const auto told_by_click = script.texts(front::kind::message);
        clear_output();
        row.set(settings);
        load_and_resave();
        EXPECT_LT(20U, by_click.size());
        EXPECT_EQ(written(), by_click);
        EXPECT_EQ(script.texts(front::kind::message), told_by_click);
        clear_output();
        for (const auto& [box, on] : row.checks)
            if (!box.starts_with("prj/radio") && box != "prj/check1") check(box, !on);
        settings = {};
    }
}

TEST_F(tabs, what_is_unchecked_stays_out_of_the_copy_and_the_source_comes_back_if_wanted) {
    open_on_sample();
    ASSERT_TRUE(enter("prj/field1", output));
    ASSERT_TRUE(check_row("scn2d/list1/Overview", false));
    ASSERT_TRUE(check_row("dbf/list1/Owners", false));
    const tree_state files_before = state_of(native("c"));
    script.answers = {answer::no, answer::yes}; // no further elements; open the source again
    run();
    EXPECT_EQ("", difference(files_before, state_of(native("c"))));
    vestra::project copy;
    read_back(output, copy);
    EXPECT_EQ(3U, copy.scenes_2d.count());
    EXPECT_EQ(2U, copy.tables.count());
    EXPECT_EQ(source, text("field1"));
    EXPECT_EQ((texts{u"Overview", u"Geology", u"Section 1", u"Empty scene"}), rows("scn2d/list1"));
}

TEST_F(tabs, clicks_and_tools_mark_the_layers_of_a_scene_as_the_user_means_them) {
    const struct {
        char event; // a row is (h)ighlighted, (n)ot any more, (c)hecked, (u)nchecked; a tool is (p)ressed
        const char* on;
        const char *scenes, *layers; // from top to bottom: x checked, . not, ~ in part
    } table[] = {
        {'u', "scn2d/list2/1/Roads", "xxxx", "~.xxxxxx.xxxxxxx"},
        {'p', "scn2d/tool7", "xxxx", "~x.............."}, // invert
        {'h', "scn2d/list2/Services", "xxxx", "~x.............."},
        {'h', "scn2d/list2/Notes", "xxxx", "~x.............."},
        {'c', "scn2d/list2/Services/Springs", "xxxx", "~x.......xxxx..."}, // for all that are highlighted
        {'c', "scn2d/list2/1/4", "xxxx", "~x..xxxx.xxxx..."},              // for itself
        {'u', "scn2d/list2/Notes", "xxxx", "~x..xxxx........"},
        {'n', "scn2d/list2/Notes", "xxxx", "~x..xxxx........"},
        {'c', "scn2d/list2/Notes", "xxxx", "~x..xxxx....x..."},
        {'u', "scn2d/list1/Overview", ".xxx", "................"},
        {'p', "scn2d/tool8", "xxxx", "~xxx~x.x.~.xxxxx"}, // as visible in the scene
        {'p', "scn2d/tool6", "xxxx", "................"}, // none
        {'p', "scn2d/tool2", "....", "................"}, // no scene
        {'p', "scn2d/tool3", "xxxx", "xxxxxxxx.xxxxxxx"}, // scenes inverted
        {'p', "tool2", "....", "................"},       // nothing on any page
        {'p', "scn2d/tool5", "x...", "xxxxxxxx.xxxxxxx"}, // all of this scene
    };
    open_on_sample();
    for (const auto& row : table) {
        const bool on = row.event == 'h' || row.event == 'c';
        if (row.event == 'p')
            EXPECT_TRUE(press_tool(row.on));
        else
            EXPECT_TRUE(row.event == 'h' || row.event == 'n' ? highlight_row(row.on, on)
                                                             : check_row(row.on, on));
        EXPECT_EQ(row.scenes, marks("scn2d/list1")) << row.event << ' ' << row.on;
        EXPECT_EQ(row.layers, marks("scn2d/list2")) << row.event << ' ' << row.on;
    }
}

TEST_F(tabs, a_load_writes_its_log_only_if_the_box_says_so) {
    copy_sample();
    open();
    const auto logs = [this] {
        size_t count = 0;
        for (const auto& [path, state] : state_of(native("c") / "prj"))
            if (path.ends_with(".txt") && path.find('/') == std::string::npos) ++count;
        return count;
    };
    const size_t before = logs();
    ASSERT_TRUE(enter("field1", source));
    EXPECT_EQ(before, logs());
    ASSERT_TRUE(check("prj/check7"));
    ASSERT_TRUE(enter("field1", source));
    EXPECT_EQ(before + 1, logs());
}

TEST_F(tabs, the_structure_is_written_as_the_boxes_and_the_list_say) {
    open_on_sample();
    load();
    turn_to("struct");
    const wide_string by_click = u"N:\\out\\click.txt", expected = u"N:\\out\\expected.txt";
    ASSERT_TRUE(enter("struct/field1", by_click));
    const struct {
        int box;
        bool structure_settings::*flag;
    } table[] = {
        {1, &structure_settings::write_layer_names},    {2, &structure_settings::write_table_names},
        {3, &structure_settings::write_table_columns},  {4, &structure_settings::write_layout_layers},
        {5, &structure_settings::write_legend_content}, {6, &structure_settings::write_legend_columns},
        {7, &structure_settings::write_file_paths}};
    structure_settings wanted;
    wanted.output_path = expected.c_str();
    const wide_view indents[] = {u"", u"\t", u" ", u"    "};
    for (const auto& row : table) {
        check("struct/check" + std::to_string(row.box));
        wanted.*row.flag = true;
        const uint32_t choice = static_cast<uint32_t>(row.box) % 4;
        ASSERT_TRUE(vestra::toolkit::choose(at("struct/choice1"), choice));
        wanted.indent_text = indents[choice];
        run();
        EXPECT_EQ(texts{u"The project structure is preserved successfully."},
                  script.texts(front::kind::message));
        ASSERT_TRUE(context->save_structure(wanted));
        EXPECT_EQ(read(expected), read(by_click)) << row.box;
        EXPECT_EQ(source, text("field1")) << "the project stays";
    }
    ASSERT_TRUE(vestra::toolkit::choose(at("struct/choice1"), 0));
    run();
    EXPECT_EQ(std::string::npos, read(by_click).find("\n ")) << "None: no indentation at all";
    EXPECT_EQ(std::string::npos, read(by_click).find("\n\t"));
}

TEST_F(tabs, scene_files_of_the_checked_scenes_get_new_names_or_take_the_old_ones) {
    open_on_sample();
    ASSERT_TRUE(check_row("scn2d/list1/Overview", false));
    turn_to("scns_xml");
    ASSERT_TRUE(enter("scns_xml/field1", u"N:\\out"));
    const auto run_in_folder = [&] { // nothing was resaved yet: the files go where the program stands
        const auto before = std::filesystem::current_path();
        ASSERT_TRUE(platform::set_current_folder(u"N:\\out"));
        run();
        std::filesystem::current_path(before);
    };
    const std::vector<std::string> names{"Empty scene._sn", "Geology._sn", "Section 1._sn"};
    run_in_folder();
    EXPECT_EQ(texts{u"Files *_sn has been saved"}, script.texts(front::kind::message));
    EXPECT_EQ(names, files());
    run_in_folder();
    EXPECT_EQ(6U, files().size());
    EXPECT_TRUE(written().contains("Geology(1)._sn"));
    ASSERT_TRUE(check("scns_xml/radio2"));
    clear_output();
    write(u"N:\\out\\Geology._sn", "old");
    run_in_folder();
    EXPECT_EQ(names, files());
    EXPECT_NE("old", written().at("Geology._sn"));
}

} // namespace
} // namespace vs::project_resave
