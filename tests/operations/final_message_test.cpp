// How the outcome of a run is told.
#include "framework/strings.h"
#include "tests/support/host_fixture.h"

namespace vs::project_resave {
namespace {

using kind = vestra::shell::scripted_front_end::kind;
using report = run_report;

class final_message : public host_fixture {
protected:
    // A saved run with one list that lost so many files, of a line each.
    static report with_lines(size_t count) {
        report made;
        made.saved = true;
        made.current_unit = u"Area";
        for (size_t line = 0; line < count; ++line) made.add_lost_source(u"x");
        return made;
    }
    static report with(bool exceeded, std::set<wide_string> types, std::vector<report::problem> problems) {
        report made;
        made.saved = true;
        made.depth_exceeded = exceeded;
        made.unprocessed_types = std::move(types);
        made.problems = std::move(problems);
        return made;
    }
};

TEST_F(final_message, the_worst_comes_first_and_everything_that_went_wrong_is_named) {
    const wide_string head = u"Resave processing error:\n\n", types = u"Layers is not resaving:\n";
    const wide_string exceeded = load_string(522) + u"\n\n";
    const report::problem a{u"A", u"Lost files L\n"}, b{u"B", u"Copy error x.shp\nCopy error y.shp\n"};
    report stopped = with(true, {u"t"}, {a}), unsaved = stopped, erased = stopped;
    stopped.stopped = true;
    unsaved.saved = false;
    erased.stopped = true;
    erased.saved = false;
    const struct {
        report told;
        kind box;
        wide_string text;
    } rows[] = {
        {stopped, kind::message, u"Overstore was interrupted by the user"},
        {erased, kind::message, u"Overstore was interrupted by the user"},
        {unsaved, kind::error, u"Error! The project is not saved!"},
        {with(false, {}, {}), kind::message, u"Project saved"},
        {with(true, {}, {}), kind::warning, head + exceeded},
        {with(false, {u"u", u"t"}, {}), kind::warning, head + types + u"t\nu\n"},
        {with(false, {}, {a}), kind::warning, head + u"A:\nLost files L\n"},
        {with(false, {}, {a, b}), kind::warning,
         head + u"A:\nLost files L\n\nB:\nCopy error x.shp\nCopy error y.shp\n"},
        {with(true, {u"t"}, {a}), kind::warning, head + exceeded + types + u"t\n\nA:\nLost files L\n"},
    };
    for (const auto& row : rows) {
        script.events.clear();
        row.told.show_final_message();
        EXPECT_EQ((std::vector<front::event>{{row.box, row.text}}), script.events);
    }
    EXPECT_TRUE(dialogs.empty());
}

TEST_F(final_message, more_than_25_lines_go_into_a_dialog_that_scrolls) {
    wide_string body;
    on_dialog = [&](const dialog_view& shown) {
        body = find(shown, u"multiline_output")->text;
        return 1;
    };
    with_lines(24).show_final_message();
    EXPECT_EQ(1U, script.texts(kind::warning).size());
    EXPECT_TRUE(dialogs.empty());
    with_lines(25).show_final_message();
    EXPECT_EQ(1U, script.events.size());
    EXPECT_EQ(1U, dialogs.size());
    EXPECT_TRUE(body.starts_with(u"Area:\nLost files x\n"));
    EXPECT_EQ(26, std::ranges::count(body, u'\n')) << "whole, with the title";
}

} // namespace
} // namespace vs::project_resave
