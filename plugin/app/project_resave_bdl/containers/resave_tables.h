// Units of tables and of well sheets: collections of well sheets and correlation sheets, each of which is a
// 2D scene that a plug-in makes from a file; DBF tables, which may have other tables joined to them; and OAT
// tables. Main thread only.
#pragma once

#include "core/resave_file.h"
#include "core/resave_list.h"
#include "layers/resave_wells.h"

namespace vs::project_resave {

// One sheet, whose file is copied like that of a well. The sheet's layers have no units: a plug-in makes them
// from the file.
class Tvs_resave_well_data final : public Tvs_resave_well {
public:
    // The sheet belongs to the project.
    Tvs_resave_well_data(vs_scn_2d* handle, run_state& run) : Tvs_resave_well(run), sheet_(handle) {}

    vs_entity* entity() override;
    wide_string source_path() override;
    void set_new_path(const wide_string& path) override;
    wide_string well_caption() override;

private:
    vs_scn_2d* const sheet_;
};

// A collection of sheets, a root of the tree. A project has one for well sheets and one for correlations, if
// it has them.
class Tvs_resave_wells_data final : public Tvs_resave_list {
public:
    // The collection belongs to the project; null counts as an empty one.
    Tvs_resave_wells_data(vs_scns_2d* handle, run_state& run) : Tvs_resave_list(run), sheets_(handle) {}

    // A sheet that an entity factory claims gets that factory's unit.
    void build() override;
    void before_children() override;
    vs_entities* container() override;
    wide_string heading() override;
    // The names of sheets are always written.
    bool has_structure_content() override { return true; }
    void remove_child(uint32_t index) override;

private:
    // Null for a missing collection, which counts as an empty one.
    vs_scns_2d* const sheets_;
};

// One DBF table. Its joined tables are copied when the joins are restored, at the end of the run, unless they
// were copied before.
class Tvs_resave_attr final : public Tvs_resave_file {
public:
    // The table belongs to the project.
    Tvs_resave_attr(vs_attr_data* handle, run_state& run) : Tvs_resave_file(run), table_(handle) {}

    // Always writes the fields below the line of the table.
    bool write_structure() override;
    // Adds the path of the table and those of the joined tables, whether they exist or not.
    void collect_common_directory(common_directory& common) override;
    vs_entity* entity() override;
    wide_string source_path() override;
    void set_new_path(const wide_string& path) override;
    wide_string default_folder() override;
    vs_attr_data* attr_data() override { return table_; }
    // Copies the table and its code page file, and removes the joins.
    bool copy_files(const wide_string& source, const wide_string& target) override;

private:
    vs_attr_data* const table_;
};

// One OAT table, whose file is a TOS file. The files that the TOS file lists as members are copied with it.
class Tvs_resave_tos_table final : public Tvs_resave_file {
public:
    // The table belongs to the project.
    Tvs_resave_tos_table(vs_tos_data* handle, run_state& run) : Tvs_resave_file(run), table_(handle) {}

    // Writes the properties below the line of the table if the options ask for columns.
    bool write_structure() override;
    vs_entity* entity() override;
    wide_string source_path() override;
    void set_new_path(const wide_string& path) override;
    wide_string default_folder() override;
    // Copies the file and its members.
    bool copy_files(const wide_string& source, const wide_string& target) override;

private:
    vs_tos_data* const table_;
};

// The collection of all DBF tables, the last root of the tree, since joins of other units may refer to its
// tables.
class Tvs_resave_attrs_data final : public Tvs_resave_list {
public:
    // The collection belongs to the project.
    Tvs_resave_attrs_data(vs_attrs_data* handle, run_state& run) : Tvs_resave_list(run), tables_(handle) {}

    void build() override;
    void before_children() override;
    vs_entities* container() override;
    wide_string heading() override;
    // True if the options ask for the names of tables.
    bool has_structure_content() override;
    void remove_child(uint32_t index) override;

private:
    vs_attrs_data* const tables_;
};

// The collection of all OAT tables, a root of the tree. Each table has a unit.
class Tvs_resave_toss_data final : public Tvs_resave_list {
public:
    // The collection belongs to the project.
    Tvs_resave_toss_data(vs_toss_data* handle, run_state& run) : Tvs_resave_list(run), tables_(handle) {}

    void build() override;
    void before_children() override;
    vs_entities* container() override;
    wide_string heading() override;
    // True if the options ask for the names of tables.
    bool has_structure_content() override;
    void remove_child(uint32_t index) override;

private:
    vs_toss_data* const tables_;
};

} // namespace vs::project_resave
