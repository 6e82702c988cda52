// The text of a project's structure: whole files for the sample, then one choice at a time.
#include "operations/run_settings.h"

#include "framework/resources/strings.h"
#include "reference_host/shell/front_end.h"
#include "tests/support/host_fixture.h"
#include "tests/support/project_builder.h"

namespace vs::project_resave {
namespace {

using kind = vestra::shell::scripted_front_end::kind;

class structure_text : public host_fixture {
protected:
    structure_text() { wanted.output_path = text_file.c_str(); }

    std::string save() {
        script.events.clear();
        script.polls = 0;
        EXPECT_TRUE(context->save_structure(wanted));
        EXPECT_EQ(0U, script.open_windows);
        return read(text_file);
    }
    std::vector<wide_string> messages() const { return script.texts(kind::message); }

    const wide_string text_file = n + u"out\\structure.txt";
    structure_settings wanted;
};

TEST_F(structure_text, of_the_sample_is_the_committed_file_byte_for_byte_and_changes_nothing) {
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
        EXPECT_EQ(committed(std::string("tests/operations/expected/") + row.file), save());
        EXPECT_EQ(std::vector<wide_string>{load_string(text::structure_saved)}, messages());
    }
    EXPECT_EQ("", difference(before, sources()));
    EXPECT_EQ(1U, context->report.unprocessed_types().count(u"wfs_pnt_lr2d")); // still to be told by a resave
}

TEST_F(structure_text, groups_are_shown_as_the_user_sees_them_with_what_is_selected) {
    project_builder built;
    built.scene_2d(u"First").layer("rtr_lr2d", u"A").layer("rtr_lr2d", u"B").layer("rtr_lr2d", u"C");
    built.layer("unheard_of", u"U");
    vestra::scene& first = *built.model.scenes_2d.at(0);
    vestra::layer_group& outer = first.make_groups().add_group(u"Outer");
    first.groups->add_layer(*first.at(2));
    outer.add_group(u"Inner").add_layer(*first.at(0));
    outer.add_layer(*first.at(1));
    outer.add_group(u"Empty");
    first.groups->add_group(u"Unheard").add_layer(*first.at(3));
    built.scene_2d(u"Second").layer("rtr_lr2d", u"D").save(source);
    load();
    wanted.write_layer_names = true;
    wanted.indent_text = u" ";
    const struct {
        std::vector<wide_string> deselected;
        uint32_t steps; // of four, the last never shown: none for a layer that its group leaves out
        bool inverted = false;
    } rows[] = {{{}, 3},
                {{}, 3, true},
                {{built.id(u"A")}, 3},
                {{built.id(u"A"), built.id(u"B"), built.id(u"U")}, 2},
                {{built.id(u"First"), built.id(u"D")}, 3}};
    std::string all;
    for (const auto& row : rows) {
        context->selection.clear();
        for (const wide_string& id : row.deselected) context->selection.set_selected(id, false);
        vestra::shell::settings().invert_layers = row.inverted;
        all += save();
        EXPECT_EQ(row.steps, script.current);
    }
    EXPECT_EQ(committed("tests/operations/expected/structure_groups.txt"), all);
}

TEST_F(structure_text, a_text_that_cannot_be_written_is_told_as_if_it_were) {
    project_builder().scene_2d(u"S").save(source);
    load();
    write(n + u"out\\folder\\kept");
    for (const char16_t* path : {u"N:\\none\\t.txt", u"N:\\out\\folder"}) {
        wanted.output_path = path;
        EXPECT_EQ("", save());
        EXPECT_EQ(std::vector<wide_string>{load_string(text::structure_saved)}, messages());
        EXPECT_FALSE(path_exists(n + u"none"));
        EXPECT_TRUE(path_exists(n + u"out\\folder\\kept"));
    }
    script.stop_at_poll = 1;
    save();
    EXPECT_TRUE(path_exists(n + u"out\\folder\\kept")) << "a stop takes away what the run made";
}

TEST_F(structure_text, a_stop_takes_the_file_away_whatever_is_answered_and_the_next_text_is_whole) {
    project_builder().scene_2d(u"S").layer("rtr_lr2d", u"L").scene_2d(u"S").save(source);
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
            EXPECT_EQ(std::vector<wide_string>{load_string(goes_on ? text::structure_saved
                                                                   : text::interrupted_by_user)},
                      messages());
            script.stop_at_poll = 0;
            EXPECT_EQ(whole, save());
        }
    }
}

TEST_F(structure_text, a_resave_without_a_log_writes_on_behind_the_text) {
    project_builder().scene_2d(u"S").save(source);
    load();
    wanted.indent_text = u"\t";
    const std::string text = save();
    load_and_resave();
    EXPECT_TRUE(read(text_file).starts_with(text + "Begin correction select\r\n"));
    EXPECT_EQ(u"    ", context->options.indent_unit);
}

} // namespace
} // namespace vs::project_resave
