// The text of a project's structure, and scene files: their names, and which scenes get one.
#include "operations/run_settings.h"
#include "platform/volumes.h"
#include "tests/support/builder_run.h"
#include "tests/support/faulty_system.h"

namespace vs::project_resave {
namespace {

class structure_text : public builder_run {
protected:
    structure_text() { wanted.output_path = text_file.c_str(); }

    std::string save() {
        script.events.clear();
        script.polls = 0;
        EXPECT_TRUE(context->save_structure(wanted));
        EXPECT_EQ(0U, script.open_windows);
        return read(text_file);
    }

    const wide_string text_file = n + u"out\\structure.txt";
    structure_settings wanted;
};

TEST_F(structure_text, of_the_sample_equals_the_committed_file_and_changes_nothing) {
    using all = structure_settings;
    bool all::*const flags[] = {&all::write_layer_names,    &all::write_table_names,
                                &all::write_table_columns,  &all::write_layout_layers,
                                &all::write_legend_content, &all::write_legend_columns,
                                &all::write_file_paths};
    const struct {
        const char* file; // below tests/operations/expected
        std::string_view flags;
        wide_view indent;
        uint32_t repeat = 1;
    } rows[] = {{"structure_no_flags_tab.txt", "0000000", u"\t"},
                {"structure_layers_paths_no_indent.txt", "1000001", u""},
                {"structure_tables_layouts_legends_legend_columns_two_blanks.txt", "0101110", u" ", 2},
                {"structure_all_flags_tab.txt", "1111111", u"\t"}};
    copy_sample();
    const tree_state before = sources();
    load();
    for (const auto& row : rows) {
        for (size_t flag = 0; flag < std::size(flags); ++flag) wanted.*flags[flag] = row.flags[flag] == '1';
        wanted.indent_text = row.indent;
        wanted.indent_repeat = row.repeat;
        EXPECT_EQ("",
                  first_difference(committed(std::string("tests/operations/expected/") + row.file), save()));
        EXPECT_EQ(texts{load_string(text::structure_saved)}, script.texts(kind::message));
    }
    EXPECT_EQ("", difference(before, sources()));
    EXPECT_EQ(1U,
              context->report.unprocessed_types().count(u"wfs_pnt_lr2d")); // a later resave still reports it
}

TEST_F(structure_text, groups_are_shown_as_the_user_sees_them_with_what_is_selected) {
    builder.scene_2d(u"First").layer("rtr_lr2d", u"A").layer("rtr_lr2d", u"B").layer("rtr_lr2d", u"C");
    builder.layer("unheard_of", u"U");
    vestra::scene& first = *builder.model.scenes_2d.at(0);
    vestra::layer_group& outer = first.make_groups().add_group(u"Outer");
    first.groups->add_layer(*first.at(2));
    outer.add_group(u"Inner").add_layer(*first.at(0));
    outer.add_layer(*first.at(1));
    outer.add_group(u"Empty");
    first.groups->add_group(u"Unheard").add_layer(*first.at(3));
    builder.scene_2d(u"Second").layer("rtr_lr2d", u"D").save(source);
    load();
    wanted.write_layer_names = true;
    wanted.indent_text = u" ";
    const struct {
        texts deselected;
        uint32_t steps; // of four, the last is never shown; layers of a deselected group have none
        bool inverted = false;
    } rows[] = {{{}, 3},
                {{}, 3, true},
                {{builder.id(u"A")}, 3},
                {{builder.id(u"A"), builder.id(u"B"), builder.id(u"U")}, 2},
                {{builder.id(u"First"), builder.id(u"D")}, 3}};
    std::string all;
    for (const auto& row : rows) {
        context->selection.clear();
        for (const wide_string& id : row.deselected) context->selection.set_selected(id, false);
        vestra::shell::settings().invert_layers = row.inverted;
        all += save();
        EXPECT_EQ(row.steps, script.current);
    }
    EXPECT_EQ("", first_difference(committed("tests/operations/expected/structure_groups.txt"), all));
}

TEST_F(structure_text, a_text_that_cannot_be_written_is_reported_as_written) {
    builder.scene_2d(u"S").save(source);
    load();
    write(n + u"out\\folder\\kept");
    for (const char16_t* path : {u"N:\\none\\t.txt", u"N:\\out\\folder"}) {
        wanted.output_path = path;
        EXPECT_EQ("", save());
        EXPECT_EQ(texts{load_string(text::structure_saved)}, script.texts(kind::message));
        EXPECT_FALSE(path_exists(n + u"none"));
        EXPECT_TRUE(path_exists(n + u"out\\folder\\kept"));
    }
    script.stop_at_poll = 1;
    save();
    EXPECT_TRUE(path_exists(n + u"out\\folder\\kept")) << "a stop takes away what the run made";
}

TEST_F(structure_text, a_stop_removes_the_file_and_the_next_text_is_complete) {
    builder.scene_2d(u"S").layer("rtr_lr2d", u"L").scene_2d(u"S").save(source);
    load();
    wanted.write_layer_names = true;
    const std::string whole = save();
    const size_t polls = script.polls;
    ASSERT_LT(2U, polls);
    for (const answer said : {answer::yes, answer::no, answer::cancel}) {
        const bool goes_on = said == answer::cancel;
        for (size_t poll = 1; poll <= polls; ++poll) {
            write(text_file, "older");
            script.stop_at_poll = poll;
            script.answers = {said};
            EXPECT_EQ(goes_on ? whole : "", save());
            EXPECT_EQ(goes_on, path_exists(text_file));
            EXPECT_EQ(texts{load_string(goes_on ? text::structure_saved : text::interrupted_by_user)},
                      script.texts(kind::message));
            script.stop_at_poll = 0;
            EXPECT_EQ(whole, save());
        }
    }
}

TEST_F(structure_text, one_that_breaks_off_is_reported_and_the_next_is_complete) {
    builder.scene_2d(u"S").layer("rtr_lr2d", u"L", write(src(u"l.tif"))).save(source);
    wanted.write_layer_names = true;
    wanted.indent_text = u" ";
    load();
    const std::string whole = save();
    for (const auto& [call, number] : {std::pair("open to write", 4U), {"name", 2U}}) { // below a scene
        load();
        script.events.clear();
        faulty_system faults({call}, number);
        faults.breaks_off = true;
        {
            const platform::system_override in_force(faults);
            const run_result result =
                *call == 'n' ? context->check_path_case(text_file) : context->save_structure(wanted);
            EXPECT_EQ(run_end::broke_off, result.end);
        }
        EXPECT_EQ((events{{kind::error, load_string(text::project_not_saved)}}), told());
        load();
        EXPECT_EQ(whole, save());
    }
}

TEST_F(structure_text, a_resave_without_a_log_appends_to_the_text) {
    builder.scene_2d(u"S").save(source);
    load();
    wanted.indent_text = u"\t";
    const std::string text = save();
    load_and_resave();
    EXPECT_TRUE(read(text_file).starts_with(text + "Begin correction select\r\n"));
    EXPECT_EQ(u"    ", context->options.indent_unit);
}

// Before any resave the files go to the current folder, which is N:\out here.
class scene_files : public builder_run {
protected:
    scene_files() : before_(std::filesystem::current_path()) {
        EXPECT_FALSE(platform::set_current_folder(n + u"none"));
        EXPECT_TRUE(platform::set_current_folder(n + u"out"));
    }
    ~scene_files() override { std::filesystem::current_path(before_); }

