// The progress window of a run, and the events by which the panel follows it.

#include "operations/run/run_progress.h"

#include "framework/resources/strings.h"
#include "host/vsk_msgs.h"
#include "operations/run/run_questions.h"

namespace vs::project_resave {

std::shared_ptr<void> event::connect(std::function<void()> observer) {
    auto kept = std::make_shared<std::function<void()>>(std::move(observer));
    observers_.push_back(kept);
    return kept;
}

// A copy of the list, as an observer may connect or disconnect others; each is locked while it runs.
void event::fire() {
    std::erase_if(observers_, [](const auto& observer) { return observer.expired(); });
    const auto snapshot = observers_;
    for (const auto& observer : snapshot)
        if (const auto kept = observer.lock()) (*kept)();
}

run_progress::~run_progress() { close_window(); }

void run_progress::close_window() {
    if (window) vs_progress_destroy(window);
    window = nullptr;
}

void run_progress::start(uint32_t steps) {
    total = steps;
    current = 0;
    stopped = false;
    erase_created = false;
    close_window();
    window = vs_progress_create(stoppable);
    if (total == 0) vs_progress_indeterminate(window, 1);
    vs_progress_show(window, current, total);
}

void run_progress::set_caption(int32_t string_id) { set_caption(load_string(string_id)); }

void run_progress::set_caption(const wide_string& text) {
    if (!window || total == 0) return;
    caption = text;
    vs_progress_wcaption(window, caption.c_str());
}

void run_progress::set_hidden(bool hidden) {
    if (hidden) return close_window();
    if (!window) window = vs_progress_create(stoppable);
    vs_progress_show(window, current, total);
}

void run_progress::show() {
    if (window && total != 0) vs_progress_show(window, current, total);
}

void run_progress::advance(uint32_t weight) {
    // Kept as users know it: the count stays below the total, so the last steps of a run may not be visible.
    if (uint64_t{current} + weight < total) current += weight;
    show();
}

void run_progress::finish() {
    close_window();
    current = 0;
    total = 0;
}

bool run_progress::is_stopped() {
    if (stopped) return true;
    if (!window || !vs_progress_get_stopped(window)) return false;
    // The question may run the host's event loop, and so close the window.
    const stop_answer answer = questions->on_stop();
    if (answer == stop_answer::go_on) {
        if (window) vs_progress_reset(window);
        return false;
    }
    stopped = true;
    erase_created = answer == stop_answer::erase_created;
    finish();
    return true;
}

} // namespace vs::project_resave
