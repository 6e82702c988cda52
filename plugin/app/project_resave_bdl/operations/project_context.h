// The one object on which all work of the bundle is done: the loaded project, its tree of units, and all that
// the runs over the tree share. Lives as long as the panel or command that owns it. User-interface thread
// only.
#pragma once

#include <functional>
#include <memory>
#include <unordered_set>
#include <vector>

#include "core/deferred_joins.h"
#include "core/resave_unit.h"
#include "framework/border/ref.h"
#include "logs/log_file.h"
#include "logs/open_log_file.h"
#include "operations/run/event.h"
#include "operations/run/path_placement.h"
#include "operations/run/resave_options.h"
#include "operations/run/run_progress.h"
#include "operations/run/run_report.h"
#include "operations/run/selection_register.h"
#include "operations/run/size_register.h"
#include "operations/run/text_map.h"
#include "services/collect_services.h"
#include "services/entity_factory.h"

namespace vs::project_resave {

struct structure_settings;
struct scene_file_settings;

class project_context {
public:
    // The services are the owner's and may come later; null counts as none.
    explicit project_context(const resave_services* found);
    project_context(const project_context&) = delete;
    project_context& operator=(const project_context&) = delete;
    // Releases a loaded project; nobody is told.
    ~project_context();

    // Reads a project into a private copy and builds its tree. What was loaded before is gone in any case;
    // after a failure, which the user is told, nothing is loaded. Fires project_changed once.
    bool load_project(const wide_string& path, bool show_wait, bool write_open_log);
    // Releases the project and fires project_changed; nothing if none is loaded.
    void close_project();
    // Destroys the tree without a word.
    void clear_tree();
    // Asks all roots again how many steps a run has.
    uint32_t count_units();

    // Resaves the loaded project. False only if none is loaded. Afterwards none is, unless the user wants the
    // source reopened.
    bool resave_project(const resave_settings& settings);
    // After a stop: erases what the run created, if the user asked for it.
    void on_stopped();
    bool stop_and_reload();
    void note_project_saved(bool ok);

    // The other runs over the tree. The project stays loaded and as it was. False only if none is loaded; a
    // file that cannot be written is not told, and after a stop the text file is removed.
    //
    // The structure as text. The log goes on naming that file, so a later run without a log adds to it.
    bool save_structure(const structure_settings& settings);
    // A scene file for each selected 2D scene, named by its caption. Their folder is the path of the new
    // project of the last resave, as it stands; before the first it is empty: the current directory.
    bool create_scene_files(const scene_file_settings& settings);
    // Three lines for each path whose letter case is not the disk's: as stored, as it is, and an empty one.
    bool check_path_case(const wide_string& report_path);

    vs_prj* project_handle() { return project; }
    project_resave::selection_register& selection_register() { return selection; }
    project_resave::size_register& size_register() { return sizes; }
    event& project_changed_event() { return project_changed; }

    resave_options options{&progress};
    run_progress progress;
    log_file log{this};
    open_log_file open_log{this};
    path_placement placement{&progress, &log, &options};
    project_resave::selection_register selection{&sizes};
    project_resave::size_register sizes;
    run_report report;
    text_map<Tvs_resave_unit*> units; // by uuid text, the first that was built
    entity_factory entity_factory_;
    std::unordered_set<wide_string> loading_scenes; // path keys of the map scenes now being loaded
    deferred_joins deferred_joins_{&placement, &log, &report};
    uint32_t total_units = 0;
    bool case_differs = false; // what the last check of the letter case found
    const resave_services* services;
    vs_prj* project = nullptr; // owned
    event project_changed;
    std::vector<std::unique_ptr<Tvs_resave_unit>> tree; // the roots, in the order of a run

private:
    bool read_project(vs_xml_save_prj* reader, const wide_string& path, bool write_open_log);
    void build_tree(const wide_string& path);
    void add_root(std::unique_ptr<Tvs_resave_unit> root);
    void release_project();
    void begin_run(const resave_settings& settings);
    void correct_selection();
    void find_common_directory();
    void save_tree();
    void save_project();
    void end_run();
    void abandon_run();
    void forget_project();
    // Shows progress while `lines` writes a new text file through the log. After a stop the file is gone, the
    // user has been told, and the answer is false.
    bool write_text(const wide_string& path, const std::function<void()>& lines);

    std::set<wide_string> types_of_tree; // layer kinds of the loaded tree that nothing resaves
};

} // namespace vs::project_resave
