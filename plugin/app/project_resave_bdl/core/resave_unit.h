// The base of all resave units, and the lines of elements in the text of a project's structure. Main thread
// only.
#pragma once

#include <cstdint>
#include <memory>

#include "host/types.h"
#include "operations/run/run_report.h"
#include "platform/wide_string.h"

namespace vs::project_resave {

struct run_state;

// Lines in the structure text are written at the current depth of the log.
//
// Returns the caption; if the options ask for paths, followed by a separator and the path.
wide_string with_path(run_state& run, wide_string caption, const wide_string& path);
// Writes a line for each field of a DBF table; the fields of joined tables are marked. Writes nothing for a
// null table or one that does not open.
void write_attr_fields(run_state& run, vs_attr_data* table);
// Writes a line for each property of the TOS file; writes nothing if it does not open.
void write_tos_properties(run_state& run, const wide_string& path);

// Base of the tree of resave units, with one unit for each element of the project that takes part.
//
// A unit is created with new, owned by its parent list (a root by project_context), built once and destroyed
// with the tree. It may outlive the project that it was created for: destructors free what the unit owns and
// pass no handle of the project to the host. Errors are recorded as facts: a bad file never throws.
struct run_state;
class common_directory;

class Tvs_resave_unit {
public:
    explicit Tvs_resave_unit(run_state& run) : context(&run) {}
    Tvs_resave_unit(const Tvs_resave_unit&) = delete;
    Tvs_resave_unit& operator=(const Tvs_resave_unit&) = delete;
    virtual ~Tvs_resave_unit() = default;

    // Builds the unit and everything below it; a second call does nothing. Not overridden.
    virtual void build_once();
    // Saves the unit: calls before_save, do_save and after_save. Not overridden.
    virtual bool save();
    // Writes the unit's lines into the structure text. The result is not used.
    virtual bool write_structure() = 0;
    // Writes the scene file of a 2D scene; other units do nothing. The result is not used.
    virtual bool write_scene_file() = 0;
    // Writes each path whose letter case differs from the disk's; sets *found to true if there is one.
    virtual bool check_path_case(bool* found) = 0;
    // Adds the unit's steps of progress to the total and returns the number added.
    virtual uint32_t count_units(uint32_t& total) = 0;
    // Makes the steps of a unit that is not saved.
    virtual void skip_progress() = 0;
    // Adds the unit's files to `common`.
    virtual void collect_common_directory(common_directory& common) = 0;
    // Adds the elements that this unit refers to to the selection, if the user agrees. Returns true if the
    // selection did not change.
    virtual bool correct_selection() { return true; }
    // Returns the unit's element; null if it has none.
    virtual vs_entity* entity() = 0;
    // Returns the element's uuid; null without an element.
    virtual vs_uuid* uuid();
    // Selects the unit, with everything below it, or leaves it out.
    virtual void set_selected(bool on) = 0;
    // Returns a `vs_three_state`: true if selected, mixed if members differ.
    virtual uint32_t selection_state() = 0;
    // Called before and after `build` and `do_save`; they write the logs and keep the registers. An override
    // must call them.
    virtual void before_build();
    virtual void after_build();
    virtual void before_save();
    virtual void after_save(bool ok);
    // Returns the element's caption; empty without an element.
    virtual wide_string caption();
    // Saves the unit. Returns false only if the unit's main source is lost.
    virtual bool do_save() = 0;
    // Creates the units below this one and enters its files.
    virtual void build() = 0;

    // Returns the unit's element for the report, as a member of the list with this caption.
    element_name name_in(const wide_string& list);

protected:
    run_state* const context;
    bool built = false;
    bool uuid_pushed = false; // from before_build to after_build, on the stack of the size register
};

// Creates units for the elements that other bundles claim; asked before the tables of layer types.
class claimed_units {
public:
    virtual ~claimed_units() = default;
    // Returns a unit that is not built yet, for the caller to place; null for an element that is not claimed.
    virtual std::unique_ptr<Tvs_resave_unit> make(run_state& run, vs_entity* entity) = 0;
};
// Does the same for an element that may be null, and also if no object claims elements.
std::unique_ptr<Tvs_resave_unit> make_claimed_unit(run_state& run, vs_entity* entity);

// Selects the unit with this uuid text and everything below it, unless it is already selected or does not
// exist. The user is asked once in a run and may refuse. Returns true if the selection changed.
bool select_referenced(run_state& run, const wide_string& uuid);

} // namespace vs::project_resave
