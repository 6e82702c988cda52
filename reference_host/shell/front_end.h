// The settings of the running host, and the interface through which it shows messages and progress.
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

// Keeps why files could not be read or written. The C functions only return that they failed; a program can
// look the reason up here. Paths are compared by their path_key.
class file_refusals {
public:
    // Replaces an earlier refusal of the same file.
    void add(files::file_error refusal);
    // Returns the last refusal of this path; null if there is none.
    const files::file_error* find(const wide_string& path) const;
    void clear() { by_key_.clear(); }
    // Returns all refusals by the path_key of their files, in no order.
    const std::unordered_map<wide_string, files::file_error>& all() const { return by_key_; }

private:
    std::unordered_map<wide_string, files::file_error> by_key_;
};

// The state of the running host apart from any project. User-interface thread only.
struct host_settings {
    std::uint32_t language_offset = 0;       // into the string tables: 0 base language, 50000 English
    bool invert_layers = false;              // the selection shows the layers of a group in reverse order
    vestra::project* open_project = nullptr; // not owned; null if none is open

    // Returns true once reading is to stop: opening a data set then fails. May be empty.
    std::function<bool()> stops_reading;

    // Called with a project or scene that was read from a file, before the bundle gets it; may change it. May
    // be empty.
    std::function<void(vestra::project&)> project_read;
    std::function<void(vestra::scene&)> scene_read;

    // Why the last project or scene file could not be read; nothing if it was read.
    std::optional<files::file_error> read_error;
    // Refusals since the last `clear`. Reads are those of projects, scenes, data sets, DBF and TOS tables.
    // Writes are those of projects, scenes and layers, where the previous file is left intact.
    file_refusals refused_reads;
    file_refusals refused_writes;
};

// Returns the settings of this process. A caller that changes them may save a copy and restore it.
host_settings& settings();

// The answers to a box with yes, no and cancel, as vs_yesnocancel_wmessage returns them. `closed` means that
// the operating system closed the box without an answer.
enum class answer : std::int32_t { closed = 0, cancel = 2, yes = 6, no = 7 };

// Shows messages and questions to the user. The functions of vsk_msgs go to the current front end: a
// terminal, a script of answers, or a window. User-interface thread only.
class front_end {
public:
    virtual ~front_end() = default;

    // Message boxes. Each function returns when the user has seen or answered it.
    virtual void error(wide_view text) = 0;
    virtual void warning(wide_view text) = 0;
    virtual void message(wide_view text) = 0;
    virtual bool yes_no(wide_view text) = 0;
    virtual answer yes_no_cancel(wide_view text) = 0;

    // The progress window. Between opened and closed, the other calls can come in any number and order.
    virtual void progress_opened(bool stoppable) = 0;
    // The share that is done; a total of 0 counts as nothing done.
    virtual void progress_shown(std::uint32_t current, std::uint32_t total) = 0;
    virtual void progress_caption(wide_view text) = 0;
    virtual void progress_indeterminate(bool on) = 0;
    virtual void progress_closed() = 0;
    // Returns true after the user requested a stop, until the reset.
    virtual bool stop_requested() = 0;
    virtual void stop_reset() = 0;

    // A window with the text of what is being waited for. Several can be open; each is closed by one call.
    virtual void wait_opened(wide_view text) = 0;
    virtual void wait_closed() = 0;

    // The next progress covers this number of bytes, reported by `bytes_moved`; 0: only steps are known.
    virtual void expect_bytes(std::uint64_t) {}
    virtual void bytes_moved(std::uint64_t) {}
};

// Returns the innermost override. Without one, returns a front end that shows nothing, never stops, and
// answers every question with no.
front_end& current_front_end();

// Makes `replacement` the current front end until the destructor; it must outlive this object. Overrides can
// be nested.
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
