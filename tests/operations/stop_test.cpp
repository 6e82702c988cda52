// A stop at every point at which a run asks for one, under every folder structure.
#include "framework/resources/text_rows.h"
#include "tests/operations/broken_run.h"

namespace vs::project_resave {
namespace {

class stopping : public broken_run {
protected:
    stopping() {
        make_small_project();
        small.scene_2d(u"Area 2").layer("shp_pln_lr2d", u"A again", u"C:\\data\\a.shp").save(source);
    }
    // What stands in the new folder before the run: some names are taken, some folders are there.
    tree_state older() const {
        remove_tree(u"N:\\out");
        for (const wide_string name : {u"shp\\a.shp", u"data\\a.shp", u"Area 1\\data\\x", u"rtr\\other.tif",
                                       u"well\\old.wel", u"maps\\roads.shp", u"Geology\\readme.txt"})
            write(u"N:\\out\\" + name, "older");
        return target();
    }
    // Under each structure, run after run is stopped at a later one of so many places, or at each poll.
    void stop_everywhere(answer given, size_t places) {
        for (uint32_t structure = by_type; structure <= folder_per_scene; ++structure) {
            settings.structure_variant = static_cast<project_resave::structure>(structure);
            older();
            stop_at(0, given);
            const size_t polls = script.polls, step = std::max<size_t>(1, polls / places);
            EXPECT_LT(18U, polls);
            for (size_t poll = polls; poll > 0 && !HasFailure(); poll -= std::min(step, poll)) {
                SCOPED_TRACE(testing::Message() << "structure " << structure << ", poll " << poll);
                const tree_state before = older();
                stop_at(poll, given);
                expect_told_as_stopped();
                expect_nothing_left_over();
                if (given == answer::yes) {
                    EXPECT_EQ("", difference(before, target()));
                    continue;
                }
                expect_whole_copies(before);
                // The last poll comes when the project is written already.
                EXPECT_EQ(poll == polls, path_exists(output));
            }
        }
    }
};

TEST_F(stopping, with_erasure_leaves_the_target_as_it_was_and_without_it_whole_copies_and_no_project) {
    settings.save_layer_files = settings.save_scene_files = true;
    for (const answer given : {answer::yes, answer::no}) stop_everywhere(given, SIZE_MAX);
    copy_sample();
    for (const answer given : {answer::yes, answer::no}) stop_everywhere(given, 2);
}

TEST_F(stopping, a_cancelled_stop_changes_nothing) {
    older();
    stop_at(0, answer::no);
    const std::vector<std::string> whole = files();
    for (size_t poll = script.polls; poll > 0; --poll) {
        older();
        stop_at(poll, answer::cancel);
        EXPECT_EQ(1U, script.texts(kind::yes_no_cancel).size());
        EXPECT_EQ((std::vector<wide_string>{load_string(text::project_saved)}), script.texts(kind::message));
        EXPECT_EQ(whole, files());
    }
}

TEST_F(stopping, a_new_folder_that_the_run_made_goes_with_all_its_levels_and_read_only_files) {
    using std::filesystem::perms;
    output = u"N:\\deep\\er\\new._vp";
    const auto original = platform::native_path(u"C:\\data\\t.dbf");
    std::filesystem::permissions(original, perms::owner_read);
    stop_at(0, answer::no);
    const auto copy = std::filesystem::status(platform::native_path(u"N:\\deep\\er\\dbf\\t.dbf"));
    EXPECT_EQ(perms::none, copy.permissions() & perms::owner_write);
    remove_tree(u"N:\\deep");
    load();
    const tree_state before = target();
    script.stop_at_poll = script.polls - 1;         // the last before the project is written
    script.answers = {answer::closed, answer::yes}; // a box closed by the system's button erases
    resave();
    EXPECT_EQ("", difference(before, target()));
    EXPECT_TRUE(context->project && !context->tree.empty()) << "the source opens again";
    std::filesystem::permissions(original, perms::owner_all);
}

TEST_F(stopping, the_log_goes_with_the_copies_or_tells_of_the_stop) {
    settings.write_log = true;
    for (const bool erases : {false, true}) {
        write(u"N:\\out\\new_log.txt", "of an earlier run");
        stop_at(10, erases ? answer::yes : answer::no);
        EXPECT_EQ(!erases, read(u"N:\\out\\new_log.txt").ends_with("The operation was interrupted\n\r\n"));
        EXPECT_EQ(!erases, path_exists(u"N:\\out\\new_log.txt"));
    }
}

} // namespace
} // namespace vs::project_resave
