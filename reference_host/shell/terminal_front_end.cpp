// Messages, questions and progress on a terminal.
#include "reference_host/shell/terminal_front_end.h"

#include <algorithm>
#include <array>
#include <optional>

#include "platform/text.h"
#include "reference_host/shell/front_end.h"

namespace vestra::shell {

namespace platform = vs::project_resave::platform;

namespace {

bool is_english() { return settings().language_offset != 0; }

struct reply {
    answer meaning;
    std::array<wide_view, 4> words; // in both languages, independent of the current one
};
constexpr std::array<reply, 3> replies{{{answer::yes, {u"y", u"yes", u"д", u"да"}},
                                        {answer::no, {u"n", u"no", u"н", u"нет"}},
                                        {answer::cancel, {u"c", u"cancel", u"о", u"отмена"}}}};

wide_view prompt(bool with_cancel) {
    if (is_english()) return with_cancel ? u"[yes/no/cancel] " : u"[yes/no] ";
    return with_cancel ? u"[да/нет/отмена] " : u"[да/нет] ";
}

std::optional<answer> meaning_of(const std::string& line, bool with_cancel) {
    const wide_string word = platform::from_utf8(line);
    for (const reply& known : replies) {
        // Without such a button the word is no answer, so the question is asked again.
        if (known.meaning == answer::cancel && !with_cancel) continue;
        for (const wide_view other : known.words)
            if (platform::compare_no_case(word, other) == 0) return known.meaning;
    }
    return std::nullopt;
}

// Returns the first characters of a line, at most as many as the screen has columns. Every character counts
// as one column, which is right for the two languages of the host.
std::string fitting(const std::string& line, unsigned columns) {
    wide_string text = platform::from_utf8(line);
    if (text.size() > columns) text.resize(columns);
    return platform::to_utf8(text);
}

// Such a character moves the cursor or starts a terminal command. Some terminals also react to the range from
// 0x80 on.
bool is_control(char16_t c) { return c < u' ' || (c >= 0x7f && c < 0xa0); }

std::string in_columns(unsigned percent) {
    const std::string digits = std::to_string(percent);
    return std::string(3 - digits.size(), ' ') + digits;
}

std::string bar(unsigned percent) {
    constexpr unsigned width = 20;
    const unsigned filled = percent * width / 100;
    return "[" + std::string(filled, '#') + std::string(width - filled, '.') + "] ";
}

} // namespace

std::string printable(wide_view text) {
    wide_string safe;
    for (const char16_t c : text) {
        // Half of a line end of Windows; alone it would let a text overwrite its line.
        if (c == u'\r') continue;
        safe += is_control(c) && c != u'\n' && c != u'\t' ? u'\xfffd' : c;
    }
    return platform::to_utf8(safe);
}

std::string one_line(wide_view text) {
    constexpr wide_view digits = u"0123456789abcdef";
    wide_string line;
    for (const char16_t c : text) {
        if (!is_control(c))
            line += c;
        else if (c == u'\n' || c == u'\r' || c == u'\t')
            line += c == u'\n' ? u"\\n" : c == u'\r' ? u"\\r" : u"\\t";
        else
            line += wide_string(u"\\x") + digits[c >> 4] + digits[c & 15];
    }
    return platform::to_utf8(line);
}

terminal_front_end::terminal_front_end(platform::terminal& terminal, bool quiet,
                                       transfer_progress::clock clock)
    : terminal_(terminal), quiet_(quiet), transfer_(std::move(clock)) {}

void terminal_front_end::expect_bytes(std::uint64_t total) { transfer_.begin(total); }

void terminal_front_end::bytes_moved(std::uint64_t bytes) {
    if (!transfer_.is_running()) return;
    transfer_.add(bytes);
    if (transfer_.is_due()) show_progress();
}

void terminal_front_end::error(wide_view text) {
    print(text);
    auto& refused = settings().read_error;
    if (refused) print(refused->text());
    // Otherwise the next error, about something else, would show this reason again.
    refused.reset();
}

void terminal_front_end::warning(wide_view text) {
    if (!quiet_) print(text);
}

void terminal_front_end::message(wide_view text) {
    if (!quiet_) print(text);
}

bool terminal_front_end::yes_no(wide_view text) { return ask(text, false) == answer::yes; }

answer terminal_front_end::yes_no_cancel(wide_view text) { return ask(text, true); }

answer terminal_front_end::ask(wide_view question, bool with_cancel) {
    if (!terminal_.asks()) return answer::no;

    terminal_.forget_interrupt(); // the Ctrl-C before this question was handled; the next one is an answer
    print(question);
    for (;;) {
        terminal_.write(platform::to_utf8(prompt(with_cancel)));
        std::string line;
        const platform::line_result result = terminal_.read_line(line);
        if (result == platform::line_result::read) {
            if (const auto meaning = meaning_of(line, with_cancel)) return *meaning;
            continue;
        }
        terminal_.write("\n");
        // Ctrl-C at a question without "cancel" stays pending, so the next poll for a stop sees it. The end
        // of the input counts as no.
        if (with_cancel && result == platform::line_result::interrupted) terminal_.forget_interrupt();
        return answer::no;
    }
}

void terminal_front_end::print(wide_view text) {
    erase_bar();
    std::string lines = printable(text);
    if (!lines.ends_with('\n')) lines += '\n';
    terminal_.write(lines);
}

void terminal_front_end::progress_opened(bool stoppable) {
    is_open_ = true;
    is_stoppable_ = stoppable;
    is_indeterminate_ = false;
    is_stopped_ = false;
    percent_ = 0;
    caption_.clear();
}

void terminal_front_end::progress_shown(std::uint32_t current, std::uint32_t total) {
    // A bundle may pass more steps than the total.
    percent_ = total == 0 ? 0 : static_cast<unsigned>(std::min(100.0, 100.0 * current / total));
    show_progress();
}

void terminal_front_end::progress_caption(wide_view text) {
    caption_ = printable(text);
    // A bar of two lines could not be erased by returning to the start of its line.
    std::ranges::replace(caption_, '\n', ' ');
    show_progress();
}

void terminal_front_end::progress_indeterminate(bool on) {
    is_indeterminate_ = on;
    show_progress();
}

void terminal_front_end::show_progress() {
    if (quiet_ || !is_open_) return;
    const bool is_watched = terminal_.shows();
    const bool counts_bytes = transfer_.is_running();
    if (counts_bytes) percent_ = transfer_.percent();
    // Lines in a log are printed only for every tenth percent, so that a long run does not fill a file.
    const unsigned percent = is_watched ? percent_ : percent_ / 10 * 10;
    std::string line = is_indeterminate_ ? caption_ : in_columns(percent) + " % " + caption_;
    const std::string amount = counts_bytes && !is_indeterminate_ ? "  " + transfer_.text() : "";
    if (is_watched && !is_indeterminate_) line = bar(percent) + line + amount;
    // Where nobody watches, a line without a caption would only fill a log.
    const bool says_nothing = caption_.empty() && (is_indeterminate_ || counts_bytes || percent == 0);
    if (line == shown_ || (says_nothing && !is_watched)) return;
    shown_ = line;
    if (is_watched)
        // One column less, since a terminal may begin a new line after the last column.
        terminal_.write("\r" + fitting(line, terminal_.width() - 1) + "\x1b[K");
    else
        terminal_.write(line + amount + "\n");
    is_bar_on_screen_ = is_watched;
}

void terminal_front_end::erase_bar() {
    if (is_bar_on_screen_) terminal_.write("\r\x1b[K");
    is_bar_on_screen_ = false;
    shown_.clear(); // so that the next step prints the bar again
}

void terminal_front_end::progress_closed() {
    erase_bar();
    is_open_ = false;
}

bool terminal_front_end::stop_requested() {
    if (is_open_ && is_stoppable_ && terminal_.interrupted()) {
        terminal_.forget_interrupt(); // so that it does not stop a later operation as well
        is_stopped_ = true;
    }
    return is_stopped_;
}

void terminal_front_end::stop_reset() {
    is_stopped_ = false;
    terminal_.forget_interrupt();
}

void terminal_front_end::wait_opened(wide_view text) {
    if (!quiet_) print(text);
}

} // namespace vestra::shell
