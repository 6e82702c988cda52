// The host on a terminal: messages as text, progress as a bar, Ctrl-C as the stop button, questions with
// typed answers. If the output is not a terminal, progress is printed as plain lines and no questions are
// asked.
#pragma once

#include <string>
#include <string_view>

#include "platform/terminal.h"
#include "reference_host/shell/front_end.h"
#include "reference_host/shell/transfer_progress.h"

namespace vestra::shell {

// Returns the text in UTF-8 without characters that control the terminal, which names of files could contain.
std::string printable(wide_view text);
// As above on one line, with "\n" for a line feed and "\x1b" for other unprintable characters.
std::string one_line(wide_view text);

// Uses the language of the host's settings. All output goes to the terminal, which must outlive the front
// end.
class terminal_front_end final : public front_end {
public:
    // `quiet` suppresses progress, messages and warnings, but not errors and questions.
    terminal_front_end(vs::project_resave::platform::terminal& terminal, bool quiet,
                       transfer_progress::clock clock = &transfer_progress::steady_clock);

    // Progress shows this number of bytes from now on, in whichever window; 0 ends this.
    void expect_bytes(std::uint64_t total) override;
    void bytes_moved(std::uint64_t bytes) override;

    // Also prints the host's reason if a file could not be read since the last error. Printed even if
    // `quiet`.
    void error(wide_view text) override;
    void warning(wide_view text) override;
    void message(wide_view text) override;
    // Returns no if there is no terminal to ask at.
    bool yes_no(wide_view text) override;
    // Ctrl-C answers no.
    answer yes_no_cancel(wide_view text) override;

    void progress_opened(bool stoppable) override;
    void progress_shown(std::uint32_t current, std::uint32_t total) override;
    void progress_caption(wide_view text) override;
    void progress_indeterminate(bool on) override;
    void progress_closed() override;
    // Ctrl-C counts only while a progress with a stop button is open; it then stays requested until the reset
    // or the next progress.
    bool stop_requested() override;
    void stop_reset() override;

    // Prints the text as a message; nothing shows the end of the wait.
    void wait_opened(wide_view text) override;
    void wait_closed() override {}

private:
    // Asks until the typed line is an answer, in either language of the host. Returns no at the end of the
    // input.
    answer ask(wide_view question, bool with_cancel);
    // Prints lines in place of the bar; the next step of the progress shows the bar again.
    void print(wide_view text);
    // Writes the bar, or a line if nobody watches, but only if it differs from the last one.
    void show_progress();
    void erase_bar();

    vs::project_resave::platform::terminal& terminal_;
    const bool quiet_;
    bool is_open_ = false; // the progress window
    bool is_stoppable_ = false;
    bool is_indeterminate_ = false;
    bool is_stopped_ = false;
    unsigned percent_ = 0;
    transfer_progress transfer_;
    std::string caption_;
    std::string shown_; // the last bar written, or its line without the bytes
    bool is_bar_on_screen_ = false;
};

} // namespace vestra::shell
