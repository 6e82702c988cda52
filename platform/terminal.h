// The terminal of a program without windows: the user's screen, keyboard and Ctrl-C.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vs::project_resave::platform {

// Returns the arguments that the program was started with, without its own name, from the parameters of
// `main`. On Windows they are converted to UTF-8, whatever the operating system's code page is.
std::vector<std::string> program_arguments(int argc, char** argv);

// Must be called first in `main`. Makes a failed write return an error where POSIX would end the program:
// writing to a pipe without a reader, or beyond a file size limit. A standard stream that was closed when the
// program started stays unusable, so that no file opened later takes its place.
void prepare_standard_streams();

// True once the operating system has asked the program to end with SIGTERM or SIGHUP, unless these were
// ignored when it started. Always false on Windows.
bool termination_requested();

// Returns the exit status of an interrupted program: 130 for Ctrl-C, 128 + n for signal n.
int stop_status();

// `ended`: the end of the input was reached before any character.
enum class line_result { read, ended, interrupted };

// The user's terminal as the program sees it. Used on one thread.
class terminal {
public:
    virtual ~terminal() = default;

    // True if the output goes to a screen and not to a file.
    virtual bool shows() = 0;
    // True if the user can be asked: there is a screen and a keyboard, and the program was not asked to end.
    virtual bool asks() = 0;
    // Returns the width of the screen in columns; 80 if there is no screen.
    virtual unsigned width() = 0;

    // Writes UTF-8 at once, to the error output, so that the program's results stay separate.
    virtual void write(std::string_view text) = 0;
    // Waits for a line and sets `line` to it, without its line end. `interrupted`: Ctrl-C was pressed
    // meanwhile.
    virtual line_result read_line(std::string& line) = 0;

    // True from a Ctrl-C until the next `forget_interrupt`, and always once the program was asked to end.
    virtual bool interrupted() = 0;
    virtual void forget_interrupt() = 0;
};

// The terminal of this process; only one exists at a time. While it exists, neither Ctrl-C nor a signal that
// asks the program to end does so at once. A second Ctrl-C does end the program, unless a line was read in
// between or is being waited for; then that wait returns `interrupted`.
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
