// A stop at every point at which a run asks for one, under every folder structure.
#include "core/path_files.h"
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
                                       u"well\\old.wel", u"readme.txt"})
            write(u"N:\\out\\" + name, "older");
        return target();
    }
    // Runs again and again, each run stopped one poll later, until a run has no more polls. After each run
    // `check` looks at what is left.
    template <class Check>
    void stop_at_every_poll(answer given, Check check) {
        settings.save_layer_files = settings.save_scene_files = true;
        const tree_state sources = state_of(native("c"));
        for (uint32_t structure = by_type; structure <= folder_per_scene; ++structure) {
            settings.structure_variant = structure;
            older();
            stop_at(0, given);
            const size_t polls = script.polls;
            EXPECT_LT(18U, polls);
            for (size_t poll = 1; poll <= polls && !HasFailure(); ++poll) {
                SCOPED_TRACE(testing::Message() << "structure " << structure << ", poll " << poll);
                const tree_state before = older();
                stop_at(poll, given);
                check(before, poll == polls);
                expect_nothing_left_over();
            }
            EXPECT_EQ("", difference(sources, state_of(native("c"))));
        }
    }
};

TEST_F(stopping, with_erasure_leaves_the_target_as_it_was_and_nothing_that_was_there_goes) {
    stop_at_every_poll(answer::yes, [&](const tree_state& before, bool) {
        EXPECT_EQ("", difference(before, target()));
        expect_told_as_stopped();
    });
}

TEST_F(stopping, without_erasure_leaves_whole_copies_and_no_project) {
    stop_at_every_poll(answer::no, [&](const tree_state& before, bool is_last) {
        expect_told_as_stopped();
        expect_whole_copies(before);
        // The last poll comes when the project is written already.
        EXPECT_EQ(is_last, path_exists(output));
    });
}

TEST_F(stopping, a_cancelled_stop_changes_nothing) {
    older();
    stop_at(0, answer::no);
    const tree_state whole = target();
    for (size_t poll = 1, polls = script.polls; poll <= polls; ++poll) {
        older();
        stop_at(poll, answer::cancel);
        EXPECT_EQ(1U, script.texts(kind::yes_no_cancel).size());
        EXPECT_EQ((std::vector<wide_string>{load_string(502)}), script.texts(kind::message));
        const tree_state now = target();
        EXPECT_EQ(whole.size(), now.size());
        for (const auto& [path, state] : whole) EXPECT_TRUE(now.contains(path)) << path;
    }
}

TEST_F(stopping, a_new_folder_that_the_run_made_goes_with_all_its_levels) {
    output = u"N:\\deep\\er\\new._vp";
    stop_at(0, answer::no);
    remove_tree(u"N:\\deep");
    load();
    const tree_state before = target();
    script.stop_at_poll = script.polls - 1; // the last before the project is written
    script.answers = {answer::yes, answer::yes};
    resave();
    EXPECT_TRUE(context->report.stopped);
    EXPECT_EQ("", difference(before, target()));
    EXPECT_TRUE(context->project) << "the source opens again";
    EXPECT_FALSE(context->tree.empty());
}

TEST_F(stopping, copies_of_read_only_files_are_erased_too) {
    using std::filesystem::perms;
    const auto original = platform::native_path(u"C:\\data\\t.dbf");
    std::filesystem::permissions(original, perms::owner_read);
    older();
    stop_at(0, answer::no);
    const auto copy = std::filesystem::status(platform::native_path(u"N:\\out\\dbf\\t.dbf"));
    EXPECT_EQ(perms::none, copy.permissions() & perms::owner_write);
    const size_t last = script.polls;
    const tree_state before = older();
    stop_at(last, answer::yes);
    EXPECT_EQ("", difference(before, target()));
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
