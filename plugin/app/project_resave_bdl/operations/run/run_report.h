// What happened in a run, as facts. All messages for the user are composed from them afterwards, so no code
// has to parse a sentence. Main thread only.
#pragma once

#include <cstdint>
#include <set>
#include <utility>
#include <vector>

#include "platform/outcome.h"
#include "platform/wide_string.h"

namespace vs::project_resave {

// Kinds of facts. Other bundles know the numbers: append new kinds at the end.
enum class fact_kind : uint8_t {
    source_lost,           // the file of an element does not exist
    copy_failed,           // a file or folder was not copied
    no_place,              // the structure has no place for a file, so it was not copied
    not_read,              // not a data set or scene, so the files it refers to were not copied
    not_written,           // a file that the run writes itself could not be written
    type_not_resaved,      // nothing resaves elements of this type; `subject` is the type
    reads_other,           // a renamed copy still reads another file, `reason`
    join_kept,             // a table is still joined to the original one
    selection_not_settled, // references between elements had not settled after 12 rounds
    not_erased,            // still exists, but should have been removed after a stop
    renamed,               // got another name because its own was taken
    written_over,          // a file that the run wrote replaced an existing one
    exception_caught,      // an error in the program, or out of memory; `subject` is the place
};
inline constexpr size_t fact_kind_count = 13;

// An element of the project as the user sees it. All members are empty for a fact without an element.
struct element_name {
    wide_string uuid;
    wide_string caption;
    wide_string list; // caption of the scene or collection that contains it
};

// One thing that happened. Members that the kind does not use are empty.
struct fact {
    fact_kind kind{};
    element_name element;
    wide_string path;     // the source file
    wide_string new_path; // where the copy was to be placed
    wide_string reason;   // the operating system's words; may be empty
    wide_string subject;  // the name used in the final message
    wide_string heading;  // heading in the final message: the list begun last
};

// The facts of a run, in the order in which they happened.
class run_report {
public:
    // The lines of the final message under one heading.
    struct problem {
        wide_string title;
        wide_string text; // one or more lines, each ended by a line feed
    };

    // Each adds a fact about the current element.
    //
    // The final message shows `subject`, not the path. `reason` is set if the file may exist.
    void add_lost_source(const wide_string& path, const wide_string& subject, const wide_string& reason = {});
    // The final message shows the file name of `path`, or of `subject` if it is given.
    void add_copy_error(const wide_string& path, const wide_string& new_path, const platform::outcome& why,
                        const wide_string& subject = {});
    // `path` is the file that the layer shows, if it has one.
    void add_unprocessed_type(element_name layer, const char* layer_type, const wide_string& path);
    // The general form, for the kinds that need no more than paths and a reason.
    void add(fact_kind kind, const wide_string& path, const wide_string& new_path = {},
             const wide_string& reason = {});
    // Adds an exception: where it was caught, and its text.
    void add_exception(const wide_string& where, const wide_string& what);

    // Returns the current element; see current_element.
    const element_name& current() const { return current_; }
    const std::vector<fact>& facts() const { return facts_; }
    // True if there is a fact of this kind.
    bool has(fact_kind kind) const;
    // Returns the entries of the final message: lost sources and failed copies, grouped by consecutive
    // headings. Facts without a heading are omitted.
    std::vector<problem> problems() const;
    // Returns the layer types that nothing resaves, each once.
    std::set<wide_string> unprocessed_types() const;
    // True if references between elements did not settle.
    bool depth_exceeded() const { return has(fact_kind::selection_not_settled); }

    // Removes all facts except those of the tree.
    void restart(const std::vector<fact>& of_tree);

    wide_string current_unit; // caption of the list begun last, even after its end
    bool stopped = false;     // the user ended the run
    bool saved = false;       // the new project file exists
    bool incomplete = false;  // a fact is missing, because memory ran out

private:
    friend class current_element;
    fact& append(fact_kind kind);

    std::vector<fact> facts_;
    element_name current_;
};

// Makes an element the report's current one for the life of this object. Objects nest.
class current_element {
public:
    current_element(run_report& report, element_name name)
        : report_(report), before_(std::exchange(report.current_, std::move(name))) {}
    ~current_element() { report_.current_ = std::move(before_); }
    current_element(const current_element&) = delete;
    current_element& operator=(const current_element&) = delete;

private:
    run_report& report_;
    element_name before_;
};

} // namespace vs::project_resave
