// The host on a terminal: messages as text, progress as a bar, Ctrl-C as the stop button, questions with an
// answer to be typed. Where nobody watches, progress comes in plain lines and questions are not asked.
#pragma once

#include <string>
#include <string_view>

#include "platform/terminal.h"
#include "reference_host/shell/front_end.h"
#include "reference_host/shell/transfer_progress.h"

namespace vestra::shell {

// The text in UTF-8 for a screen: a name in it could hold signs that steer the terminal.
std::string printable(wide_view text);
// The same on one line, with "\n" for a line feed and "\x1b" for what else is no character to be read.
std::string one_line(wide_view text);

// In the language of the host's settings. Everything goes to the terminal, which outlives the front end.
class terminal_front_end final : public front_end {
public:
    // `quiet`: progress, messages and warnings stay away; errors and questions do not.
    terminal_front_end(vs::project_resave::platform::terminal& terminal, bool quiet,
                       transfer_progress::clock clock = &transfer_progress::steady_clock);

    // From now on the progress is that of so many bytes, whatever window shows it; 0 ends this.
    void expect_bytes(std::uint64_t total) override;
    void bytes_moved(std::uint64_t bytes) override;

    // With the host's own reason where a file could not be read since the last one.
    void error(wide_view text) override;
    void warning(wide_view text) override;
    void message(wide_view text) override;
    // A question to nobody, without a terminal, is answered with no.
    bool yes_no(wide_view text) override;
    // Ctrl-C at the question is cancel.
    answer yes_no_cancel(wide_view text) override;

    void progress_opened(bool stoppable) override;
    void progress_shown(std::uint32_t current, std::uint32_t total) override;
    void progress_caption(wide_view text) override;
    void progress_indeterminate(bool on) override;
    void progress_closed() override;
    bool stop_requested() override;
    void stop_reset() override;

    void wait_opened(wide_view text) override;
    void wait_closed() override {}

private:
    answer ask(wide_view question, bool with_cancel);
    void print(wide_view text);
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
    std::string shown_; // the bar that was written last, or the line but for the bytes
    bool is_bar_on_screen_ = false;
};

} // namespace vestra::shell
