// The central object of the bundle: the loaded project, its tree of units, and the four runs over the tree.
// Lives as long as the panel or command that owns it. Main thread only.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "core/resave_unit.h"
#include "framework/border/caught.h"
#include "operations/run/run_progress.h"
#include "operations/run/run_result.h"
#include "operations/run/run_state.h"
#include "services/entity_factory.h"

namespace vs::project_resave {

struct structure_settings;
struct scene_file_settings;

// Owns the project and the tree. While a run is in progress, no other run may be started.
class project_context : public run_state, private exception_record {
public:
    // The services belong to the owner and may be filled later; null counts as none. `asked` answers the
    // questions of the runs and shows their messages; it must outlive this object.
    project_context(const resave_services* found, run_questions& asked);
    // Releases a loaded project without calling any observer.
    ~project_context();

    // Reads a project into a private copy and builds its tree. The project loaded before is released in any
    // case. Returns false after a failure, which is shown to the user; then no project is loaded. Fires
    // project_changed once.
    bool load_project(const wide_string& path, bool show_wait, bool write_open_log);
    // Releases the project and fires project_changed; does nothing if none is loaded.
    void close_project();
    // Destroys the tree without firing project_changed.
    void clear_tree();
    // Asks all roots again for the number of steps of a run, and returns the sum.
    uint32_t count_units();

    // Resaves the loaded project. After that no project is loaded, unless the user wants the source reopened.
    // Refuses a new project that would replace the source or a file of it.
    run_result resave_project(const resave_settings& settings);
    // Called after a stop: removes what the run created, if the user asked for it.
    void on_stopped();
    // Does the same and loads the source again. Kept for other bundles; nothing here calls it.
    bool stop_and_reload();
    // Logs whether the new project was saved and sets that in the report.
    void note_project_saved(bool ok);

    // The other runs over the tree. The project stays loaded and unchanged. If the user stops the run, the
    // text file is removed.
    //
    // Writes the structure as text. The log keeps that file's name, so a later run without a log appends to
    // it.
    run_result save_structure(const structure_settings& settings);
    // Writes a scene file for each selected 2D scene, named by its caption. Their folder is derived from the
    // new project's path of the last resave; before the first resave that path is empty, which means the
    // current folder.
    run_result create_scene_files(const scene_file_settings& settings);
    // Writes three lines for each path whose letter case differs from the disk's: as stored, as on the disk,
    // and an empty line.
    run_result check_path_case(const wide_string& report_path);

    // Returns the loaded project, owned by this object; null if none is loaded.
    vs_prj* project_handle() { return project; }
    // The registers and the event, for the panel.
    project_resave::selection_register& selection_register() { return selection; }
    project_resave::size_register& size_register() { return sizes; }
    event& project_changed_event() { return project_changed; }

    // Makes units for elements that other bundles claim.
    entity_factory factory;
    const resave_services* services;
    vs_prj* project = nullptr; // owned; null if none is loaded
    event project_changed;
    std::vector<std::unique_ptr<Tvs_resave_unit>> tree; // the roots, in the order of a run

private:
    // Reads the file into `project`; returns false if the host cannot read it.
    bool read_project(vs_xml_save_prj* reader, const wide_string& path, bool write_open_log);
    // Builds all roots, in the order in which a run saves them.
    void build_tree(const wide_string& path);
    // Gives the load log its own name, if that is possible.
    void settle_open_log();
    void add_root(std::unique_ptr<Tvs_resave_unit> root);
    void release_project();
    // The steps of resave_project, in their order.
    void begin_run(const resave_settings& settings);
    void open_log_of_run();
    void renew_guard();
    void correct_selection();
    void find_common_directory();
    void save_tree();
    void save_project();
    void end_run();
    // Takes the place of end_run after an exception.
    void end_broken_run();
    // Removes everything that the run created, and reports what it could not remove.
    void erase_made_files();
    // Returns the result of a run that ended or was stopped, from the report and the placement.
    run_result result_of(bool written);
    run_result broke_off(const char* run); // call it in a handler only
    // Clears the tree and the registers of a project that was released.
    void forget_project();
    // Shows progress while `lines` writes a new text file through the log. After a stop the file has been
    // removed and the user informed.
    run_result write_text(const wide_string& path, const std::function<void()>& lines);
    // Called with an exception that was caught, here or at the border: makes it a fact and a line of the log.
    void record(const char* where, const char* what) noexcept override;

    wide_string log_wanted_;          // the path that the load log should have
    std::vector<fact> facts_of_tree_; // what the load found; each run's report begins with it
};

} // namespace vs::project_resave
