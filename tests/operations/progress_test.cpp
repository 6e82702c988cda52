#include <gtest/gtest.h>

#include "core/resave_options.h"
#include "framework/strings.h"
#include "operations/run_progress.h"
#include "operations/run_report.h"
#include "reference_host/model/counted.h"
#include "tests/support/scripted_front_end.h"

namespace vs::project_resave {
namespace {

using vestra::shell::answer;
using vestra::shell::scripted_front_end;

class progress : public testing::Test {
protected:
    ~progress() override { EXPECT_EQ(0u, vestra::living_objects()); }

    scripted_front_end script;
    vestra::shell::front_end_override in_force{script};
};

TEST_F(progress, the_bar_never_passes_its_end_and_stands_still_without_one) {
    run_progress run;
    run.start(3);
    for (int step = 0; step < 5; ++step) run.advance(1);
    EXPECT_EQ(2u, run.current);
    EXPECT_EQ(3u, script.total);
    run.start(0);
    run.advance(1);
    EXPECT_EQ(0u, run.current);
    run.set_caption(u"never shown");
    EXPECT_TRUE(script.texts(scripted_front_end::kind::caption).empty());
    run.finish();
    EXPECT_EQ(0u, script.open_windows);
}

TEST_F(progress, a_stop_asks_at_the_next_poll_and_does_what_is_answered) {
    const struct {
        answer given;
        bool stopped, erased;
    } rows[] = {{answer::cancel, false, false},
                {answer::no, true, false},
                {answer::yes, true, true},
                {answer::closed, true, true}};
    for (const auto& row : rows) {
        run_progress run;
        run.start(10);
        script.polls = 0;
        script.stop_at_poll = 2;
        script.answers = {row.given};
        EXPECT_FALSE(run.is_stopped());
        EXPECT_EQ(row.stopped, run.is_stopped());
        EXPECT_EQ(row.stopped, run.is_stopped());
        EXPECT_EQ(row.erased, run.erase_created);
        EXPECT_EQ(row.stopped ? nullptr : run.window, run.window);
        run.finish();
        EXPECT_EQ(row.stopped, run.stopped) << "the caller reads the marks after the end";
    }
    EXPECT_EQ(4u, script.texts(scripted_front_end::kind::yes_no_cancel).size());
}

TEST_F(progress, a_cancelled_stop_can_be_asked_for_again) {
    run_progress run;
    run.start(10);
    script.answers = {answer::cancel, answer::yes};
    script.stop_at_poll = 1;
    EXPECT_FALSE(run.is_stopped());
    script.polls = 0;
    EXPECT_TRUE(run.is_stopped());
}

TEST_F(progress, referenced_elements_are_asked_for_once_with_the_window_out_of_the_way) {
    for (const answer given : {answer::yes, answer::no}) {
        run_progress run;
        resave_options options(&run);
        run.start(10);
        run.advance(4);
        script.events.clear();
        script.answers = {given};
        for (int link = 0; link < 3; ++link) EXPECT_EQ(given == answer::yes, options.ask_add_referenced());
        EXPECT_EQ(1u, script.events.size());
        EXPECT_EQ(4u, script.current);
        options.structure_variant = folder_per_scene;
        options.separator_fallback = u"-";
        options.reset();
        EXPECT_EQ(2u, options.add_referenced);
        EXPECT_TRUE(options.rename_on_conflict);
        EXPECT_EQ(u"-", options.separator_fallback);
        EXPECT_TRUE(options.write_layout_layers && options.write_legend_content);
    }
}

TEST_F(progress, losses_stand_under_the_list_that_was_in_work) {
    run_report report;
    report.add_lost_source(u"dropped");
    EXPECT_TRUE(report.problems.empty());
    report.current_unit = u"Area 1";
    report.add_lost_source(u"Roads");
    report.add_copy_error(u"C:\\a\\b.shp");
    report.current_unit = u"Area 2";
    report.add_copy_error(u"plain");
    report.current_unit = u"Area 1";
    report.add_to_current(u"again\n");
    ASSERT_EQ(3u, report.problems.size()) << "a title that returns gets a row of its own";
    EXPECT_EQ(load_string(519) + u"Roads\n" + load_string(520) + u"b.shp\n", report.problems[0].text);
    EXPECT_EQ(load_string(520) + u"plain\n", report.problems[1].text);
    report.add_unprocessed_type("wfs");
    report.add_unprocessed_type("wfs");
    EXPECT_EQ(1u, report.unprocessed_types.size());
    report.reset();
    EXPECT_TRUE(report.problems.empty() && report.unprocessed_types.empty() && report.current_unit.empty());
}

} // namespace
} // namespace vs::project_resave
