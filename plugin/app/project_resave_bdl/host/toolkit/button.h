// A button inside a window.
//
// Who implements: the bundle. Who calls: the host. The object is an element too: host/toolkit/element.h says
// how long it lives and how it reports a change. Main thread only.
#pragma once

#include "framework/border/visitors.h"

namespace vs::project_resave {

class button_impl : public interface_of<button_impl> {
public:
    static constexpr const char* name = "vs_button_interface_1";
    static constexpr const char16_t* element_kind = u"button";
    // Passes the words on the button. They never change.
    virtual void caption(string_visitor visitor) = 0;
    // Passes a sentence for a hint; empty for no hint. It never changes.
    virtual void hint(string_visitor visitor) = 0;
    // The user pressed the button. Does the button's work before it returns, which can take long and show
    // message boxes and dialogs.
    virtual void click() = 0;
    using operations = operation_list<&button_impl::caption, &button_impl::hint, &button_impl::click>;

protected:
    ~button_impl() = default;
};

} // namespace vs::project_resave
