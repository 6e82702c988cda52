#include "tests/services/services_run.h"

namespace vs::project_resave {
namespace {

using vestra::any;

any tuple_of(const texts& all) {
    vestra::tuple tuple;
    for (const wide_string& text : all) tuple.elements.emplace_back(text);
    return any(tuple);
}

class sample_bundle : public services_run {
protected:
    sample_bundle() {
        for (const wide_string name :
             {u"quarry.txt", u"quarry.csv", u"pics\\a.jpg", u"pics\\deep\\b.jpg", u"bridge.txt"})
            write(u"C:\\prj\\field\\" + name);
        builder.scene_2d(u"Area").layer("rtr_lr2d", u"Relief", write(u"C:\\prj\\relief.tif"));
        pin({u"Quarry, east", u"C:\\prj\\field\\QUARRY.txt"});
        pin({u"Quarry", u"C:\\prj\\field\\quarry.txt", u"quarry.csv", u"pics"});
        pin({u"Bridge", u"C:\\prj\\field\\bridge.txt"});
        pin({u"Well", u"C:\\prj\\field\\well.txt"});                 // there is no such file
        pin({u"Memory"});                                            // without a file
        pin({u"Map", u"C:\\prj\\relief.tif", u"field\\bridge.txt"}); // only the layer's file is copied
    }

    // Pins a note to the last layer: caption, file, and companions.
    void pin(texts note) {
        any& notes = builder.model.scenes_2d.at(0)->at(0)->extras.set("sample_notes");
        if (!notes.as_tuple()) notes = any(vestra::tuple());
        note.resize(std::max<size_t>(note.size(), 2));
        note.insert(note.begin(), builder.id(note[0]));
        notes.as_tuple()->elements.push_back(tuple_of(note));
    }
    // Returns a line for each note of the new project: "caption > file".
    std::string notes() {
        wide_string all;
        any* kept = copied(0).extras.find("sample_notes");
        for (any& note : kept->as_tuple()->elements)
            if (const auto* row = note.as_tuple(); row->elements.size() > 2)
                all += *row->elements[1].as_text() + u" > " + *row->elements[2].as_text() + u'\n';
        return platform::to_utf8(all);
    }
};

// With a folder for each scene no service is saved. If the name of a main file is taken, the files keep their
// names, but the item gets a path with a number.
TEST_F(sample_bundle, its_items_go_where_the_structure_wants_them_and_leave_if_unticked_or_lost) {
    start(true);
    unticked = {u"Bridge"};
    std::string all;
    for (const resave_settings& row : std::initializer_list<resave_settings>{
             {},
             {.structure_variant = from_project_folder, .delete_lost_sources = true},
             {.structure_variant = project_tree_else_type, .delete_lost_sources = true},
             {.structure_variant = from_common_top},
             {.structure_variant = folder_per_scene},
             {.lower_case = true}}) {
        clear_output();
        if (row.lower_case) write(u"N:\\out\\notes\\quarry.txt", "in the way");
        settings = row;
        run();
        all += outcome() + notes() + '\n';
    }
    EXPECT_EQ("", first_difference(committed("tests/services/expected/notes.txt"), all));
    EXPECT_EQ("in the way", read(u"N:\\out\\notes\\quarry.txt"));
    unticked = {u"Relief"}; // the layer with its notes
    clear_output();
    run();
    EXPECT_EQ("\nArea:\n", outcome());
}

class sketches : public sample_bundle {
protected:
    sketches() {
        write(u"C:\\prj\\plan.sketch.legend");
        builder.last().extras.rows().clear();
        builder.layer("sample_sketch_lr2d", u"Plan", write(u"C:\\prj\\plan.sketch"));
        builder.last().extras.set("sample_sketch") =
            tuple_of({builder.id(u"Relief"), u"no uuid", builder.id(u"gone")});
        start(true);
    }
};

TEST_F(sketches, what_a_sketch_is_drawn_over_is_added_if_the_user_agrees) {
    unticked = {u"Relief"};
    settings.save_layer_files = true;
    std::vector<std::string> expected{"Plan._lr", "sketches/plan.sketch", "sketches/plan.sketch.legend"};
    for (const answer given : {answer::no, answer::yes}) {
        script.answers = {given};
        clear_output();
        run();
        ASSERT_EQ(expected, files());
        EXPECT_EQ(texts{}, problems);
        expected.insert(expected.begin() + 1, {"Relief._lr", "rtr/relief.tif"});
    }
    EXPECT_EQ(u"N:\\out\\sketches\\plan.sketch", copied(1).file);
}

TEST_F(sketches, one_that_is_lost_leaves_and_half_a_copy_is_taken_away_again) {
    settings.delete_lost_sources = true;
    write(u"N:\\out\\sketches\\plan.sketch.legend", "in the way");
    run();
    EXPECT_EQ(texts{u"Area: Copy error plan.sketch\n"}, problems);
    EXPECT_EQ((std::vector<std::string>{"rtr/relief.tif", "sketches/plan.sketch.legend"}), files());
    EXPECT_EQ("in the way", read(u"N:\\out\\sketches\\plan.sketch.legend"));
    std::filesystem::remove(native("c") / "prj" / "plan.sketch");
    run();
    EXPECT_EQ(1U, copy->scenes_2d.at(0)->count());
    EXPECT_EQ(texts{u"Area: Lost files Plan\n"}, problems);
}

TEST_F(sketches, a_bundle_unloaded_before_the_run_loses_only_its_own_part) {
    builder.model.map_legends.make().caption = u"Geology";
    pin({u"Quarry", u"C:\\prj\\field\\quarry.txt"});
    builder.save(source);
    load();
    sample_loader.unload_all();
    resave_and_read();
    EXPECT_EQ(texts{u"Area: Copy error plan.sketch\n"}, problems);
    EXPECT_EQ("Quarry > C:\\prj\\field\\quarry.txt\n", notes());
    EXPECT_EQ(std::vector<std::string>{"rtr/relief.tif"}, files());
    EXPECT_EQ(1U, copy->map_legends.count());
    load_sample(); // too late for this context, and without effect
    run();
    EXPECT_EQ((std::set<wide_string>{u"sample_sketch_lr2d"}), context->report.unprocessed_types());
}

} // namespace
} // namespace vs::project_resave
