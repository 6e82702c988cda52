// What the user sees: the naming dialog as a host meets it, through its service and the tables of its
// elements, and the message at the end of a run.
#include "framework/resources/strings.h"
#include "tests/support/host_fixture.h"
#include "ui/dialogs.h"

namespace vs::project_resave {
namespace {

using namespace vestra::toolkit;

class dialogs : public host_fixture {
protected:
    unique_name_answer ask(std::function<int32_t(const dialog_view&)> person) {
        on_dialog = std::move(person);
        return show_unique_name_dialog(u"D:\\gis\\source.shp", proposed);
    }
    const wide_string proposed = write(n + u"proposed.shp"), free = n + u"free.shp";
};

const wide_string name_exists = u"File with such name already exists. Please set new file name.";

TEST_F(dialogs, the_naming_dialog_shows_the_conflict_and_clears_a_taken_name) {
    struct counter final : element_observer_impl {
        void on_changed(element) override { ++count; }
        int count = 0;
    } observed;
    const unique_name_answer given = ask([&](const element_view& dialog) {
        EXPECT_EQ(u"Attention! Naming conflict!", dialog.caption);
        const wide_string texts[] = {name_exists, u"D:\\gis\\source.shp", u"Set path for saving file:",
                                     proposed};
        for (size_t row = 0; row < std::size(texts); ++row)
            EXPECT_EQ(texts[row], dialog.children.at(0).children.at(row).text);
        const auto grid = cast_to<grid_layout_impl>(dialog.children.at(0).live);
        EXPECT_EQ(3U, call<&grid_layout_impl::spare_row>(grid))
            << "the field, so that the texts stay together";
        const element_view& field = *find(dialog, u"file_input");
        call<&element_impl::set_observer>(field.live, pointer_to<element_observer_impl>(observed));
        EXPECT_FALSE(enter_text(field, write(n + u"taken.shp")));
        EXPECT_EQ(u"", look_at(field.live).text);
        EXPECT_EQ(1, observed.count) << "the host must know that the field is empty now";
        call<&element_impl::set_observer>(field.live, element_observer());
        return 1;
    });
    EXPECT_EQ(std::vector<wide_string>{name_exists}, errors());
    EXPECT_EQ(u"", given.path);
}

TEST_F(dialogs, only_a_path_that_was_accepted_and_is_free_reaches_the_run) {
    const struct {
        const char* what;
        std::optional<wide_string> entered;
        int32_t closed_with;
        bool is_accepted;
        wide_string path;
    } rows[] = {
        {"free path", free, -7, true, free},
        {"cancelled", free, 0, false, u""},
        {"untouched proposal", std::nullopt, 1, true, u""},
        {"emptied field", u"", 1, true, u""},
        {"folder of that name", u"C:\\prj", 1, true, u""},
        {"came into being while the dialog stood open", n + u"late.shp", 1, true, u""},
    };
    for (const auto& row : rows) {
        const unique_name_answer given = ask([&](const element_view& dialog) {
            if (row.entered) enter_text(*find(dialog, u"file_input"), *row.entered);
            write(n + u"late.shp");
            return row.closed_with;
        });
        EXPECT_EQ(row.is_accepted, given.accepted) << row.what;
        EXPECT_EQ(row.path, given.path) << row.what;
        std::filesystem::remove(native("n") / "late.shp");
    }
}

// The host never provided a runner, or unloads the bundle's service first.
TEST(dialogs_of_a_poor_host, without_a_service_or_a_runner_no_dialog_is_shown_or_accepted) {
    scripted_dialog_runner runner([](const element_view&) { return 1; });
    const auto is_accepted = [] { return show_unique_name_dialog(u"C:\\a.shp", u"C:\\b.shp").accepted; };
    EXPECT_FALSE(is_accepted());
    std::optional<unique_name_dialog_factory> factory(std::in_place);
    std::optional<vestra::shell::service_registry> registry(std::in_place);
    registry->add(u"", pointer_to<service_factory_impl>(*factory), {});
    EXPECT_FALSE(is_accepted());
    const dialog_connections connections(runner);
    EXPECT_TRUE(is_accepted());
    registry.reset();
    factory.reset();
    EXPECT_FALSE(is_accepted());
}

using final_message = host_fixture;

TEST_F(final_message, the_worst_comes_first_and_every_problem_is_in_its_list) {
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
        EXPECT_EQ((events{{row.box, row.text}}), script.events);
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
