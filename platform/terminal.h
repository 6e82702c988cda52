// The terminal of a program without windows: the user's screen, keyboard and Ctrl-C.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vs::project_resave::platform {

// Returns what the program was started with, without its own name, from the parameters of `main`; on Windows
// in UTF-8 whatever the code page of the operating system is.
std::vector<std::string> program_arguments(int argc, char** argv);

// To be called first in `main`. Makes a write that fails return an error, where POSIX would end the program:
// to a pipe that nobody reads, to a file that outgrows its limit. A standard stream that the program was
// started without stays unusable, so that no file opened later takes its place.
void prepare_standard_streams();

// True once the operating system asked the program to end: SIGTERM or SIGHUP, unless they were ignored when
// it started. Always false on Windows.
bool termination_requested();

// Returns the exit status of a program that was stopped: 130 for Ctrl-C, 128 + n for signal n.
int stop_status();

enum class line_result { read, ended, interrupted };

// Used on one thread.
class terminal {
public:
    virtual ~terminal() = default;

    // True if what is written goes to a screen and not to a file.
    virtual bool shows() = 0;
    // True if the user can be asked: there is a screen and a keyboard, and the program is not to end.
    virtual bool asks() = 0;
    // Returns the number of columns of the screen; 80 if there is none.
    virtual unsigned width() = 0;

    // Writes UTF-8 at once, to the error output, so that the program's results stay apart.
    virtual void write(std::string_view text) = 0;
    // Waits for a line and sets `line` to it, without its end. `interrupted`: Ctrl-C came meanwhile.
    virtual line_result read_line(std::string& line) = 0;

    // True from a Ctrl-C until the next `forget_interrupt`, and always once the program is to end.
    virtual bool interrupted() = 0;
    virtual void forget_interrupt() = 0;
};

// The terminal of this process, one at a time. As long as it exists neither Ctrl-C nor a signal
// that asks the program to end does so at once; but a second Ctrl-C does, unless a line was read meanwhile or
// is waited for: then it is the answer.
class process_terminal final : public terminal {
public:
    process_terminal();
    ~process_terminal() override;
    process_terminal(const process_terminal&) = delete;
    process_terminal& operator=(const process_terminal&) = delete;

    bool shows() override;
    bool asks() override;
    unsigned width() override;
    void write(std::string_view text) override;
    line_result read_line(std::string& line) override;
    bool interrupted() override;
    void forget_interrupt() override;
};

} // namespace vs::project_resave::platform
