// The widgets of an open tool, and modal windows for dialogs.
#include "reference_host/qt/tool_view.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QVBoxLayout>

#include "reference_host/qt/progress_window.h"
#include "reference_host/toolkit/element_description.h"

namespace vestra::qt {

using namespace vs::project_resave;

tool_view::tool_view(const toolkit::app_window& tool) : widgets_(std::make_unique<element_widgets>()) {
    auto* const column = new QVBoxLayout(this);
    content_ = widgets_->make(tool.content(), this);
    column->addWidget(content_->widget(), 1);
    box_ = widgets_->make(tool.button_box(), this);
    if (box_) column->addWidget(box_->widget());
}

tool_view::~tool_view() = default;

toolkit::element_view tool_view::look() const {
    // Changes that wait for the next repaint are shown now, so that a script reads the current state.
    widgets_->settle();
    toolkit::element_view view = content_->look();
    if (box_) view.children.push_back(box_->look());
    toolkit::name_elements(view);
    return view;
}

namespace {

// Adds buttons of the host to a dialog that has none.
QDialogButtonBox* own_buttons(QDialog& dialog, element_widgets& widgets) {
    auto* const box = new QDialogButtonBox(&dialog);
    QPushButton* const ok = box->addButton(QDialogButtonBox::Ok);
    QPushButton* const cancel = box->addButton(QDialogButtonBox::Cancel);
    cancel->setText(said("Cancel", "Отмена"));
    for (QPushButton* each : {ok, cancel}) each->setAutoDefault(false); // Enter belongs to the field
    QObject::connect(box, &QDialogButtonBox::accepted, &dialog, [&] {
        widgets.commit();
        dialog.done(1);
    });
    QObject::connect(box, &QDialogButtonBox::rejected, &dialog, [&] { dialog.done(0); });
    return box;
}

} // namespace

std::int32_t window_dialog_runner::run(docker content) {
    QWidget* above = &window_;
    // Above the progress window, which would otherwise cover the dialog.
    for (progress_window* const each : window_.findChildren<progress_window*>())
        if (each->isVisible()) above = each;
    // Without a visible window there is nothing to be above.
    QDialog dialog(above->isVisible() ? above : nullptr);
    // After the dialog, so destroyed before it: the widgets belong to the dialog, and their elements must be
    // left first.
    element_widgets widgets;
    widgets.on_close = [&dialog](std::int32_t code) { dialog.done(code); };
    const element_widget* const shown_content = widgets.make(cast_to<element_impl>(content), &dialog);
    // A null docker counts as cancelled.
    if (!shown_content) return 0;
    auto* const column = new QVBoxLayout(&dialog);
    column->addWidget(shown_content->widget(), 1);
    dialog.setWindowTitle(shown_content->widget()->windowTitle());
    if (!call<&docker_impl::buttons>(content)) column->addWidget(own_buttons(dialog, widgets));
    // Wide enough for a path.
    dialog.resize(dialog.sizeHint().expandedTo({520, 120}));
    return dialog.exec();
}

} // namespace vestra::qt
