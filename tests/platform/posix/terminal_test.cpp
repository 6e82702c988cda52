// Linux only: signals.
#include "platform/terminal.h"

#include <gtest/gtest.h>

#include <csignal>

namespace vs::project_resave::platform {
namespace {

TEST(terminal, ctrl_c_ends_a_wait_for_a_line_and_not_the_program) {
    process_terminal terminal;
    EXPECT_FALSE(terminal.interrupted());
    std::raise(SIGINT);
    EXPECT_TRUE(terminal.interrupted());
    std::string line = "before";
    EXPECT_EQ(line_result::interrupted, terminal.read_line(line));
    EXPECT_EQ("", line);
    terminal.forget_interrupt();
    EXPECT_FALSE(terminal.interrupted());
}

} // namespace
} // namespace vs::project_resave::platform
