// The main panel: the source project, a tab for each operation, and what of the project takes part. It owns
// the context on which all of them work.
#pragma once

#include <functional>
#include <memory>
#include <unordered_set>

#include "services/entity_factory.h"
#include "ui/recorded_run.h"
#include "ui/save_prj_tab.h"
#include "ui/select_element.h"
#include "ui/text_tabs.h"
#include "ui/toolkit/buttons.h"
#include "ui/toolkit/layouts.h"

namespace vs::project_resave {

class project_context;

class settings_element {
public:
    // The services are the application's, and come later.
    explicit settings_element(const resave_services* services);
    ~settings_element();
    settings_element(const settings_element&) = delete;
    settings_element& operator=(const settings_element&) = delete;

    element main_element() { return main_layout_; }

    // Does the operation of the tab that is shown. False at all times: the window stays.
    bool run_active_tab();
    // Validator of the source field: loads the project. False, with nothing loaded and the field empty, if
    // that fails; false, with everything as it was, for the path of the new project.
    bool load_from_field(const wide_string& text);
    // Loads the project that was open in the host when the panel was built.
    void load_current();
    // Releases the loaded project; while an operation runs, after it.
    void close_project();
    // Closes it, and works without services from now on: they go, and the panel is left to whoever holds it.
    void leave_services();
    // The window is there again: takes back a `close_project` that waits for the end of an operation.
    void keep_project() { close_after_work_ = false; }
    void reset_to_defaults();
    // What a resave would do now.
    recorded_run planned() const;
    // Takes the ticks of these elements off; nothing while an operation runs.
    void leave_out(const std::unordered_set<wide_string>& uuids);
    // Who learns of the bytes that a resave copies; null for nobody.
    void watch_transfer(const transfer_observer& observer) { transfer_observer_ = observer; }
    // Of the runs that have ended.
    const recording_questions& runs() const { return questions_; }

private:
    void on_project_changed();
    void on_active_tab_changed();
    void run_tab(uint32_t index);
    void resave();
    // Runs `operation`, which gets no second one into its way. What it throws ends with the project closed
    // and the error of this number.
    void work(int32_t failure, const std::function<void()>& operation);
    void enable_only(std::initializer_list<uint32_t> views);
    void lay_out();

    wide_string source_path_; // of the project now loaded; empty without one
    wide_string new_path_;    // as accepted in the tab that resaves
    recording_questions questions_;
    const std::unique_ptr<project_context> owned_context_;
    project_context& context_;
    const wide_string host_project_path_;
    toolkit::label source_label_;
    toolkit::file_input source_field_;
    toolkit::button load_button_;
    toolkit::grid_span_layout header_;
    save_prj_tab prj_tab_;
    save_struct_tab struct_tab_;
    save_scns_xml_tab scns_xml_tab_;
    checked_path_register_tab path_register_tab_;
    toolkit::tab_layout tabs_;
    toolkit::grid_layout left_column_;
    select_element selection_;
    std::shared_ptr<void> project_connection_;
    toolkit::grid_layout main_layout_;
    transfer_observer transfer_observer_;
    bool running_ = false;
    bool close_after_work_ = false;
};

} // namespace vs::project_resave
