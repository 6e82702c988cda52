// A field for a path, followed by a button that opens the host's dialog.
#pragma once

#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <functional>

#include "host/toolkit/file_input.h"
#include "reference_host/qt/element_kinds.h"

namespace vestra::qt {

// A line edit that finishes editing when the focus moves to another part of the same window. Switching to
// another program or opening a menu does not finish it.
class path_line final : public QLineEdit {
public:
    explicit path_line(QWidget* parent);
    // Called when the editing has finished.
    std::function<void()> on_left;

protected:
    void focusOutEvent(QFocusEvent* event) override;
    // Enter finishes the editing and does not press a button of the dialog.
    void keyPressEvent(QKeyEvent* event) override;
};

// Shows paths in the project's form and also accepts those of the operating system.
class path_field final : public widget_for<vs::project_resave::file_input_impl, QWidget> {
public:
    // Creates the line and the button inside a widget of `parent`.
    path_field(element_widgets& all, const element& live, QWidget* parent);

    // Sends the text if it differs from the element's.
    void commit() override;
    // Creates the dialog that the button opens, with the mode and filter of the element and the current path.
    std::unique_ptr<QFileDialog> make_dialog() const;

private:
    void show() override;
    void read(toolkit::element_view& view) const override;
    // Opens the dialog and enters the chosen path.
    void browse();
    // Sends the text to the element and then shows the element's text. Does nothing if it is called again
    // before it returns, as can happen while the event shows a message box.
    void enter(const wide_string& text);

    path_line* const line_;
    QPushButton* const button_;
    const vs::project_resave::file_input_mode mode_;
    const QString filter_; // "text|pattern"
    bool is_entering_ = false;
};

} // namespace vestra::qt
