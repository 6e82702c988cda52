// The main panel: the source project, a tab for each operation, and the selection. It owns the context that
// all of them use. Main thread only.
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

// Builds and connects all parts of the window. At most one operation runs at a time: while it shows a box,
// events of the user arrive here, and everything that would start another operation is ignored.
class settings_element {
public:
    // The services belong to the application and may be filled later.
    explicit settings_element(const resave_services* services);
    ~settings_element();
    settings_element(const settings_element&) = delete;
    settings_element& operator=(const settings_element&) = delete;

    // Returns the element that fills the window, valid as long as this object.
    element main_element() { return main_layout_; }

    // Runs the operation of the active tab and returns after its end. Always returns false: the window stays
    // open.
    bool run_active_tab();
    // Validator of the source field: loads the project. If that fails, returns false, with no project loaded
    // and an empty field. For the path of the new project, returns false and changes nothing.
    bool load_from_field(const wide_string& text);
    // Loads the project that was open in the host when the panel was built, from its file: changes that are
    // not saved are not seen.
    void load_current();
    // Closes the loaded project; during an operation, after its end.
    void close_project();
    // Closes the project and works without services from now on, since they are about to be destroyed while
    // others still hold the panel.
    void leave_services();
    // The window is open again: cancels a `close_project` that waits for the end of an operation.
    void keep_project() { close_after_work_ = false; }
    // Sets all options of the tabs to their initial values.
    void reset_to_defaults();
    // Returns what a resave would do now.
    recorded_run planned() const;
    // Unchecks these elements in every view that has them; does nothing while an operation runs.
    void leave_out(const std::unordered_set<wide_string>& uuids);
    // Sets the observer of the bytes that a resave copies; null for none.
    void watch_transfer(const transfer_observer& observer) { transfer_observer_ = observer; }
    // The record of the runs that have ended.
    const recording_questions& runs() const { return questions_; }

private:
    // Shows the elements of the project that was loaded; clears the source field if there is none.
    void on_project_changed();
    // Enables the views of the selection that the active operation uses.
    void on_active_tab_changed();
    // Starts the operation of a tab; does nothing if its path is empty.
    void run_tab(uint32_t index);
    void resave();
    // Runs `operation` unless another one is running. If it throws, closes the project and shows the error
    // with this number.
    void work(int32_t failure, const std::function<void()>& operation);
    // Disables all other views of the selection.
    void enable_only(std::initializer_list<uint32_t> views);
    void lay_out();

    wide_string source_path_; // path of the loaded project; empty without one
    wide_string new_path_;    // as accepted in the tab that resaves
    recording_questions questions_;
    // The context refers to `questions_`, and all parts of the window to the context, so the order of these
    // members matters.
    const std::unique_ptr<project_context> owned_context_;
    project_context& context_;
    // Path of the project that was open in the host at construction; may be empty.
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
    // Whether an operation is running, and whether the project must be closed after it.
    bool running_ = false;
    bool close_after_work_ = false;
};

} // namespace vs::project_resave
