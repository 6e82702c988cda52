// One fault of the system at a time, at every place of a run where it can strike.
#include "framework/resources/text_rows.h"
#include "tests/operations/broken_run.h"
#include "tests/support/faulty_system.h"

namespace vs::project_resave {
namespace {

class run_faults : public broken_run {
protected:
    run_faults() {
        make_small_project();
        small.save(source);
        settings.write_log = true;
    }
    // A run into an empty folder of which this copy, told by its number, fails or breaks off; its source, and
    // empty if there was none.
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
    size_t copies = 0; // that were tried
};

TEST_F(run_faults, a_copy_that_fails_is_named_in_report_and_log_and_all_others_are_made) {
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
        // Of a well's folder the report names the well, and the log the folder.
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

TEST_F(run_faults, a_run_that_breaks_off_leaves_nothing_loaded_and_the_next_one_works) {
    for (const uint32_t structure : {by_type, folder_per_scene}) { // wells have no part in the latter
        settings.structure_variant = static_cast<project_resave::structure>(structure);
        for (size_t at = 1; !run(at, true).empty(); ++at) {
            SCOPED_TRACE(at);
            EXPECT_EQ((std::vector<front::event>{{kind::error, load_string(text::project_not_saved)}}),
                      told());
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

TEST_F(run_faults, a_load_that_breaks_off_is_told_and_leaves_nothing_and_the_next_one_is_whole) {
    project_builder()
        .scene_2d(u"M")
        .layer("rtr_lr2d", u"R", u"C:\\data\\r.tif")
        .save_scene(u"C:\\prj\\m._sn");
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

} // namespace
} // namespace vs::project_resave
