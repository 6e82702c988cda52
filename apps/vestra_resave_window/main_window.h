// The window of the tool: its panel, what came of its runs, and what a desktop program has beside that.
#pragma once

#include <QMainWindow>
#include <QTimer>
#include <QTranslator>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "apps/vestra_resave_window/stored_settings.h"
#include "reference_host/qt/tool_view.h"
#include "reference_host/qt/window_front_end.h"
#include "reference_host/shell/bundle_loader.h"
#include "reference_host/toolkit/dialog_runners.h"

namespace vestra::window {

class outcome_view;
struct run_outcome;

// What a window cannot begin without: the tool of the bundle. Says why it is not there.
struct no_tool {
    std::string reason;
};

// Starts the host with the bundles and opens the tool; takes all of it down at its end. One at a time.
class main_window final : public QMainWindow {
public:
    // The bundles are libraries by their drive paths. The tool is that of one of them, or else of the library
    // beside the program. Throws no_tool.
    main_window(stored_settings& stored, std::vector<wide_string> bundles);
    ~main_window() override;

    // Loads a project by way of the tool's first field. False if it was not taken; the person was told why.
    bool open_project(const wide_string& project);
    // Both open the tool anew, on the same project, with the same choices and ticks. The language is "ru" or
    // "en".
    void set_language(const QString& language);
    void set_drives(const std::vector<stored_settings::drive>& drives);
    // Shows what a run would do, which is done on no disk.
    void try_it();
    // Shows whether a project needs anything outside of its folder.
    void check(const wide_string& project);

    qt::tool_view& tool() { return *view_; }
    const toolkit::app_window& opened() const { return *tool_; }
    outcome_view& results() { return *results_; }

protected:
    // While something is under way the window closes after it has been stopped.
    void closeEvent(QCloseEvent* event) override;
    // The file of one project is taken.
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    struct host;

    void start();
    void take_down();
    void open_anew(const std::function<void()>& change);
    void run(const std::function<void()>& press);
    bool resaves() const;
    bool may_replace(const wide_string& target);
    void map_anew(const std::vector<stored_settings::drive>& drives);
    // Work of the window's own, which nothing gets into the way of.
    void work(const std::function<void()>& operation);
    void end_of_work();
    void show_results(run_outcome outcome);
    void bring_up_results();
    // Makes menus and tools in the language that is in force now.
    void translate();
    void choose_project();
    void choose_project_to_check();
    void choose_drives();
    // Enters what stood in the window before it was opened anew.
    void copy_choices(const toolkit::element_view& from, const toolkit::element_view& to);
    void fill_project_menu(QMenu& menu);
    void fill_results_menu(QMenu& menu);
    void fill_language_menu(QMenu& menu);
    void fill_recent(QMenu& menu);
    // Takes no other event while a run or a load shows how far it is.
    void set_busy(bool on);
    bool is_at_work() const;

    stored_settings& stored_;
    const std::vector<wide_string> bundles_;
    qt::window_front_end front_end_;
    shell::front_end_override front_end_in_force_;
    std::unique_ptr<host> host_;
    std::unique_ptr<toolkit::app_window> tool_;
    qt::tool_view* view_ = nullptr;   // the central widget
    outcome_view* results_ = nullptr; // a window of its own above this one
    QToolBar* tools_ = nullptr;
    QTimer closer_;
    QTranslator words_of_qt_; // of dialogs and menus that are Qt's own
    bool works_ = false, closes_ = false;
};

} // namespace vestra::window
