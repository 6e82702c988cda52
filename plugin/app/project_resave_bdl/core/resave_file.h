// A unit with one primary data file: a layer, a table, a well.
//
// Gives the whole of saving a file; a kind adds its entity, its source, the way the new path is written back,
// the folder for its type and what belongs to its family of files.
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
    // Finds the file's new place, copies its family unless the run has done so, and refers to it there.
    bool do_save() override;
    void build() override;

    // The last step of a save that found its source.
    virtual void after_file_saved() {}
    // The unit's existing files; by default those that the host's data source names.
    virtual void collect_source_files(std::vector<found_file>& out);
    virtual wide_string source_path() = 0;
    virtual void set_new_path(const wide_string& path) = 0;
    // Name of the folder for files of this type.
    virtual wide_string default_folder() = 0;
    // The table whose joins go with the copying, not owned; null if there is none.
    virtual vs_attr_data* attr_data() { return nullptr; }
    // Copies the family of files. The result says nothing: failures are on record.
    virtual bool copy_files(const wide_string& source, const wide_string& target) = 0;

protected:
    uint32_t weight = 1;                // steps of progress
    std::vector<uint32_t> source_files; // found by build; their texts stand in the context's `sizes`

    // Finds the new place of a file that has none yet and copies its family there; the path, or empty.
    wide_string place_and_copy(const wide_string& source);
};

} // namespace vs::project_resave
