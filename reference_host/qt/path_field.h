// A field for a path with the button of the host's dialog behind it.
#pragma once

#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <functional>

#include "host/toolkit/file_input.h"
#include "reference_host/qt/element_kinds.h"

namespace vestra::qt {

// A line that is typed in until the keyboard goes to another part of the same window: a look at another
// program or a menu ends nothing.
class path_line final : public QLineEdit {
public:
    explicit path_line(QWidget* parent);
    // Called when the typing has ended.
    std::function<void()> on_left;

protected:
    void focusOutEvent(QFocusEvent* event) override;
    // Enter is the field's, and presses no button of a dialog.
    void keyPressEvent(QKeyEvent* event) override;
};

// Shows the paths of projects and takes those of the operating system, too.
class path_field final : public widget_for<vs::project_resave::file_input_impl, QWidget> {
public:
    path_field(element_widgets& all, const element& live, QWidget* parent);

    void commit() override;
    // The dialog as the button opens it.
    std::unique_ptr<QFileDialog> make_dialog() const;

private:
    void show() override;
    void read(toolkit::element_view& view) const override;
    void browse();
    // Sends the text; what the element then passes is shown.
    void enter(const wide_string& text);

    path_line* const line_;
    QPushButton* const button_;
    const vs::project_resave::file_input_mode mode_;
    const QString filter_; // "words|pattern"
    bool is_entering_ = false;
};

} // namespace vestra::qt
