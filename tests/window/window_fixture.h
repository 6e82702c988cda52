// The program's window on the sample project, on a screen that nobody sees, with a person who answers its
// boxes. At the end of each test nothing of the host is left.
#pragma once

#include <gtest/gtest.h>

#include <QMessageBox>
#include <QTimer>
#include <functional>
#include <optional>

#include "apps/vestra_resave_window/main_window.h"
#include "tests/support/test_drives.h"
#include "tests/support/tree_state.h"
#include "tests/window/mouse_window.h"

namespace vestra::window {

using toolkit::element_view;

// The first line in which two texts differ, from either; empty if they are equal.
std::string first_difference(const std::string& wanted, const std::string& found);

class window_test : public testing::Test {
protected:
    window_test();
    ~window_test() override;

    // Puts the sample project on C: and D:.
    void copy_sample();
    // Writes a file with the folders it needs.
    void write(const wide_string& path) const;
    void open();
    void open_on_sample();
    void close();
    qt::mouse_window mouse() { return qt::mouse_window(window->tool()); }

    // The element of this name as it is now; good until the next look.
    const element_view& at(const std::string& name);
    // Clicks at the mark of a row: "scn2d/list1/2".
    void check_row(const std::string& path, bool on);
    void enter(const std::string& name, const wide_string& text);
    void run() { mouse().press(*toolkit::find(looked(), u"button_box"), 2); }
    // Reads the widgets; the second tells what was read last.
    const element_view& looked();
    const element_view& view() const { return view_; }
    // What stands in the widgets, against what the elements answer.
    void expect_equal_to_walker(const std::string& after);

    // Answers a question, or anything that is to be closed with OK, by the button that is clicked.
    std::function<QMessageBox::StandardButton(const QMessageBox& box)> on_box;
    // Answers any other window that waits for it.
    std::function<void(QDialog& dialog)> on_dialog;
    // Called again and again while events are handled.
    std::function<void()> on_idle;
    std::vector<QString> boxes; // texts of those that were answered

    stored_settings stored;
    std::optional<main_window> window;
    vs::project_resave::test_drives drives;
    const wide_string source = u"C:\\prj\\area._vp";

private:
    void answer_boxes();

    QTimer person_;
    element_view view_;
};

} // namespace vestra::window
