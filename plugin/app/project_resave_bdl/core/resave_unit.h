#pragma once

#include <cstdint>
#include <memory>

#include "host/types.h"
#include "operations/run/run_report.h"
#include "platform/wide_string.h"

namespace vs::project_resave {

// Lines of elements in the text of a project's structure, each at the current depth of the log.
struct run_state;

// Returns the caption; if the options want paths, with the separator of the text and the path after it.
wide_string with_path(run_state& run, wide_string caption, const wide_string& path);
// Writes a line for each field of a DBF table; those of joined tables are marked as such. Nothing for a null
// table and one that does not open.
void write_attr_fields(run_state& run, vs_attr_data* table);
// Writes a line for each property of the TOS file; nothing if it does not open.
void write_tos_properties(run_state& run, const wide_string& path);

// Root of the tree of resave units: one unit for each element of the project that takes part.
//
// A unit is created with new, owned by its parent list (a root by run_state), built once and dies with
// the tree. It may outlive the project it was made for: destructors free what the unit owns and pass no
// handle of the project to the host. Errors are recorded facts: a bad file never throws. User-interface
// thread only.
struct run_state;
class common_directory;

class Tvs_resave_unit {
public:
    explicit Tvs_resave_unit(run_state& run) : context(&run) {}
    Tvs_resave_unit(const Tvs_resave_unit&) = delete;
    Tvs_resave_unit& operator=(const Tvs_resave_unit&) = delete;
    virtual ~Tvs_resave_unit() = default;

    // Builds the unit and what is below it; a second call does nothing. Not overridden.
    virtual void build_once();
    // One save in its frame: before_save, do_save, after_save. Not overridden.
    virtual bool save();
    // Writes the unit's lines into the text of the structure.
    virtual bool write_structure() = 0;
    virtual bool write_scene_file() = 0;
    // Writes each path whose letter case differs from the disk's, and sets *found then.
    virtual bool check_path_case(bool* found) = 0;
    // Adds the unit's steps of progress to the total; answers its own part.
    virtual uint32_t count_units(uint32_t& total) = 0;
    virtual void skip_progress() = 0;
    virtual void collect_common_directory(common_directory& common) = 0;
    // Adds to the selection what this unit refers to, if the user agrees; true when nothing was changed.
    virtual bool correct_selection() { return true; }
    virtual vs_entity* entity() = 0;
    virtual vs_uuid* uuid();
    virtual void set_selected(bool on) = 0;
    // A `vs_three_state`: true for selected, mixed if members differ.
    virtual uint32_t selection_state() = 0;
    virtual void before_build();
    virtual void after_build();
    virtual void before_save();
    virtual void after_save(bool ok);
    virtual wide_string caption();
    // False only if the unit's primary source is lost.
    virtual bool do_save() = 0;
    virtual void build() = 0;

    // The unit's element in the report, as a member of the list of this caption.
    element_name name_in(const wide_string& list);

protected:
    run_state* const context;
    bool built = false;
    bool uuid_pushed = false; // on the stack of the size register, from before_build to after_build
};

// Makes units for the elements that it claims, before the tables of layer types are asked.
class claimed_units {
public:
    virtual ~claimed_units() = default;
    // Not built yet; the caller places it. Null for an element that is not claimed.
    virtual std::unique_ptr<Tvs_resave_unit> make(run_state& run, vs_entity* entity) = 0;
};
// The same for an element that may be null, and where nothing claims elements.
std::unique_ptr<Tvs_resave_unit> make_claimed_unit(run_state& run, vs_entity* entity);

// Selects the unit of this uuid text with all below it, unless it is selected already or there is none. The
// user is asked once in a run and may refuse. True if the selection was changed.
bool select_referenced(run_state& run, const wide_string& uuid);

} // namespace vs::project_resave
