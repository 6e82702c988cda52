// The main window: the tool's panel, the results of runs, and the usual parts of a desktop program.
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

// Thrown if the tool of the bundle is not available; `reason` says why.
struct no_tool {
    std::string reason;
};

// Starts the host with the bundles and opens the tool; the destructor stops everything. Only one can exist.
class main_window final : public QMainWindow {
public:
    // `bundles` are drive paths of libraries. Opens the tool of one of them, otherwise that of the library
    // next to the program. Throws no_tool.
    main_window(stored_settings& stored, std::vector<wide_string> bundles);
    ~main_window() override;

    // Loads a project through the tool's first field, and makes it the most recent one. Returns false if it
    // was rejected; the user has seen the reason. Blocks until it is loaded.
    bool open_project(const wide_string& project);
    // Both reopen the tool with the same project, choices and check marks, and store the new value. The
    // language is "ru" or "en". If the bundle can no longer be loaded, an error is shown and the program
    // ends.
    void set_language(const QString& language);
    void set_drives(const std::vector<stored_settings::drive>& drives);
    // Shows what a run would do, without writing anything; a message if no project is open or the new one has
    // no path. Like `check`, it handles the user's events meanwhile, and does nothing while another operation
    // of the window is running.
    void try_it();
    // Shows whether a project needs anything outside its folder.
    void check(const wide_string& project);

    // The widgets of the tool, the open tool and the window of results. Those of the tool are replaced when
    // it is reopened.
    qt::tool_view& tool() { return *view_; }
    const toolkit::app_window& opened() const { return *tool_; }
    outcome_view& results() { return *results_; }

protected:
    // If an operation is running, stops it and then closes the window.
    void closeEvent(QCloseEvent* event) override;
    // Accepts one project file.
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    struct host;

    // Start the host with the tool and its widgets, or destroy them in reverse order. `start` throws no_tool.
    void start();
    void take_down();
    // Runs `change` while no bundle is loaded.
    void open_anew(const std::function<void()>& change);
    // Presses a button of the tool, and shows the results if that ended a run. Asks before an existing
    // project is replaced.
    void run(const std::function<void()>& press);
    bool resaves() const;
    bool may_replace(const wide_string& target);
    void map_anew(const std::vector<stored_settings::drive>& drives);
    // Runs an operation of the window that blocks all others.
    void work(const std::function<void()>& operation);
    void end_of_work();
    void show_results(run_outcome outcome);
    void bring_up_results();
    // Creates menus and tools in the current language.
    void translate();
    void choose_project();
    void choose_project_to_check();
    void choose_drives();
    // Restores the state of the window from before it was reopened.
    void copy_choices(const toolkit::element_view& from, const toolkit::element_view& to);
    void fill_project_menu(QMenu& menu);
    void fill_results_menu(QMenu& menu);
    void fill_language_menu(QMenu& menu);
    void fill_recent(QMenu& menu);
    // Blocks other events while a run or load shows its progress.
    void set_busy(bool on);
    bool is_at_work() const;

    stored_settings& stored_;
    const std::vector<wide_string> bundles_;
    qt::window_front_end front_end_;
    shell::front_end_override front_end_in_force_;
    std::unique_ptr<host> host_;
    std::unique_ptr<toolkit::app_window> tool_;
    qt::tool_view* view_ = nullptr;   // the central widget
    outcome_view* results_ = nullptr; // a separate window above this one
    QToolBar* tools_ = nullptr;
    QTimer closer_, opener_;
    QString dropped_;         // the project that `opener_` opens
    QTranslator words_of_qt_; // for Qt's own dialogs and menus
    // `works_`: an operation of the window is running. `closes_`: the user wants to close the window, which
    // happens when no operation is running any more.
    bool works_ = false, closes_ = false;
};

} // namespace vestra::window
