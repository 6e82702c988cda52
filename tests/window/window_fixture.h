// The program's window with the sample project on an invisible screen, with a simulated user who answers its
// boxes. Each test ends by checking that no host object is left.
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
using vs::project_resave::first_difference;

class window_test : public testing::Test {
protected:
    window_test();
    ~window_test() override;

    // Copies the sample project to C: and D:.
    void copy_sample();
    // Writes a file and its folders.
    void write(const wide_string& path) const;
    void open();
    void open_on_sample();
    void close();
    qt::mouse_window mouse() { return qt::mouse_window(window->tool()); }

    // Returns the element with this name in its current state; valid until the next look.
    const element_view& at(const std::string& name);
    // Clicks the mark of a row: "scn2d/list1/2".
    void check_row(const std::string& path, bool on);
    void enter(const std::string& name, const wide_string& text);
    void run() { mouse().press(*toolkit::find(looked(), u"button_box"), 2); }
    // `looked` reads the widgets; the other returns what was read last.
    const element_view& looked();
    const element_view& view() const { return view_; }
    // Compares the content of the widgets with that of the elements.
    void expect_equal_to_walker(const std::string& after);

    // Answers a question, or a box with OK, by the button to click.
    std::function<QMessageBox::StandardButton(const QMessageBox& box)> on_box;
    // Answers any other window that waits for an answer.
    std::function<void(QDialog& dialog)> on_dialog;
    // Called repeatedly while events are handled.
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
