// The two dialogs as a host meets them: through their services and the tables of their elements.
#include <gtest/gtest.h>

#include <optional>
#include <sstream>

#include "framework/strings.h"
#include "host/toolkit/file_input.h"
#include "host/toolkit/grid_layout.h"
#include "host/toolkit/multiline_output.h"
#include "platform/text.h"
#include "reference_host/model/counted.h"
#include "reference_host/shell/service_registry.h"
#include "reference_host/shell/settings.h"
#include "reference_host/toolkit/dialog_connections.h"
#include "reference_host/toolkit/scripted_dialog_runner.h"
#include "reference_host/toolkit/terminal_dialog_runner.h"
#include "tests/support/scripted_front_end.h"
#include "tests/support/temporary_folder.h"
#include "ui/dialog_factories.h"
#include "ui/dialogs.h"

namespace vs::project_resave {
namespace {

using namespace vestra::toolkit;
using vestra::shell::scripted_front_end;

class changes final : public element_observer_impl {
public:
    int count = 0;
    void on_changed(element) override { ++count; }
};

class typed_terminal final : public platform::terminal {
public:
    typed_terminal(const std::string& typed, bool is_asked) : in(typed), asked(is_asked) {}
    bool shows() override { return asked; }
    bool asks() override { return asked; }
    unsigned width() override { return 80; }
    void write(std::string_view text) override { out += text; }
    platform::line_result read_line(std::string& line) override {
        return std::getline(in, line) ? platform::line_result::read : platform::line_result::interrupted;
    }
    bool interrupted() override { return false; }
    void forget_interrupt() override {}

    std::istringstream in;
    std::string out;
    const bool asked;
};

// One dialog of the bundle, offered to a host's registry.
template <class Factory>
struct offered {
    offered() { registry.add(u"", pointer_to<service_factory_impl>(factory), {}); }
    Factory factory;
    vestra::shell::service_registry registry;
};

class dialogs : public testing::Test {
protected:
    dialogs() { vestra::shell::settings().language_offset = 50000; }
    ~dialogs() override {
        vestra::shell::settings().language_offset = 0;
        EXPECT_EQ(0u, vestra::living_objects());
    }
    std::vector<wide_string> errors() const { return shown.texts(scripted_front_end::kind::error); }
    unique_name_answer ask(dialog_runner_impl& runner) {
        offered<unique_name_dialog_factory> offer;
        const dialog_connections connections(runner);
        return show_unique_name_dialog(u"D:\\gis\\source.shp", proposed);
    }
    unique_name_answer ask(scripted_dialog_runner::script script) {
        scripted_dialog_runner runner(std::move(script));
        return ask(runner);
    }

