// Shortfalls of a finished resave although nothing failed: files that stayed behind, elements missing in the
// new project, elements that no rule copies, and broken references.
#pragma once

#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "apps/vestra_resave/commands.h"
#include "apps/vestra_resave/elements.h"
#include "apps/vestra_resave/resave_report.h"
#include "operations/run/registers.h"

namespace vestra::command {

// The elements of the source project, collected before the run changes and releases them. Stays valid when
// another project is loaded.
class source_elements {
public:
    // One element with its name, its file and the range of its descendants.
    struct row {
        vs::project_resave::element_name name;
        std::string kind;
        wide_string file; // empty if it has none or if it does not exist
        // Index after the last descendant, so that a subtree can be skipped.
        size_t end = 0;
    };

    // Reads the loaded project and the current selection.
    explicit source_elements(vs::project_resave::project_context& context);

    // Returns the elements in the order of the project, parents before children.
    const std::vector<row>& rows() const { return rows_; }
    // Returns the element with this uuid, the first one if several have it; null if there is none.
    const row* find(const wide_string& uuid) const;
    // True for an element that the user left out, itself or with a parent.
    bool is_left_out(const wide_string& uuid) const { return left_out_.contains(uuid); }

private:
    void add(const element& each, const wide_string& list, bool is_out,
             const vs::project_resave::selection_register& selection);

    std::vector<row> rows_;
    std::unordered_map<wide_string, size_t> by_uuid_;
    std::unordered_set<wide_string> left_out_; // uuids
};

// Adds the shortfalls of the run that has just ended to the report and, if requested, copies that differ from
// their sources. Call it only after a run that saved. Loads the new project, which discards the run's state
// in the session. After a stop the report is marked as stopped, and what was found until then is in it.
void add_shortfalls(session& host, const source_elements& source, const resave_request& request,
                    resave_report& report);

} // namespace vestra::command
