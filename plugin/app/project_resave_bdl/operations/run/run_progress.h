// The progress of a run, and the event by which front ends learn of changes. Main thread only.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "host/types.h"
#include "platform/wide_string.h"

namespace vs::project_resave {

// An event without arguments. Observers are held weakly; one that was destroyed is skipped.
class event {
public:
    // Adds an observer. It is called as long as the caller keeps the result.
    [[nodiscard]] std::shared_ptr<void> connect(std::function<void()> observer);
    // Calls the observers that are connected now. An observer may connect or disconnect others meanwhile.
    void fire();
    // Removes all observers.
    void disconnect_all() { observers_.clear(); }

private:
    std::vector<std::weak_ptr<std::function<void()>>> observers_;
};

// The progress window of a run, its counters, and whether the user stopped it.
class run_questions;

class run_progress {
public:
    // `who` answers the questions; it must outlive this object.
    explicit run_progress(run_questions& who) : questions(&who) {}
    run_progress(const run_progress&) = delete;
    run_progress& operator=(const run_progress&) = delete;
    // Closes the window.
    ~run_progress();

    // Begins a run of `steps` steps with a new window; 0 means that the length is unknown.
    void start(uint32_t steps);
    // Set the text in the window, by number or directly; ignored without an open window or with a total of 0.
    void set_caption(int32_t string_id);
    void set_caption(const wide_string& text);
    // True closes the window and keeps the counters; false opens one unless one is open.
    void set_hidden(bool hidden);
    // Shows the current progress; does nothing without an open window or with a total of 0.
    void show();
    // Adds a step of this weight. Has no effect if the count would reach the total.
    void advance(uint32_t weight);
    // Closes the window and resets the counters; the flags of a stop stay for the caller to read.
    void finish();
    // Called between two units. If the user has pressed stop, asks whether to end the run. True if it ends.
    bool is_stopped();
    // Clears the flag of a stop, so that the next run begins without it.
    void clear_stop() { stopped = false; }

    // The state of the run, for front ends and units. `caption` is the last text shown.
    vs_progress* window = nullptr; // owned; null when none is open
    uint32_t stoppable = 1;
    uint32_t current = 0;
    uint32_t total = 0;
    wide_string caption;
    bool stopped = false;
    bool erase_created = false;
    run_questions* const questions;

private:
    void close_window();
};

} // namespace vs::project_resave