    temporary_folder folder;
    const wide_string proposed = folder.write(u"proposed.shp"), taken = folder.write(u"taken.shp");
    const wide_string free = folder.path(u"free.shp");
    scripted_front_end shown;
    vestra::shell::front_end_override in_force{shown};
};

const wide_string name_exists = u"File with such name already exists. Please set new file name.";

TEST_F(dialogs, the_naming_dialog_shows_what_collides_and_what_is_proposed) {
    const unique_name_answer answer = ask([&](const element_view& dialog) {
        EXPECT_EQ(u"Attention! Naming conflict!", dialog.caption);
        const element_view& frame = dialog.children.at(0);
        const auto grid = cast_to<grid_layout_impl>(frame.live);
        EXPECT_EQ(u"groupbox", frame.kind);
        EXPECT_EQ(4u, call<&grid_layout_impl::rows>(grid));
        EXPECT_EQ(1u, call<&grid_layout_impl::columns>(grid));
        EXPECT_EQ(3u, call<&grid_layout_impl::spare_row>(grid));
        EXPECT_FALSE(call<&grid_layout_impl::child>(grid, 0u, 1u));
        const std::pair<wide_string, wide_string> rows[] = {{u"label", name_exists},
                                                            {u"output", u"D:\\gis\\source.shp"},
                                                            {u"label", u"Set path for saving file:"},
                                                            {u"file_input", proposed}};
        for (size_t row = 0; row < std::size(rows); ++row) {
            EXPECT_EQ(rows[row].first, frame.children.at(row).kind);
            EXPECT_EQ(rows[row].second, frame.children.at(row).text);
            EXPECT_TRUE(frame.children.at(row).enabled && frame.children.at(row).visible);
        }
        const auto field = cast_to<file_input_impl>(find(dialog, u"file_input")->live);
        EXPECT_EQ(file_input_mode::new_file, call<&file_input_impl::mode>(field));
        EXPECT_EQ(nullptr, find(dialog, u"button_box")) << "the host adds its own";
        return 1;
    });
    EXPECT_TRUE(answer.accepted);
    EXPECT_TRUE(shown.events.empty()) << "the proposal itself is not tested";
}

TEST_F(dialogs, a_new_name_that_exists_is_refused_at_once_and_the_field_empties) {
    const unique_name_answer answer = ask([&](const element_view& dialog) {
        const element_view& field = *find(dialog, u"file_input");
        changes observed;
        call<&element_impl::set_observer>(field.live, pointer_to<element_observer_impl>(observed));
        EXPECT_FALSE(enter_text(field, taken));
        EXPECT_EQ(u"", look_at(field.live).text);
        EXPECT_EQ(1, observed.count) << "the host must know that the field is empty now";
        EXPECT_TRUE(enter_text(field, free));
        EXPECT_EQ(free, look_at(field.live).text);
        EXPECT_EQ(2, observed.count);
        call<&element_impl::set_observer>(field.live, element_observer());
        return 1;
    });
    EXPECT_EQ(std::vector<wide_string>{name_exists}, errors());
    EXPECT_TRUE(answer.accepted);
    EXPECT_EQ(free, answer.path);
}

TEST_F(dialogs, only_a_path_that_was_accepted_and_is_free_reaches_the_run) {
    const struct {
        const char* what;
        std::optional<wide_string> entered;
        int32_t closed_with;
        unique_name_answer expected;
    } rows[] = {
        {"free path", free, 1, {true, free}},   {"any number accepts", free, -7, {true, free}},
        {"cancelled", free, 0, {false, u""}},   {"untouched proposal", std::nullopt, 1, {true, u""}},
        {"emptied field", u"", 1, {true, u""}}, {"folder of that name", folder.path(), 1, {true, u""}},
    };
    for (const auto& row : rows) {
        const unique_name_answer answer = ask([&](const element_view& dialog) {
            if (row.entered) enter_text(*find(dialog, u"file_input"), *row.entered);
            return row.closed_with;
        });
        EXPECT_EQ(row.expected.accepted, answer.accepted) << row.what;
        EXPECT_EQ(row.expected.path, answer.path) << row.what;
    }
    const unique_name_answer late = ask([&](const element_view& dialog) {
        EXPECT_TRUE(enter_text(*find(dialog, u"file_input"), free));
        folder.write(u"free.shp");
        return 1;
    });
    EXPECT_TRUE(late.accepted);
    EXPECT_EQ(u"", late.path) << "came into being while the dialog stood open";
}

TEST_F(dialogs, a_long_report_stands_whole_in_a_field_that_scrolls_and_ok_closes_it) {
    wide_string report;
    for (int line = 0; line < 26; ++line)
        report += u"C:\\Данные\\слой.shp: " + wide_string(200, u'x') + u"\n";
    bool is_shown = false;
    scripted_dialog_runner runner([&](const element_view& dialog) {
        is_shown = true;
        EXPECT_EQ(u"Warning!", dialog.caption);
        EXPECT_EQ(u"Resave processing error:", dialog.children.at(0).children.at(0).text);
        const element_view& text = dialog.children.at(0).children.at(1);
        EXPECT_EQ(u"multiline_output", text.kind);
        EXPECT_EQ(report, text.text);
        const auto output = cast_to<multiline_output_impl>(text.live);
        EXPECT_EQ(20u, call<&multiline_output_impl::width>(output));
        EXPECT_EQ(7u, call<&multiline_output_impl::height>(output));
        const element_view& box = dialog.children.at(1);
        EXPECT_EQ(1u, box.buttons.size());
        EXPECT_EQ(u"OK", box.buttons.at(0).text);
        EXPECT_FALSE(press(box, 8)) << "no such button";
        EXPECT_TRUE(press(box, box.buttons.at(0).code));
        return box.buttons.at(0).code;
    });
    offered<extended_message_dialog_factory> offer;
    const dialog_connections connections(runner);
    show_extended_message_dialog(report);
    EXPECT_TRUE(is_shown);
}

// The host never brought a runner, or takes it away, or lets the bundle's service go.
TEST_F(dialogs, without_a_service_or_a_runner_nothing_is_shown_and_nothing_accepted) {
    int runs = 0;
    scripted_dialog_runner runner([&](const element_view&) { return ++runs; });
    const auto is_refused = [&] {
        runs = 0;
        show_extended_message_dialog(u"lost");
        return !show_unique_name_dialog(u"C:\\a.shp", proposed).accepted && runs == 0;
    };
    EXPECT_TRUE(is_refused());
    std::optional<offered<unique_name_dialog_factory>> offer(std::in_place);
    offer->registry.start_clients();
    EXPECT_TRUE(is_refused());
    { const dialog_connections connections(runner); }
    EXPECT_TRUE(is_refused());
    const dialog_connections connections(runner);
    EXPECT_FALSE(is_refused());
    offer.reset(); // before the connections, which must notice
    EXPECT_TRUE(is_refused());
}

TEST_F(dialogs, each_dialog_has_one_service_of_its_own_with_its_own_identity) {
    std::optional<plain_dialog_factory> plain(std::in_place);
    unique_name_dialog_factory naming;
    extended_message_dialog_factory report;
    const std::pair<custom_service_factory_impl&, wide_string> rows[] = {
        {*plain, u""},
        {naming, u"vs_project_resave_unique_name_dialog"},
        {report, u"vs_project_resave_extended_message_dialog_dialog"}};
    for (const auto& [factory, identity] : rows) {
        wide_string told = u"untold";
        stdwstring_visitor visitor(told);
        const identity_pointer service = factory.create({});
        EXPECT_EQ(service, factory.create({}));
        EXPECT_EQ(u"", factory.id);
        const auto found = cast_to<modal_dialog_service_impl>(service);
        call<&modal_dialog_impl::identity_text>(call<&modal_dialog_service_impl::dialog>(found), visitor);
        EXPECT_EQ(identity, told);
    }
    std::optional<modal_dialog_service<plain_dialog_id>> newer(std::in_place);
    plain.reset();
    EXPECT_EQ(&*newer, modal_dialog_service<plain_dialog_id>::slot) << "an older one ends without harm";
    newer.reset();
    EXPECT_EQ(nullptr, modal_dialog_service<plain_dialog_id>::slot);
}

TEST_F(dialogs, a_person_at_a_terminal_sees_the_conflict_and_types_another_path) {
    const std::string another = (folder.native() / "free.shp").string();
    const struct {
        std::string typed;
        bool is_asked;
        unique_name_answer expected;
        size_t refusals;
    } rows[] = {
        {another + "\n\n", true, {true, free}, 0},
        {platform::to_utf8(taken) + "\n" + another + "\n\n", true, {true, free}, 1},
        {"\n", true, {true, u""}, 0},
        {"cancel\n\n", true, {false, u""}, 0},
        {another + "\n", true, {false, u""}, 0},
        {another + "\n\n", false, {false, u""}, 0},
    };
    for (const auto& row : rows) {
        shown.events.clear();
        typed_terminal terminal(row.typed, row.is_asked);
        terminal_dialog_runner runner(terminal);
        const unique_name_answer answer = ask(runner);
        EXPECT_EQ(row.expected.accepted, answer.accepted) << row.typed;
        EXPECT_EQ(row.expected.path, answer.path) << row.typed;
        EXPECT_EQ(row.refusals, errors().size()) << row.typed;
        EXPECT_NE(std::string::npos,
                  terminal.out.find("    file_input (new file) " + platform::to_utf8(proposed) + "\n"));
    }
}

TEST_F(dialogs, a_long_report_is_printed_line_by_line_and_enter_presses_its_button) {
    for (const bool is_asked : {true, false}) {
        typed_terminal terminal("what?\n\nunread\n", is_asked);
        terminal_dialog_runner runner(terminal);
        offered<extended_message_dialog_factory> offer;
        const dialog_connections connections(runner);
        show_extended_message_dialog(u"first\n\nthird");
        EXPECT_NE(std::string::npos, terminal.out.find("      first\n      \n      third\n"));
        EXPECT_NE(std::string::npos, terminal.out.find("button_box [1 OK]"));
        std::string rest;
        std::getline(terminal.in, rest);
        EXPECT_EQ(is_asked ? "unread" : "what?", rest);
    }
}

} // namespace
} // namespace vs::project_resave
