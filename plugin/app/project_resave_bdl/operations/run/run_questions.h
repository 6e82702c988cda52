// Everything a run asks or shows. The panel answers with the boxes of the host, the command with its options
// or on the terminal. User-interface thread only.
#pragma once

#include <cstdint>

#include "platform/wide_string.h"

namespace vs::project_resave {

class run_report;

enum class stop_answer { go_on, keep_created, erase_created };

struct unique_name_answer {
    bool accepted = false;
    wide_string path;
};

// Calls block until they are answered. None throws.
class run_questions {
public:
    virtual ~run_questions() = default;

    // Whether elements that selected ones refer to are added to the selection.
    virtual bool add_referenced() = 0;
    // The user pressed stop: whether the run ends, and what becomes of the files it created.
    virtual stop_answer on_stop() = 0;
    // A new path for the copy of `source`, as `proposed` is taken. An accepted path did not exist when it was
    // given; it may be empty.
    virtual unique_name_answer new_name(const wide_string& source, const wide_string& proposed) = 0;
    // The place at which the copy of `source` was put by an earlier run, if it is to stay there, else
    // `wanted`; asked before each file is placed. A place that is taken gets a number, as any other.
    virtual wide_string kept_place(const wide_string& source, const wide_string& wanted) {
        static_cast<void>(source);
        return wanted;
    }
    // The file that was asked about has its place.
    virtual void place_found() {}
    // Whether the source project is loaded again after a resave.
    virtual bool reopen_source() = 0;
    // Shows how a resave went. The report is complete.
    virtual void show_report(const run_report& report) = 0;
    // Shows a text of the bundle by its number.
    virtual void show_message(int32_t text) = 0;
    // The same as an error; the path that it is about, if there is one, is shown below it.
    virtual void show_error(int32_t text, const wide_string& path = {}) = 0;
};

} // namespace vs::project_resave
