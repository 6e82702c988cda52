// A fault of the operating system at every place of a run where it can occur, and a stop at every poll.
#include "tests/operations/broken_run.h"
#include "tests/support/faulty_system.h"

namespace vs::project_resave {
namespace {

class run_faults : public broken_run {
protected:
    run_faults() {
        make_small_project();
        builder.save(source);
        settings.write_log = true;
    }
    // Runs into an empty folder while the copy with this number fails or throws. Returns its source, or an
    // empty text if there was none.
    wide_string run(size_t fault_at, bool breaks_off = false) {
        remove_tree(u"N:\\out");
        write(u"N:\\out\\new_log.txt");
        load();
        faulty_system faults({"copy"}, fault_at);
        faults.breaks_off = breaks_off;
        const platform::system_override in_force(faults);
        resave();
        copies = faults.count;
        return faults.failed.empty() ? wide_string() : faults.failed[0];
    }
    size_t copies = 0; // attempted so far
};

TEST_F(run_faults, a_failed_copy_is_in_report_and_log_and_all_others_are_made) {
    run(0);
    ASSERT_EQ(16U, copies);
    EXPECT_TRUE(context->report.problems().empty());
    const std::string whole = outline();
    for (size_t at = 1; at <= 16; ++at) {
        const wide_string failed = run(at);
        SCOPED_TRACE(platform::to_utf8(failed));
        // There is no .tfr without the .tfw, and no folder without its well.
        const bool takes_one_along = failed == u"C:\\data\\r.tfw" || failed == u"C:\\data\\w.wel";
        EXPECT_EQ(takes_one_along ? 15U : 16U, copies);
        ASSERT_EQ(1U, context->report.problems().size());
        // For a folder of a well, the report names the well and the log names the folder.
        const bool is_in_folder = failed == u"C:\\data\\w\\logs\\1.las";
        const wide_string reported = is_in_folder ? u"w.wel" : path_file_name(failed);
        const wide_string logged = is_in_folder ? u"C:\\data\\w" : failed;
        EXPECT_EQ(u"Copy error " + reported + u"\n", context->report.problems()[0].text);
        EXPECT_FALSE(context->placement.is_placed(failed)) << "nothing may come to refer to it";
        EXPECT_NE(std::string::npos,
                  read(u"N:\\out\\new_log.txt")
                      .find("Failure copying file: \r\n" + platform::to_utf8(logged) + "\r\n \n"));
        EXPECT_EQ(whole, outline());
    }
}

TEST_F(run_faults, a_failed_run_leaves_nothing_loaded_and_the_next_one_works) {
    for (const uint32_t structure : {by_type, folder_per_scene}) { // the latter has no wells
        settings.structure_variant = static_cast<project_resave::structure>(structure);
        for (size_t at = 1; !run(at, true).empty(); ++at) {
            SCOPED_TRACE(at);
            EXPECT_EQ((events{{kind::error, load_string(text::project_not_saved)}}), told());
            expect_nothing_left_over();
            EXPECT_FALSE(path_exists(output));
        }
        EXPECT_EQ(structure == by_type ? 16U : 10U, copies);
        run(1, true);
    }
    settings.structure_variant = by_type;
    run(0);
    EXPECT_EQ(16U, copies);
    EXPECT_TRUE(context->report.saved);
}

TEST_F(run_faults, a_failed_load_is_reported_and_the_next_one_is_complete) {
    project_builder map;
    map.scene_2d(u"M").layer("rtr_lr2d", u"R", u"C:\\data\\r.tif").save_scene(u"C:\\prj\\m._sn");
    project_builder().scene_2d(u"S").layer("vs_scene_layer_meta_id", u"M", u"C:\\prj\\m._sn").save(source);
    for (size_t at = 1, failures = 1; failures != 0; ++at) {
        script.events.clear();
        {
            faulty_system faults({"kind"}, at);
            faults.breaks_off = true;
            const platform::system_override in_force(faults);
            const bool loaded = context->load_project(source, true, false);
            failures = faults.failed.size();
            EXPECT_EQ(loaded ? 0 : 1,
                      std::ranges::count(errors(), load_string(text::failed_to_load_project)));
            EXPECT_EQ(loaded, context->project != nullptr);
            EXPECT_EQ(loaded, !context->tree.empty() || !context->units.rows().empty());
            EXPECT_EQ(loaded, context->sizes.total_kb() > 0);
        }
        load();
        EXPECT_EQ(1U, context->total_units);
    }
}

class stopping : public broken_run {
protected:
    stopping() {
        make_small_project();
        builder.scene_2d(u"Area 2").layer("shp_pln_lr2d", u"A again", u"C:\\data\\a.shp").save(source);
    }
    // What is in the new folder before the run: some names are taken, some folders exist.
    tree_state older() const {
        remove_tree(u"N:\\out");
        for (const wide_string name : {u"shp\\a.shp", u"data\\a.shp", u"Area 1\\data\\x", u"rtr\\other.tif",
                                       u"well\\old.wel", u"maps\\roads.shp", u"Geology\\readme.txt"})
            write(u"N:\\out\\" + name, "older");
        return target();
    }
    // Under each structure, stops each run at a later one of `places` places, or at each poll.
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
                // At the last poll the project has been written.
                EXPECT_EQ(poll == polls, path_exists(output));
            }
        }
    }
};

TEST_F(stopping, with_an_erasure_leaves_the_target_as_it_was) {
    settings.save_layer_files = settings.save_scene_files = true;
    stop_everywhere(answer::yes, SIZE_MAX);
    copy_sample();
    stop_everywhere(answer::yes, 2);
}

TEST_F(stopping, without_an_erasure_leaves_whole_copies_and_no_project) {
    settings.save_layer_files = settings.save_scene_files = true;
    stop_everywhere(answer::no, SIZE_MAX);
    copy_sample();
    stop_everywhere(answer::no, 2);
}

TEST_F(stopping, a_cancelled_stop_changes_nothing) {
    older();
    stop_at(0, answer::no);
    const std::vector<std::string> whole = files();
    for (size_t poll = script.polls; poll > 0; --poll) {
        older();
        stop_at(poll, answer::cancel);
        EXPECT_EQ(1U, script.texts(kind::yes_no_cancel).size());
        EXPECT_EQ((texts{load_string(text::project_saved)}), script.texts(kind::message));
        EXPECT_EQ(whole, files());
    }
}

TEST_F(stopping, folders_of_the_run_are_erased_with_read_only_files) {
    using std::filesystem::perms;
    output = u"N:\\deep\\er\\new._vp";
    const auto original = platform::native_path(u"C:\\data\\t.dbf");
    std::filesystem::permissions(original, perms::owner_read);
    stop_at(0, answer::no);
    const auto copied = std::filesystem::status(platform::native_path(u"N:\\deep\\er\\dbf\\t.dbf"));
    EXPECT_EQ(perms::none, copied.permissions() & perms::owner_write);
    remove_tree(u"N:\\deep");
    load();
    const tree_state before = target();
    script.stop_at_poll = script.polls - 1;         // the last before the project is written
    script.answers = {answer::closed, answer::yes}; // a box closed by its title bar means erase
    resave();
    EXPECT_EQ("", difference(before, target()));
    EXPECT_TRUE(context->project && !context->tree.empty()) << "the source opens again";
    std::filesystem::permissions(original, perms::owner_all);
}

} // namespace
} // namespace vs::project_resave
