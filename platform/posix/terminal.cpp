// The terminal on POSIX. The signal handler only sets flags, which the program polls at places where it can
// stop.

#include "platform/terminal.h"

#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>

namespace vs::project_resave::platform {

namespace {

constexpr std::array stop_signals{SIGINT, SIGTERM, SIGHUP};

volatile std::sig_atomic_t interrupt_seen = 0;
volatile std::sig_atomic_t interrupts = 0; // 1 after a Ctrl-C, until a line was read
volatile std::sig_atomic_t waits_for_line = 0;
volatile std::sig_atomic_t end_requested = 0;
volatile std::sig_atomic_t last_signal = SIGINT;
std::array<struct sigaction, stop_signals.size()> actions_before{};

void note_signal(int signal) {
    last_signal = signal;
    // The program did not react to the first Ctrl-C, for example because a disk does not answer.
    if (signal == SIGINT && interrupts != 0 && waits_for_line == 0) {
        // Only functions that are allowed in a signal handler.
        [[maybe_unused]] const ssize_t count = ::write(STDERR_FILENO, "\n", 1); // ends a progress bar
        ::_exit(128 + SIGINT);
    }
    if (signal == SIGINT) interrupts = 1;
    (signal == SIGINT ? interrupt_seen : end_requested) = 1;
}

bool is_stopped() { return interrupt_seen != 0 || end_requested != 0; }

line_result take_line(std::string& line) {
    for (;;) {
        char next = 0;
        const ssize_t count = is_stopped() ? -1 : ::read(STDIN_FILENO, &next, 1);
        if (is_stopped()) return line_result::interrupted;
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return line.empty() ? line_result::ended : line_result::read;
        if (next == '\n') return line_result::read;
        line += next;
    }
}

} // namespace

std::vector<std::string> program_arguments(int argc, char** argv) {
    return {argv + (argc > 0 ? 1 : 0), argv + argc};
}

void prepare_standard_streams() {
    // A reader that has ended, and a limit on the size of files, then make a write fail instead of ending the
    // program without a word.
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (::fcntl(stream, F_GETFD) != -1) continue;
        // The lowest free number is the stream's own. It is opened in the wrong direction, so that using it
        // fails.
        [[maybe_unused]] const int held = ::open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
    }
}

bool termination_requested() { return end_requested != 0; }

int stop_status() { return 128 + last_signal; }

process_terminal::process_terminal() {
    interrupt_seen = 0;
    interrupts = 0;
    struct sigaction action {};
    action.sa_handler = &note_signal; // without SA_RESTART, so that a signal ends the wait for a line
    for (size_t i = 0; i < stop_signals.size(); ++i) {
        ::sigaction(stop_signals[i], &action, &actions_before[i]);
        const bool was_ignored = actions_before[i].sa_handler == SIG_IGN; // for example by `nohup`
        if (was_ignored && stop_signals[i] != SIGINT)
            ::sigaction(stop_signals[i], &actions_before[i], nullptr);
    }
}

process_terminal::~process_terminal() {
    for (size_t i = 0; i < stop_signals.size(); ++i)
        ::sigaction(stop_signals[i], &actions_before[i], nullptr);
}

bool process_terminal::shows() { return ::isatty(STDERR_FILENO) == 1; }

bool process_terminal::asks() { return end_requested == 0 && shows() && ::isatty(STDIN_FILENO) == 1; }

unsigned process_terminal::width() {
    winsize size{};
    return ::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : 80;
}

void process_terminal::write(std::string_view text) {
    while (!text.empty()) {
        const ssize_t count = ::write(STDERR_FILENO, text.data(), text.size());
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return; // there is no reader any more
        text.remove_prefix(static_cast<size_t>(count));
    }
}

line_result process_terminal::read_line(std::string& line) {
    line.clear();
    waits_for_line = 1;
    const line_result result = take_line(line);
    waits_for_line = 0;
    if (result == line_result::read) interrupts = 0;
    return result;
}

bool process_terminal::interrupted() { return is_stopped(); }

void process_terminal::forget_interrupt() { interrupt_seen = 0; }

} // namespace vs::project_resave::platform
