// The settings of the running host, and the front end that it shows things with.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <unordered_map>

#include "reference_host/files/file_error.h"
#include "reference_host/model/counted.h"

namespace vestra {
class project;
class scene;
} // namespace vestra

namespace vestra::shell {

// Why files could not be read or written. The C functions return only that they failed, so a program that
// uses them looks the reason up here. Paths are compared by their path_key.
class file_refusals {
public:
    // Takes the place of an earlier refusal of the same file.
    void add(files::file_error refusal);
    // The last refusal of this path; null if there is none.
    const files::file_error* find(const wide_string& path) const;
    void clear() { by_key_.clear(); }
    // All of them, in no order, by the path_key of their files.
    const std::unordered_map<wide_string, files::file_error>& all() const { return by_key_; }

private:
    std::unordered_map<wide_string, files::file_error> by_key_;
};

// What the running host keeps beside any project. User-interface thread only.
struct host_settings {
    std::uint32_t language_offset = 0;       // in the string tables: 0 base language, 50000 English
    bool invert_layers = false;              // people see the layers of a group in the reverse of their order
    vestra::project* open_project = nullptr; // not owned; null when none is open

    // True while what is read is not wanted any more: data sets are then answered as if they could not be
    // opened. Empty if they always are.
    std::function<bool()> stops_reading;

    // Called with what a bundle has just read from a file, before it sees it; may change it. May be empty.
    std::function<void(vestra::project&)> project_read;
    std::function<void(vestra::scene&)> scene_read;

    // Why the last project or scene file that was asked for was refused; nothing if it was read.
    std::optional<files::file_error> read_error;
    // All since somebody emptied them. Read are projects, scenes, data sets, DBF and TOS tables. Written are
    // projects, scenes and layers: what was there before is there still.
    file_refusals refused_reads;
    file_refusals refused_writes;
};

// The one record of this process; whoever changes it may copy it before and put it back.
host_settings& settings();

// The answers of a box with yes, no and cancel, as vs_yesnocancel_wmessage returns them; closed: by the
// operating system, unanswered.
enum class answer : std::int32_t { closed = 0, cancel = 2, yes = 6, no = 7 };

// What the host shows to a person and asks of them. The C functions of vsk_msgs go to the front end in
// force: a terminal, a script of answers, a window. User-interface thread only.
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

    // The next progress is about so many bytes, of which `bytes_moved` tells; 0: only its steps are known.
    virtual void expect_bytes(std::uint64_t) {}
    virtual void bytes_moved(std::uint64_t) {}
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
