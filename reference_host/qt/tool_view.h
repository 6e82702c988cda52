// The window of a tool as widgets: its content with the button box below, and the dialogs of its bundle.
#pragma once

#include <QWidget>

#include "host/toolkit/modal_dialog.h"
#include "reference_host/qt/element_widgets.h"
#include "reference_host/toolkit/app_window.h"

namespace vestra::qt {

// The content of an open tool. Destroy it before the tool.
class tool_view final : public QWidget, public toolkit::shown_window {
public:
    // `tool` must be open.
    explicit tool_view(const toolkit::app_window& tool);
    ~tool_view() override;

    // Returns what the widgets show, in the same form in which the walker returns the elements.
    toolkit::element_view look() const override;
    // For events of the window and for the callbacks of its owner.
    element_widgets& widgets() { return *widgets_; }

private:
    // Destroyed before the base class, which would otherwise destroy the widgets first.
    std::unique_ptr<element_widgets> widgets_;
    element_widget* content_ = nullptr;
    element_widget* box_ = nullptr; // null if the tool has none
};

// Shows the dialogs of bundles as modal windows above `window`.
class window_dialog_runner final : public vs::project_resave::dialog_runner_impl {
public:
    // The window must outlive the runner.
    explicit window_dialog_runner(QWidget& window) : window_(window) {}

    // Runs an event loop until the dialog is closed. Returns 0 if it was cancelled, otherwise the
    // code of the button. A dialog without buttons gets an OK button, whose code is 1.
    std::int32_t run(vs::project_resave::docker content) override;

private:
    QWidget& window_;
};

} // namespace vestra::qt
