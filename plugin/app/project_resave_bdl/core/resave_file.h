// A unit with one main data file: a layer, a table, a well. Main thread only.
//
// Implements everything about saving a file. A derived class adds its entity, its source, how the new path is
// written back, the folder for its type, and its family of files.
#pragma once

#include <vector>

#include "core/resave_unit.h"
#include "operations/run/path_files.h"

namespace vs::project_resave {

class Tvs_resave_file : public Tvs_resave_unit {
public:
    using Tvs_resave_unit::Tvs_resave_unit;

    bool write_structure() override;
    bool write_scene_file() override { return true; }
    bool check_path_case(bool* found) override;
    uint32_t count_units(uint32_t& total) override;
    void skip_progress() override;
    void collect_common_directory(common_directory& common) override;
    bool correct_selection() override { return true; }
    void set_selected(bool on) override;
    uint32_t selection_state() override;
    // Finds the file's new place, copies its family unless the run has already done so, and makes the element
    // refer to it. Returns false if the source is missing.
    bool do_save() override;
    // Enters the unit's existing files in the register and protects them.
    void build() override;

    // Called at the end of a save whose source exists.
    virtual void after_file_saved() {}
    // Sets `out` to the unit's existing files; by default those that the host lists for the data set.
    virtual void collect_source_files(std::vector<found_file>& out);
    // Returns the path of the main file; empty for none.
    virtual wide_string source_path() = 0;
    // Makes the element refer to the copy.
    virtual void set_new_path(const wide_string& path) = 0;
    // Returns the name of the folder for files of this type.
    virtual wide_string default_folder() = 0;
    // Returns the table whose joins are removed by the copy, not owned; null if there is none.
    virtual vs_attr_data* attr_data() { return nullptr; }
    // Copies the family of files. The result is not used: failures are recorded.
    virtual bool copy_files(const wide_string& source, const wide_string& target) = 0;

protected:
    uint32_t weight = 1;                // steps of progress
    std::vector<uint32_t> source_files; // found by build; the context's `sizes` has their paths

    // Finds the new place of a file that has none yet and copies its family there. Returns the path, or an
    // empty text.
    wide_string place_and_copy(const wide_string& source);
};

} // namespace vs::project_resave
