// Linux only: a pseudo-terminal, as a user has one.
// Ctrl-C at each moment of a resave, and the user's answers.
#include <poll.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/apps/command_run.h"

namespace vs::project_resave {
namespace {

using std::string;

class on_a_terminal : public command_run {
protected:
    on_a_terminal() {
        builder.scene_2d(u"S");
        for (uint32_t index = 0; index < 1000; ++index)
            builder.layer("rtr_lr2d", u"R", write(u"C:\\data\\" + decimal(index) + u".tif"));
        builder.save(source);
    }
    // What is typed once a text is on the screen.
    struct turn {
        const char *shown, *typed;
    };
    // Runs it and returns the exit status. The content of the screen is in `out`. The command waits for the
    // screen to be read, so it is never far ahead.
    int talk(const string& arguments, const std::vector<turn>& turns) {
        int screen = -1;
        const string line = command_line(arguments, {"/dev/tty", "/dev/null", "/dev/tty"});
        const pid_t child = ::forkpty(&screen, nullptr, nullptr, nullptr);
        if (child == 0) {
            ::alarm(60); // if it waits for input that never comes
            ::execl("/bin/sh", "sh", "-c", line.c_str(), nullptr);
            ::_exit(127);
        }
        out.clear();
        size_t seen = 0;
        auto next = turns.begin();
        char part[64];
        for (ssize_t length; (length = ::read(screen, part, sizeof part)) > 0;) {
            out.append(part, static_cast<size_t>(length));
            if (next == turns.end()) continue;
            const size_t at = out.find(next->shown, seen);
            if (at == string::npos) continue;
            seen = at + string(next->shown).size();
            EXPECT_LT(0, ::write(screen, next->typed, string(next->typed).size()));
            ++next;
        }
        ::close(screen);
        int status = 0;
        ::waitpid(child, &status, 0);
        EXPECT_TRUE(next == turns.end()) << out;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
};

constexpr const char* ctrl_c = "\x03";

TEST_F(on_a_terminal, ctrl_c_asks_and_another_one_is_an_answer) {
    const struct {
        std::vector<turn> turns;
        bool is_kept;
        string options = {};
    } rows[] = {
        {{{"5 % Saving", ctrl_c}, {"continue\r\n[yes/no/cancel] ", "yes\n"}}, false},
        {{{"5 % Saving", ctrl_c}, {"[yes/no/cancel] ", "what?\n"}, {"[yes/no/cancel] ", "no\n"}}, true},
        {{{"5 % Saving", ctrl_c}, {"[yes/no/cancel] ", ctrl_c}}, true},
        {{{"5 % Saving", ctrl_c}, {"[yes/no/cancel] ", "\x04"}}, true}, // Ctrl-D
        {{{"5 % Saving", ctrl_c},
          {"[yes/no/cancel] ", "cancel\n"},
          {"%", ctrl_c},
          {"[yes/no/cancel] ", "no\n"}},
         true},
        {{{"Project opens", ctrl_c}}, false},
    };
    for (const auto& row : rows) {
        clear_output();
        const tree_state before = sources();
        EXPECT_EQ(130, talk("resave 'C:\\prj\\area._vp' 'N:\\out\\new._vp'", row.turns)) << out;
        EXPECT_EQ(string::npos, out.find(" failed")) << out; // a stop is not a failure
        EXPECT_EQ(row.is_kept, !made().empty()) << out << made();
        EXPECT_FALSE(path_exists(output));
        EXPECT_EQ("", difference(before, sources()));
    }
}

} // namespace
} // namespace vs::project_resave
