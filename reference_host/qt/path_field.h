// A field for a path with the button of the host's dialog behind it.
#pragma once

#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>

#include "host/toolkit/file_input.h"
#include "reference_host/qt/element_kinds.h"

namespace vestra::qt {

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

    QLineEdit* const line_;
    QPushButton* const button_;
    const vs::project_resave::file_input_mode mode_;
    const QString filter_; // "words|pattern"
    bool is_entering_ = false;
};

} // namespace vestra::qt
