// What a finished resave leaves wanting though nothing failed: files that stayed behind, elements that the
// new project does not have, elements that no rule copies, references that still lead out of it or to
// nothing.
#pragma once

#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "apps/vestra_resave/commands.h"
#include "apps/vestra_resave/elements.h"
#include "apps/vestra_resave/resave_report.h"
#include "operations/run/registers.h"

namespace vestra::command {

// The elements of the source project, gathered before the run changes them.
class source_elements {
public:
    struct row {
        vs::project_resave::element_name name;
        std::string kind;
        wide_string file; // its path; empty without one, or if it does not exist
        size_t end = 0;   // the row after the last one of what is in it
    };

    explicit source_elements(vs::project_resave::project_context& context);

    // In the order of the project, each before what is in it.
    const std::vector<row>& rows() const { return rows_; }
    // Null for a uuid that no element has.
    const row* find(const wide_string& uuid) const;
    // True for what the user left out, alone or with what it is in.
    bool is_left_out(const wide_string& uuid) const { return left_out_.contains(uuid); }

private:
    void add(const element& each, const wide_string& list, bool is_out,
             const vs::project_resave::selection_register& selection);

    std::vector<row> rows_;
    std::unordered_map<wide_string, size_t> by_uuid_;
    std::unordered_set<wide_string> left_out_; // uuids
};

// Adds to the report what the run that has just ended leaves wanting and, if the request asks for it, copies
// that are not as their sources. Loads the new project, so that what the run left in the session is gone.
void add_shortfalls(session& host, const source_elements& source, const resave_request& request,
                    resave_report& report);

} // namespace vestra::command
