// The terminal of a program without windows: a person's screen, keyboard and Ctrl-C.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vs::project_resave::platform {

/// What a program was started with, without its own name, from what `main` got; on Windows in UTF-8 whatever
/// the system's code page.
std::vector<std::string> program_arguments(int argc, char** argv);

enum class line_result { read, ended, interrupted };

/// Used on one thread.
class terminal {
public:
    virtual ~terminal() = default;

    /// True if what is written goes to a screen and no file.
    virtual bool shows() = 0;
    /// True if a person can be asked: the screen is there, and so is the keyboard.
    virtual bool asks() = 0;
    /// Columns of the screen; 80 where there is none.
    virtual unsigned width() = 0;

    /// Writes UTF-8 at once, to the error output, so that the program's results stay apart.
    virtual void write(std::string_view text) = 0;
    /// Waits for a line, told without its end. `interrupted`: Ctrl-C came meanwhile.
    virtual line_result read_line(std::string& line) = 0;

    /// True from a Ctrl-C to the next `forget_interrupt`.
    virtual bool interrupted() = 0;
    virtual void forget_interrupt() = 0;
};

/// The terminal of this process. While it lives Ctrl-C does not end the program; one at a time.
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
