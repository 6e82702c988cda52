// A stop at every point at which a run asks for one.
#include "core/path_files.h"
#include "framework/strings.h"
#include "tests/support/host_fixture.h"
#include "tests/support/project_builder.h"
#include "tests/support/tree_state.h"

namespace vs::project_resave {
namespace {

using kind = vestra::shell::scripted_front_end::kind;

class stopping : public host_fixture {
protected:
    stopping() {
        for (const wide_string name : {u"a.shp", u"a.shx", u"a.dbf", u"a_shp.pj4", u"r.tif", u"r.tfw",
                                       u"w.wel", u"w\\logs\\1.las", u"t.dbf", u"t.cpg", u"joined.dbf"})
            write(u"C:\\data\\" + name, platform::to_utf8(name));
        project_builder()
            .scene_2d(u"Area 1")
            .layer("shp_pln_lr2d", u"A", u"C:\\data\\a.shp")
            .layer("rtr_lr2d", u"R", u"C:\\data\\r.tif")
            .layer("plugin_lr_2d_well_hole_2d_3", u"W", u"C:\\data\\w.wel")
            .scene_2d(u"Area 2")
            .layer("shp_pln_lr2d", u"A again", u"C:\\data\\a.shp")
            .table(u"T", u"C:\\data\\t.dbf")
            .join(u"C:\\data\\joined.dbf")
            .save(source);
    }
    // What stands in the new folder before the run: some names are taken, some folders are there.
    void older() const {
        remove_tree(u"N:\\out");
        for (const wide_string name : {u"shp\\a.shp", u"rtr\\other.tif", u"well\\old.wel", u"readme.txt"})
            write(u"N:\\out\\" + name, "older");
    }
    tree_state target() const { return state_of(native("n")); }

    // Runs again and again, each run stopped one poll later, until a run has no more
    // polls. After each run `check` looks at what is left.
    template <class Check>
    void stop_at_every_poll(answer given, Check check) {
        settings.save_layer_files = settings.save_scene_files = true;
        const tree_state sources = state_of(native("c"));
        for (const uint32_t structure : {by_type, folder_per_scene}) {
            settings.structure_variant = structure;
            stop_at(0, given);
            const size_t polls = script.polls;
            EXPECT_LT(18U, polls);
            for (size_t poll = 1; poll <= polls && !HasFailure(); ++poll) {
                SCOPED_TRACE(testing::Message() << "structure " << structure << ", poll " << poll);
                const tree_state before = stop_at(poll, given);
                check(before, poll == polls);
                expect_nothing_left_over();
                EXPECT_EQ("", difference(sources, state_of(native("c"))));
            }
        }
    }
    // One run; what stood in the target before it.
    tree_state stop_at(size_t poll, answer given) {
        older();
        tree_state before = target();
        load();
        script.stop_at_poll = poll;
        script.answers = {given, answer::no};
        resave();
        return before;
    }
    void expect_nothing_left_over() const {
        EXPECT_FALSE(context->project);
        EXPECT_TRUE(context->tree.empty() && context->units.empty());
        EXPECT_TRUE(context->deferred_joins_.pending.empty());
        EXPECT_EQ(u"files", context->placement.type_folder);
        EXPECT_EQ(nullptr, context->placement.scene_common);
        EXPECT_EQ(nullptr, context->progress.window);
        EXPECT_EQ(1U, changes);
    }
    // What the user is told of a run that was stopped.
    void expect_told_as_stopped() const {
        EXPECT_EQ((std::vector<front::event>{{kind::yes_no_cancel, load_string(359)},
                                             {kind::wait, load_string(360)},
                                             {kind::message, load_string(513)},
                                             {kind::yes_no, load_string(528)}}),
                  told());
    }
    // Each copy is its source, and nothing stands there that was neither copied nor there before.
    void expect_whole_copies(const tree_state& before) const {
        std::set<std::string> known;
        const auto root = native("n");
        for (const auto& [old_path, new_path] : context->placement.placed) {
            const auto from = platform::native_path(old_path), to = platform::native_path(new_path);
            known.insert(to.lexically_relative(root).generic_string());
            if (old_path.empty() || old_path == source) continue; // written, not copied
            EXPECT_EQ(read(old_path), read(new_path));
            EXPECT_EQ("", difference(state_of(from), state_of(to)));
            for (const auto& [path, state] : state_of(to))
                known.insert((to / path).lexically_relative(root).generic_string());
        }
        for (const auto& [path, state] : target())
            EXPECT_TRUE(state.is_folder || before.contains(path) || known.contains(path)) << path;
    }
};

TEST_F(stopping, with_erasure_leaves_the_target_as_it_was_and_nothing_that_was_there_goes) {
    stop_at_every_poll(answer::yes, [&](const tree_state& before, bool) {
        EXPECT_EQ("", difference(before, target()));
        EXPECT_TRUE(context->report.stopped);
        expect_told_as_stopped();
    });
}

TEST_F(stopping, without_erasure_leaves_whole_copies_and_no_project) {
    stop_at_every_poll(answer::no, [&](const tree_state& before, bool is_last) {
        expect_told_as_stopped();
        expect_whole_copies(before);
        // The last poll comes when the project is written already.
        EXPECT_EQ(is_last, path_exists(output));
        for (const auto& [path, state] : before) EXPECT_EQ(state.bytes, target()[path].bytes) << path;
    });
}

TEST_F(stopping, a_cancelled_stop_changes_nothing) {
    stop_at(0, answer::no);
    const tree_state whole = target();
    for (size_t poll = 1, polls = script.polls; poll <= polls; ++poll) {
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
    load();
    const tree_state before = target();
    script.stop_at_poll = 21; // the last before the project is written
    script.answers = {answer::yes, answer::yes};
    resave();
    EXPECT_TRUE(context->report.stopped);
    EXPECT_EQ("", difference(before, target()));
    EXPECT_TRUE(context->project) << "the source opens again";
    EXPECT_FALSE(context->tree.empty());
}

TEST_F(stopping, the_log_goes_with_the_copies_or_tells_of_the_stop) {
    settings.write_log = true;
    for (const bool erases : {false, true}) {
        write(u"N:\\out\\new_log.txt", "of an earlier run");
        load();
        script.stop_at_poll = 10;
        script.answers = {erases ? answer::yes : answer::no, answer::no};
        resave();
        EXPECT_EQ(!erases, read(u"N:\\out\\new_log.txt").ends_with("The operation was interrupted\n\r\n"));
        EXPECT_EQ(!erases, path_exists(u"N:\\out\\new_log.txt"));
    }
}

} // namespace
} // namespace vs::project_resave
