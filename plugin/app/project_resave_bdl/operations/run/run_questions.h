// Everything a run asks or shows. The panel implements it with boxes of the host, the command with its
// options or on the terminal. Main thread only.
#pragma once

#include <cstdint>

#include "platform/wide_string.h"

namespace vs::project_resave {

class run_report;

// Go on, stop and keep the created files, or stop and remove them.
enum class stop_answer { go_on, keep_created, erase_created };

// `accepted` is false if the user cancelled.
struct unique_name_answer {
    bool accepted = false;
    wide_string path;
};

// Calls block until they are answered. None may throw.
class run_questions {
public:
    virtual ~run_questions() = default;

    // True if elements that selected ones refer to are to be added to the selection.
    virtual bool add_referenced() = 0;
    // Called when the user pressed stop. Returns whether the run ends, and what happens to the files it
    // created.
    virtual stop_answer on_stop() = 0;
    // Returns a new path for the copy of `source`, since `proposed` is taken. An accepted path did not exist
    // when it was returned; it may be empty.
    virtual unique_name_answer new_name(const wide_string& source, const wide_string& proposed) = 0;
    // Returns the place where an earlier run put the copy of `source`, if it is to stay there, else `wanted`.
    // Called before each file is placed. If the place is taken it gets a number, as any other.
    virtual wide_string kept_place(const wide_string& source, const wide_string& wanted) {
        static_cast<void>(source);
        return wanted;
    }
    // Called when the file of the last `kept_place` has been placed.
    virtual void place_found() {}
    // True if the source project is to be loaded again after a resave.
    virtual bool reopen_source() = 0;
    // Shows the result of a resave. The report is complete.
    virtual void show_report(const run_report& report) = 0;
    // Shows a text of the bundle by its number.
    virtual void show_message(int32_t text) = 0;
    // Shows a text as an error, followed by the path that it concerns, if there is one.
    virtual void show_error(int32_t text, const wide_string& path = {}) = 0;
};

} // namespace vs::project_resave
