#pragma once

#include <cstdint>
#include <vector>

#include "reference_host/model/counted.h"

namespace vestra {
class project;
}

namespace vestra::shell {

// What the running host keeps beside any project. User-interface thread only.
// A project, scene or layer file that could not be read, or not be written, so that what was there before
// still is.
struct refused_file {
    wide_string path;   // as it was asked for
    wide_string reason; // a line for the user
};

struct host_settings {
    std::uint32_t language_offset = 0;       // in the string tables: 0 base language, 50000 English
    bool invert_layers = false;              // people see the layers of a group in the reverse of their order
    vestra::project* open_project = nullptr; // not owned; null when none is open

    wide_string read_error; // a line for the user: why the last file that was read was refused; or empty
    std::vector<refused_file> refused_reads; // these two: all since somebody emptied it
    std::vector<refused_file> refused_writes;
};

// The one record of this process; whoever changes it may copy it before and put it back.
host_settings& settings();

// What the host shows to a person and asks of them. The C functions of vsk_msgs go to the front end in
// force: a terminal, a script of answers, a window. User-interface thread only.
// The answers of a box with yes, no and cancel, as vs_yesnocancel_wmessage returns them; closed: by the
// operating system, unanswered.
enum class answer : std::int32_t { closed = 0, cancel = 2, yes = 6, no = 7 };

class front_end {
public:
    virtual ~front_end() = default;

    // Message boxes. Each returns when the person has seen or answered it.
    virtual void error(wide_view text) = 0;
    virtual void warning(wide_view text) = 0;
    virtual void message(wide_view text) = 0;
    virtual bool yes_no(wide_view text) = 0;
    virtual answer yes_no_cancel(wide_view text) = 0;

    // The progress window. Between opened and closed there may come any number of the others, in any order.
    virtual void progress_opened(bool stoppable) = 0;
    virtual void progress_shown(std::uint32_t current, std::uint32_t total) = 0;
    virtual void progress_caption(wide_view text) = 0;
    virtual void progress_indeterminate(bool on) = 0;
    virtual void progress_closed() = 0;
    // True from the person's wish to stop until the reset.
    virtual bool stop_requested() = 0;
    virtual void stop_reset() = 0;

    // A window that says what is being waited for.
    virtual void wait_opened(wide_view text) = 0;
    virtual void wait_closed() = 0;
};

// The innermost override. Without one, a front end that shows nothing, never stops, and answers every
// question with no.
front_end& current_front_end();

// Puts `replacement` in force for its own life; it outlives the override. Overrides nest.
class front_end_override {
public:
    explicit front_end_override(front_end& replacement);
    ~front_end_override();
    front_end_override(const front_end_override&) = delete;
    front_end_override& operator=(const front_end_override&) = delete;

private:
    front_end* previous_;
};

} // namespace vestra::shell
