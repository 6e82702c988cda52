// The widgets of a bundle's elements. Each reads its element through the interface tables, shows the values,
// reads them again after a change, and sends the user's events back.
//
// The elements belong to the bundle and must outlive their widgets. User-interface thread only.
#pragma once

#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <memory>
#include <vector>

#include "host/toolkit/element.h"
#include "reference_host/toolkit/element_view.h"

namespace vestra::qt {

using vs::project_resave::element;

// Convert texts between the interfaces and Qt; nothing is lost.
QString shown(wide_view text);
wide_string entered(const QString& text);
// Returns a text of the host itself in the language of its settings.
QString said(const char* english, const char* russian);

class element_widgets;

// One element with its widget. The base class shows the common state: enabled and visible.
class element_widget : public vs::project_resave::element_observer_impl {
public:
    // The widget is owned by its parent widget and can be destroyed before this object.
    element_widget(element_widgets& all, const element& live, QWidget* widget);
    // Disconnects from the element.
    virtual ~element_widget();
    element_widget(const element_widget&) = delete;
    element_widget& operator=(const element_widget&) = delete;

    // Only notes the change: the element can be in the middle of an event.
    void on_changed(element which) override;
    // Reads all values of the element that can change.
    void refresh();
    // Returns what the widget and those inside it show.
    toolkit::element_view look() const;
    // Sends text that the user has typed but not confirmed.
    virtual void commit() {}

    QWidget* widget() const { return widget_; }
    const element& live() const { return live_; }
    const std::vector<element_widget*>& inside() const { return inside_; }
    bool is_enabled() const { return is_enabled_; }
    bool is_visible() const { return is_visible_; }
    // The tab of a page shows whether the page is enabled and visible, so the layout is notified of changes
    // instead.
    void leave_state_to(element_widget& layout) { keeper_ = &layout; }

protected:
    // Shows the values of the element that can change. Called by `refresh`; events that this causes are not
    // sent.
    virtual void show() {}
    // Sets the values that the widget shows; the common state is set already.
    virtual void read(toolkit::element_view&) const {}
    // Creates the widget of an element inside this one; returns null for a null element.
    element_widget* add(const element& child, QWidget* parent = nullptr);
    // Sends an event of the user. Does nothing while values of the element are being shown.
    void send(const std::function<void()>& event);

    element_widgets& all_;

private:
    const element live_;
    QWidget* const widget_;
    const wide_string kind_;
    std::vector<element_widget*> inside_;
    element_widget* keeper_ = nullptr;
    bool is_enabled_ = true, is_visible_ = true, is_showing_ = false;
};

// All widgets of a window or dialog.
class element_widgets {
public:
    element_widgets();
    // Destroys the widgets, then their connections to the elements.
    ~element_widgets();
    element_widgets(const element_widgets&) = delete;
    element_widgets& operator=(const element_widgets&) = delete;

    // Creates the widget of an element and all inside it, with the current values. Returns null for a null
    // element. The element gets this host as its only observer.
    element_widget* make(const element& live, QWidget* parent);
    // Returns the widget of this element at any depth; null if there is none.
    element_widget* find(const element& live) const;

    // Marks a widget for the next `settle`, which runs by itself before the next repaint.
    void note_change(element_widget& changed);
    void settle();
    // Runs an event of the user, then shows what has changed. Does nothing during destruction.
    void send(const std::function<void()>& event);
    // Returns true while an event is running.
    bool is_at_work() const { return at_work_ > 0; }
    // Sends text that the user has typed but not confirmed, in all fields.
    void commit();

    // Called when the last running event has ended; may be empty.
    std::function<void()> on_idle;
    // Called with the code of a button after the bundle agreed to close the window; may be empty.
    std::function<void(std::int32_t code)> on_close;
    // Runs `press` for a button with this code; the owner of the window can replace it to do more before or
    // after.
    std::function<void(std::int32_t code, const std::function<void()>& press)> around_button =
        [](std::int32_t, const std::function<void()>& press) { press(); };

private:
    std::vector<std::unique_ptr<element_widget>> widgets_;
    // Each at most once, in the order of the changes.
    std::vector<element_widget*> changed_;
    // The outermost widgets. Their parents may destroy them before this object.
    std::vector<QPointer<QWidget>> roots_;
    unsigned depth_ = 0; // nesting depth of `make`
    QTimer later_;
    unsigned at_work_ = 0;
    bool is_closing_ = false;
};

} // namespace vestra::qt
