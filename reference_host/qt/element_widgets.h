// The widgets of a bundle's elements: each asks its element through the interface tables, shows what that
// answers, asks again when it is told of a change, and sends the user's events back.
//
// The elements stay the bundle's and must outlive their widgets. User-interface thread only.
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

QString shown(wide_view text);
wide_string entered(const QString& text);
// Words of the host itself, in the language of its settings.
QString said(const char* english, const char* russian);

class element_widgets;

// One element with its widget. The base shows what all elements have: whether it is enabled and visible.
class element_widget : public vs::project_resave::element_observer_impl {
public:
    // The widget is its parent's, and can go before this object.
    element_widget(element_widgets& all, const element& live, QWidget* widget);
    // Ends the connection to the element.
    virtual ~element_widget();
    element_widget(const element_widget&) = delete;
    element_widget& operator=(const element_widget&) = delete;

    void on_changed(element which) override;
    // Asks the element for all that can change.
    void refresh();
    // What a person sees in the widget, and in those inside of it.
    toolkit::element_view look() const;
    // Sends what the user has typed and not confirmed yet.
    virtual void commit() {}

    QWidget* widget() const { return widget_; }
    const element& live() const { return live_; }
    const std::vector<element_widget*>& inside() const { return inside_; }
    bool is_enabled() const { return is_enabled_; }
    bool is_visible() const { return is_visible_; }
    // A page is enabled and shown by its tab: the layout is told of changes and does so.
    void leave_state_to(element_widget& layout) { keeper_ = &layout; }

protected:
    virtual void show() {}
    virtual void read(toolkit::element_view&) const {}
    // Makes the widget of an element inside of this one; null for a null element.
    element_widget* add(const element& child, QWidget* parent = nullptr);
    // Sends an event of the user, unless what is shown just now comes from the element.
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

// All widgets of one window or dialog.
class element_widgets {
public:
    element_widgets();
    // Takes the widgets away, then the connections.
    ~element_widgets();
    element_widgets(const element_widgets&) = delete;
    element_widgets& operator=(const element_widgets&) = delete;

    // Makes the widget of an element with all that is in it. Null for a null element.
    element_widget* make(const element& live, QWidget* parent);
    // The one of this element, at any depth; null if there is none.
    element_widget* find(const element& live) const;

    // The widget is refreshed with the next `settle`, which comes by itself before anything is painted.
    void note_change(element_widget& changed);
    void settle();
    // Runs an event of the user and settles what has changed; does nothing while the widgets go.
    void send(const std::function<void()>& event);
    // True while one is under way.
    bool is_at_work() const { return at_work_ > 0; }
    // Sends what the user has typed and not confirmed yet, in all fields.
    void commit();

    // Called when the last event under way has ended; may be empty.
    std::function<void()> on_idle;
    // Called with a button's code after the bundle has said that the window is to close; may be empty.
    std::function<void(std::int32_t code)> on_close;
    // Runs the press of a window's button, by its code; whoever owns the window may do more around it.
    std::function<void(std::int32_t code, const std::function<void()>& press)> around_button =
        [](std::int32_t, const std::function<void()>& press) { press(); };

private:
    std::vector<std::unique_ptr<element_widget>> widgets_;
    std::vector<element_widget*> changed_;
    std::vector<QPointer<QWidget>> roots_;
    unsigned depth_ = 0; // of the element that is being made
    QTimer later_;
    unsigned at_work_ = 0;
    bool is_closing_ = false;
};

} // namespace vestra::qt
