#include <gtest/gtest.h>

#include <deque>
#include <string>

#include "reference_host/shell/terminal_front_end.h"

namespace vestra::shell {
namespace {

using vs::project_resave::platform::line_result;

struct fake_terminal final : vs::project_resave::platform::terminal {
    bool is_screen = true;
    bool was_interrupted = false;
    std::deque<std::string> typed; // "^C" is Ctrl-C; the end of the list is the end of the input
    std::string written;

    bool shows() override { return is_screen; }
    bool asks() override { return is_screen; }
    unsigned width() override { return 40; }
    void write(std::string_view text) override { written += text; }
    line_result read_line(std::string& line) override {
        if (typed.empty()) return line_result::ended;
        line = typed.front();
        typed.pop_front();
        return line == "^C" ? line_result::interrupted : line_result::read;
    }
    bool interrupted() override { return was_interrupted; }
    void forget_interrupt() override { was_interrupted = false; }
};

TEST(terminal_front_end, progress_makes_way_for_messages_and_nothing_shown_commands_the_terminal) {
    fake_terminal terminal;
    terminal_front_end front(terminal, false);
    front.progress_opened(true);
    front.progress_caption(u"Layers of\r\na long name");
    front.error(u"lost\x1b[2J");
    EXPECT_EQ("\r[....................]   0 % Layers of \x1b[K\r\x1b[Klost\xEF\xBF\xBD[2J\n",
              terminal.written);
}

TEST(terminal_front_end, questions_go_to_the_person_and_without_one_mean_no) {
    const struct {
        const char* what;
        wide_view question;
        std::deque<std::string> typed;
        answer with_cancel;
        bool is_screen;
        bool yes_no;
    } rows[] = {
        {"in the base language", u"Stop?", {"Да", "да"}, answer::yes, true, true},
        {"asked until it is understood", u"Stop?", {"perhaps", "", "no", "n"}, answer::no, true, false},
        {"cancel is no answer to yes or no", u"Stop?", {"c", "c", "y"}, answer::cancel, true, true},
        {"a second Ctrl-C", u"Stop?", {"^C", "^C"}, answer::cancel, true, false},
        {"end of the input", u"Stop?", {}, answer::cancel, true, false},
        {"nobody there", u"Stop?", {"y", "y"}, answer::no, false, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        fake_terminal terminal;
        terminal.is_screen = row.is_screen;
        terminal.typed = row.typed;
        terminal_front_end front(terminal, true);
        EXPECT_EQ(row.with_cancel, front.yes_no_cancel(row.question));
        EXPECT_EQ(row.yes_no, front.yes_no(row.question));
    }
}

TEST(terminal_front_end, ctrl_c_is_the_stop_button_of_the_window_that_is_open) {
    fake_terminal terminal;
    terminal_front_end front(terminal, false);
    for (const bool cancelled : {false, true}) {
        front.progress_opened(true);
        EXPECT_FALSE(front.stop_requested()) << "each window begins anew";
        terminal.was_interrupted = true;
        EXPECT_TRUE(front.stop_requested());
        if (cancelled) front.stop_reset();
        EXPECT_EQ(!cancelled, front.stop_requested());
        front.progress_closed();
    }
}

} // namespace
} // namespace vestra::shell
