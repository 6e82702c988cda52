#include "platform/terminal.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

namespace vs::project_resave::platform {

namespace {

volatile std::sig_atomic_t interrupt_seen = 0;
struct sigaction action_before {};

void note_interrupt(int) { interrupt_seen = 1; }

} // namespace

std::vector<std::string> program_arguments(int argc, char** argv) {
    return {argv + (argc > 0 ? 1 : 0), argv + argc};
}

process_terminal::process_terminal() {
    interrupt_seen = 0;
    struct sigaction action {};
    action.sa_handler = &note_interrupt; // without SA_RESTART, so that it ends the wait for a line
    ::sigaction(SIGINT, &action, &action_before);
}

process_terminal::~process_terminal() { ::sigaction(SIGINT, &action_before, nullptr); }

bool process_terminal::shows() { return ::isatty(STDERR_FILENO) == 1; }

bool process_terminal::asks() { return shows() && ::isatty(STDIN_FILENO) == 1; }

unsigned process_terminal::width() {
    winsize size{};
    return ::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : 80;
}

void process_terminal::write(std::string_view text) {
    while (!text.empty()) {
        const ssize_t count = ::write(STDERR_FILENO, text.data(), text.size());
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return; // nobody reads
        text.remove_prefix(static_cast<size_t>(count));
    }
}

line_result process_terminal::read_line(std::string& line) {
    line.clear();
    for (;;) {
        char next = 0;
        const ssize_t count = interrupt_seen != 0 ? -1 : ::read(STDIN_FILENO, &next, 1);
        if (interrupt_seen != 0) return line_result::interrupted;
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return line.empty() ? line_result::ended : line_result::read;
        if (next == '\n') return line_result::read;
        line += next;
    }
}

bool process_terminal::interrupted() { return interrupt_seen != 0; }

void process_terminal::forget_interrupt() { interrupt_seen = 0; }

} // namespace vs::project_resave::platform
