// How the outcome of a run is told.
#include "framework/resources/strings.h"
#include "tests/support/host_fixture.h"

namespace vs::project_resave {
namespace {

using kind = vestra::shell::scripted_front_end::kind;
using final_message = host_fixture;

TEST_F(final_message, the_worst_comes_first_and_everything_that_went_wrong_is_named_under_its_list) {
    run_report plain, full, one;
    plain.saved = full.saved = one.saved = true;
    for (run_report* report : {&full, &one}) report->add(fact_kind::selection_not_settled, {});
    full.add_lost_source({}, u"outside of all lists");
    full.add_unprocessed_type({}, "u", {});
    full.add_unprocessed_type({}, "t", {});
    full.add_unprocessed_type({}, "u", {});
    full.current_unit = u"A";
    full.add_lost_source({}, u"L");
    full.add_copy_error(u"C:\\a\\x.shp", {}, platform::failure::denied);
    full.current_unit = u"B";
    full.add_copy_error({}, {}, platform::failure::denied, u"y");
    full.current_unit = u"A";
    full.add_lost_source({}, u"again");
    run_report stopped = full, unsaved = full, erased = full;
    stopped.stopped = erased.stopped = true;
    unsaved.saved = erased.saved = false;
    const wide_string head =
        u"Resave processing error:\n\n" + load_string(text::references_not_settled) + u"\n\n";
    const struct {
        const run_report& told;
        kind box;
        wide_string text;
    } rows[] = {
        {stopped, kind::message, u"Overstore was interrupted by the user"},
        {erased, kind::message, u"Overstore was interrupted by the user"},
        {unsaved, kind::error, u"Error! The project is not saved!"},
        {plain, kind::message, u"Project saved"},
        {one, kind::warning, head},
        {full, kind::warning,
         head + u"Layers is not resaving:\nt\nu\n\nA:\nLost files L\nCopy error x.shp\n\nB:\nCopy error y\n\n"
                u"A:\nLost files again\n"},
    };
    for (const auto& row : rows) {
        script.events.clear();
        asked.show_report(row.told);
        EXPECT_EQ((std::vector<front::event>{{row.box, row.text}}), script.events);
    }
}

TEST_F(final_message, more_than_25_lines_go_whole_into_a_dialog_that_scrolls) {
    wide_string body;
    on_dialog = [&](const dialog_view& shown) {
        body = find(shown, u"multiline_output")->text;
        return 1;
    };
    run_report report;
    report.saved = true;
    report.current_unit = u"Area";
    for (int line = 0; line < 24; ++line) report.add_lost_source({}, u"x");
    asked.show_report(report);
    EXPECT_TRUE(body.empty() && script.texts(kind::warning).size() == 1);
    report.add_lost_source({}, u"last");
    asked.show_report(report);
    EXPECT_EQ(1U, script.events.size());
    EXPECT_TRUE(body.starts_with(u"Area:\nLost files x\n") && body.ends_with(u"last\n"));
}

} // namespace
} // namespace vs::project_resave
