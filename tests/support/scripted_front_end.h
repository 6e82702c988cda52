// A front end that answers from a list and records what it is asked to show, for tests.
//
//     shell::scripted_front_end script;
//     script.answers = {shell::answer::cancel, shell::answer::yes};
//     shell::front_end_override in_force(script);
#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <utility>
#include <vector>

#include "reference_host/shell/front_end.h"

namespace vestra::shell {

class scripted_front_end : public front_end {
public:
    enum class kind { error, warning, message, yes_no, yes_no_cancel, caption, wait };
    using event = std::pair<kind, wide_string>;

    std::vector<event> events;    // everything shown or asked, in order
    std::deque<answer> answers;   // to the next questions; no when the list is empty
    std::size_t stop_at_poll = 0; // the stop button is pressed at this poll, counted from 1; 0: never
    std::size_t polls = 0;
    std::size_t open_windows = 0;
    std::size_t asked_at_poll = 0, asked_with_windows = 0; // at the first question
    std::uint32_t current = 0, total = 0;                  // of the progress shown last

    // Returns the texts of one kind, in order.
    std::vector<wide_string> texts(kind what) const {
        std::vector<wide_string> found;
        for (const auto& [shown, text] : events)
            if (shown == what) found.push_back(text);
        return found;
    }

    void error(wide_view text) override { record(kind::error, text); }
    void warning(wide_view text) override { record(kind::warning, text); }
    void message(wide_view text) override { record(kind::message, text); }
    bool yes_no(wide_view text) override { return ask(kind::yes_no, text) == answer::yes; }
    answer yes_no_cancel(wide_view text) override { return ask(kind::yes_no_cancel, text); }

    void progress_opened(bool) override {
        ++open_windows;
        is_stopped_ = false;
    }
    void progress_shown(std::uint32_t shown_current, std::uint32_t shown_total) override {
        current = shown_current;
        total = shown_total;
    }
    void progress_caption(wide_view text) override { record(kind::caption, text); }
    void progress_indeterminate(bool) override {}
    void progress_closed() override { --open_windows; }
    bool stop_requested() override {
        is_stopped_ |= ++polls == stop_at_poll;
        return is_stopped_;
    }
    void stop_reset() override { is_stopped_ = false; }

    void wait_opened(wide_view text) override {
        ++open_windows;
        record(kind::wait, text);
    }
    void wait_closed() override { --open_windows; }

private:
    void record(kind what, wide_view text) { events.emplace_back(what, text); }
    answer ask(kind what, wide_view text) {
        record(what, text);
        if (asked_at_poll == 0) asked_with_windows = open_windows;
        if (asked_at_poll == 0) asked_at_poll = polls;
        if (answers.empty()) return answer::no;
        const answer next = answers.front();
        answers.pop_front();
        return next;
    }

    bool is_stopped_ = false;
};

} // namespace vestra::shell
