// What happened in a run, as facts. Everything a person reads of it is composed from them afterwards, so
// nobody has to read a sentence back.
#pragma once

#include <cstdint>
#include <set>
#include <utility>
#include <vector>

#include "platform/outcome.h"
#include "platform/wide_string.h"

namespace vs::project_resave {

enum class fact_kind : uint8_t {
    source_lost,           // the file of an element does not exist
    copy_failed,           // a file or folder was not copied
    no_place,              // the structure has no place for a file, so it was not copied
    not_read,              // the file exists and is no data set or scene: what it refers to was not copied
    not_written,           // a file that the run makes itself
    type_not_resaved,      // nothing resaves elements of this type; `subject` is the type
    reads_other,           // a renamed copy reads a file that is not its own; `reason` is that file
    join_kept,             // a table is still joined to the original one
    selection_not_settled, // references between elements had not settled in time
    not_erased,            // was to be removed after a stop and still exists
    renamed,               // its own name was taken
    written_over,          // a file that the run made replaced one that existed
    exception_caught,      // a fault of the program or too little memory; `subject` says where
};
inline constexpr size_t fact_kind_count = 13;

// An element of the project, as a person finds it there. All empty for what belongs to no element.
struct element_name {
    wide_string uuid;
    wide_string caption;
    wide_string list; // caption of the scene or collection that holds it
};

struct fact {
    fact_kind kind{};
    element_name element;
    wide_string path;     // the source file
    wide_string new_path; // where it was to go
    wide_string reason;   // in the operating system's words; empty where it says nothing
    wide_string subject;  // what the final message names
    wide_string heading;  // the group of the final message: caption of the list that began last
};

class run_report {
public:
    // The lines of the final message under one heading.
    struct problem {
        wide_string title;
        wide_string text; // one line or more, each ended by a line feed
    };

    // Each adds a fact about the current element.
    //
    // `subject`, not the path, is what the final message names. `reason` where the file may well exist.
    void add_lost_source(const wide_string& path, const wide_string& subject, const wide_string& reason = {});
    // The final message names the file name of `path`, or of `subject` if one is given.
    void add_copy_error(const wide_string& path, const wide_string& new_path, const platform::outcome& why,
                        const wide_string& subject = {});
    // `path` is the file that the layer shows, if it has one.
    void add_unprocessed_type(element_name layer, const char* layer_type, const wide_string& path);
    void add(fact_kind kind, const wide_string& path, const wide_string& new_path = {},
             const wide_string& reason = {});
    void add_exception(const wide_string& where, const wide_string& what);

    const element_name& current() const { return current_; }
    const std::vector<fact>& facts() const { return facts_; }
    bool has(fact_kind kind) const;
    // What the final message lists: lost sources and failed copies, grouped by consecutive headings. Those
    // without a heading are left out.
    std::vector<problem> problems() const;
    // Layer types that nothing resaves, each once.
    std::set<wide_string> unprocessed_types() const;
    bool depth_exceeded() const { return has(fact_kind::selection_not_settled); }

    // Begins anew with what is known of the tree.
    void restart(const std::vector<fact>& of_tree);

    wide_string current_unit; // caption of the list that began last; kept after the list has ended
    bool stopped = false;     // the user ended the run
    bool saved = false;       // the new project file exists
    bool incomplete = false;  // a fact is missing, as there was no memory for it

private:
    friend class current_element;
    fact& append(fact_kind kind);

    std::vector<fact> facts_;
    element_name current_;
};

// Makes an element the current one of the report for its own life. They nest.
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
