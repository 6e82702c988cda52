// The one object on which all work of the bundle is done: the loaded project, its tree of units, and the four
// runs over the tree. Lives as long as the panel or command that owns it. User-interface thread only.
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

class project_context : public run_state, private exception_record {
public:
    // The services are the owner's and may come later; null counts as none. `asked` answers what the runs
    // ask, and shows what they show; it must outlive this object.
    project_context(const resave_services* found, run_questions& asked);
    // Releases a loaded project; no observer is called.
    ~project_context();

    // Reads a project into a private copy and builds its tree. What was loaded before is gone in any case;
    // after a failure, which is shown, nothing is loaded. Fires project_changed once.
    bool load_project(const wide_string& path, bool show_wait, bool write_open_log);
    // Releases the project and fires project_changed; nothing if none is loaded.
    void close_project();
    // Destroys the tree without firing.
    void clear_tree();
    // Asks all roots again how many steps a run has.
    uint32_t count_units();

    // Resaves the loaded project. Afterwards none is loaded, unless the user wants the source reopened. A new
    // project that would replace the source or a file of it is refused.
    run_result resave_project(const resave_settings& settings);
    // After a stop: erases what the run created, if the user asked for it.
    void on_stopped();
    // Kept for other bundles; nothing here calls it.
    bool stop_and_reload();
    void note_project_saved(bool ok);

    // The other runs over the tree. The project stays loaded and as it was. After a stop the text file is
    // removed.
    //
    // The structure as text. The log keeps naming that file, so a later run without a log adds to it.
    run_result save_structure(const structure_settings& settings);
    // A scene file for each selected 2D scene, named by its caption. Their folder is the path of the new
    // project of the last resave, as it stands; before the first it is empty: the current directory.
    run_result create_scene_files(const scene_file_settings& settings);
    // Three lines for each path whose letter case is not the disk's: as stored, as it is, and an empty one.
    run_result check_path_case(const wide_string& report_path);

    vs_prj* project_handle() { return project; }
    project_resave::selection_register& selection_register() { return selection; }
    project_resave::size_register& size_register() { return sizes; }
    event& project_changed_event() { return project_changed; }

    entity_factory factory;
    const resave_services* services;
    vs_prj* project = nullptr; // owned
    event project_changed;
    std::vector<std::unique_ptr<Tvs_resave_unit>> tree; // the roots, in the order of a run

private:
    bool read_project(vs_xml_save_prj* reader, const wide_string& path, bool write_open_log);
    void build_tree(const wide_string& path);
    void settle_open_log();
    void add_root(std::unique_ptr<Tvs_resave_unit> root);
    void release_project();
    void begin_run(const resave_settings& settings);
    void open_log_of_run();
    void renew_guard();
    void correct_selection();
    void find_common_directory();
    void save_tree();
    void save_project();
    void end_run();
    void end_broken_run();
    void erase_made_files();
    run_result result_of(bool written);
    run_result broke_off(const char* run); // in a handler only
    void forget_project();
    // Shows progress while `lines` writes a new text file through the log. After a stop the file is gone and
    // the user has been told.
    run_result write_text(const wide_string& path, const std::function<void()>& lines);
    // What was caught, here or at the border, becomes a fact and a line of the log.
    void record(const char* where, const char* what) noexcept override;

    wide_string log_wanted_;          // the path that the log of a load is to have
    std::vector<fact> facts_of_tree_; // what the load found; the report of each run begins with it
};

} // namespace vs::project_resave
