// Maps kinds of elements to widgets.
#pragma once

#include "reference_host/qt/element_widgets.h"
#include "reference_host/toolkit/told.h"

namespace vestra::qt {

// Base of a widget of class Widget that shows one interface of an element. A derived class creates its widget
// in the constructor, with values that never change, and shows the others in `show`.
template <class Impl, class Widget>
class widget_for : public element_widget {
protected:
    widget_for(element_widgets& all, const element& live, Widget* own)
        : element_widget(all, live, own), asked(vs::project_resave::cast_to<Impl>(live)), own_(own) {}

    // Returns a text of the element; empty if it has none.
    template <auto Operation, class... Args>
    QString text_of(Args... args) const {
        return shown(toolkit::told<Operation>(asked, args...));
    }
    // Calls an operation of the element's interface and returns its result; zero if the element has no such
    // interface.
    template <auto Operation, class... Args>
    auto ask(Args... args) const {
        return vs::project_resave::call<Operation>(asked, args...);
    }

    const vs::project_resave::interface_to<Impl> asked;
    // Owned by its parent widget.
    Widget* const own_;
};

// Creates the widget of an element as a child of `parent`, without showing its state.
using widget_maker = std::unique_ptr<element_widget> (*)(element_widgets& all, const element& live,
                                                         QWidget* parent);
// How a kind of element, by the name that its interface gives it, becomes a widget.
struct kind_of_widget {
    const char16_t* kind;
    widget_maker make;
};

// A widget_maker for the class Made.
template <class Made>
std::unique_ptr<element_widget> make_widget(element_widgets& all, const element& live, QWidget* parent) {
    return std::make_unique<Made>(all, live, parent);
}

// Creates the widget of an element, without its state. An unknown kind gets an empty widget.
std::unique_ptr<element_widget> widget_of(element_widgets& all, const element& live, QWidget* parent);

// The kinds of each source file: texts and fields, buttons, layouts, outlines. Looked through in this order.
const std::vector<kind_of_widget>& field_kinds();
const std::vector<kind_of_widget>& button_kinds();
const std::vector<kind_of_widget>& layout_kinds();
const std::vector<kind_of_widget>& outline_kinds();

// `on_button` prepares words for a button or a tab: escapes "&", which would mark a key, and wraps long
// lines. `off_button` is the inverse.
QString on_button(const QString& words);
QString off_button(QString words);

} // namespace vestra::qt
