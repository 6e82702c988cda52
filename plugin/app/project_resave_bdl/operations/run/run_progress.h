#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "host/types.h"
#include "platform/wide_string.h"

namespace vs::project_resave {

// An event without arguments. Observers are held weakly: one that died is passed over.
class event {
public:
    // The observer is told as long as the caller keeps what this answers.
    [[nodiscard]] std::shared_ptr<void> connect(std::function<void()> observer);
    // Tells those that are connected now; one that connects or leaves meanwhile does no harm.
    void fire();
    void disconnect_all() { observers_.clear(); }

private:
    std::vector<std::weak_ptr<std::function<void()>>> observers_;
};

// The progress window of a run, its counters, and whether the user stopped it.
class run_questions;

class run_progress {
public:
    // Asks `who`, which must outlive it.
    explicit run_progress(run_questions& who) : questions(&who) {}
    run_progress(const run_progress&) = delete;
    run_progress& operator=(const run_progress&) = delete;
    ~run_progress();

    // Begins a run of so many steps with a new window; a total of 0 is a run of unknown length.
    void start(uint32_t steps);
    // By number or as text; only with an open window and a total above 0.
    void set_caption(int32_t string_id);
    void set_caption(const wide_string& text);
    // True takes the window away and keeps the counters; false opens one unless there is one.
    void set_hidden(bool hidden);
    // Shows where the run stands; only with an open window and a total above 0.
    void show();
    // One step of this weight. The last ones of a run may not move: the count stays below the total.
    void advance(uint32_t weight);
    // Closes the window and zeroes the counters; the marks of a stop stay for the caller to read.
    void finish();
    // Polled between two units. Once the user has pressed stop, asks whether the run really ends.
    bool is_stopped();
    void clear_stop() { stopped = false; }

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
