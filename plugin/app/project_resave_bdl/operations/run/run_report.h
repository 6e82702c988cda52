// What a run found: losses and failures by the list in work, and its outcome.
#pragma once

#include <set>
#include <vector>

#include "platform/wide_string.h"

namespace vs::project_resave {

class run_report {
public:
    struct problem {
        wide_string title; // caption of the list that was in work
        wide_string text;  // one line or more, each ended by a line feed
    };

    // Everything empty and false again.
    void reset();
    // Records under the list in work; among the untitled ones while it has no caption.
    void add_lost_source(const wide_string& what);
    void add_copy_error(const wide_string& path); // its file name alone is told
    void add_unprocessed_type(const char* layer_type);
    void add_to_current(const wide_string& text);
    // Tells the user how the resave went.
    void show_final_message() const;

    bool depth_exceeded = false;             // the selection did not settle in time
    std::set<wide_string> unprocessed_types; // layer kinds that nothing resaves, each once
    std::vector<problem> problems;           // grouped by consecutive titles
    wide_string current_unit;                // caption of the list in work; kept after the list has ended
    bool stopped = false;                    // the user ended the run
    bool saved = false;                      // the new project file exists

    // What the final message leaves out, for whoever asks after the run.
    std::vector<problem> untitled;       // problems of lists without a caption
    std::vector<problem> unread_files;   // under the caption of the element, the path of a file that is there
                                         // but not to be read: what it refers to stays where it was
    std::vector<problem> kept_joins;     // the same with tables that it goes on joining at their source
    std::vector<wide_string> not_erased; // what a stop was to erase and still stands
};

} // namespace vs::project_resave