    std::vector<std::string> write_files(uint32_t on_exists) {
        script.events.clear();
        EXPECT_TRUE(context->create_scene_files({u"unused", static_cast<on_existing_file>(on_exists)}));
        EXPECT_EQ(texts{load_string(text::scene_files_saved)}, script.texts(kind::message));
        EXPECT_EQ(0U, script.open_windows);
        return files();
    }

private:
    const std::filesystem::path before_;
};

TEST_F(scene_files, have_valid_names_and_can_be_moved_with_their_data) {
    for (const wide_view name : {u"1", u"2"})
        builder.scene_2d(u"A").layer("rtr_lr2d", u"L", out(name) + u".tif");
    for (const wide_view name : {u"A", u"a:b?", u"1.5 <\"x\"|*>", u".sn"}) builder.scene_2d(name);
    builder.save(source);
    load();
    std::vector<std::string> names{".sn._sn",  "1.5 __x____._sn", "A(1)(2)._sn",
                                   "A(1)._sn", "A._sn",           "a_b_._sn"};
    EXPECT_EQ(names, write_files(1)) << "the last name with a further number";
    std::filesystem::current_path(native("n")); // Windows cannot rename the current folder
    std::filesystem::rename(native("n") / "out", native("n") / "moved");
    EXPECT_EQ("A: L=N:\\moved\\1.tif\n", scene_outline(n + u"moved\\A._sn"));
    EXPECT_EQ("A: L=N:\\moved\\2.tif\n", scene_outline(n + u"moved\\A(1)._sn"));
    std::filesystem::rename(native("n") / "moved", native("n") / "out");
}

TEST_F(scene_files, rewriting_takes_the_old_file_first_so_a_failure_leaves_none) {
    builder.scene_2d(u"A").layer("rtr_lr2d", u"L", c + u"new.tif").save(source);
    load();
    const struct {
        faulty_system::kinds failing;
        uint32_t on_exists; // 0: rewrite; 2 is undefined and overwrites the file
        std::string begins;
    } rows[] = {{{}, 0, "<"},
                {{}, 2, "<"},
                {{"delete"}, 0, "<"},
                {{"open to write"}, 0, ""},
                {{"open to write"}, 2, "o"}};
    for (const auto& row : rows) {
        remove_tree(n + u"out\\a._sn");
        write(n + u"out\\a._SN", "older");
        faulty_system faults(row.failing, 1, SIZE_MAX);
        const platform::system_override in_force(faults);
        EXPECT_EQ(row.begins.size(), write_files(row.on_exists).size());
        EXPECT_EQ(row.begins, read(n + u"out\\a._sn").substr(0, 1));
    }
}

TEST_F(scene_files, only_selected_2d_scenes_are_written_also_after_a_stopped_run) {
    builder.scene_2d(u"A").scene_2d(u"B").scene_3d(u"C").layout(u"D").save(source);
    load();
    context->selection.set_selected(builder.id(u"A"), false);
    script.stop_at_poll = 1;
    structure_settings stopped;
    stopped.output_path = u"C:\\structure.txt";
    EXPECT_TRUE(context->save_structure(stopped));
    EXPECT_TRUE(context->progress.stopped);
    EXPECT_EQ((std::vector<std::string>{"B._sn"}), write_files(0));
}

TEST_F(scene_files, after_a_resave_their_folder_is_the_path_of_the_new_project) {
    builder.scene_2d(u"A").save(source);
    load_and_resave();
    load();
    EXPECT_EQ(std::vector<std::string>{},
              write_files(0)); // the path is that of a file, so nothing can be written there
    EXPECT_EQ(output + u"\\A._sn", std::prev(context->placement.placed.end())->new_path);
}

} // namespace
} // namespace vs::project_resave
