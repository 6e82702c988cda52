// One of several buttons of which at most one is checked. The bundle keeps the group consistent; the host
// draws each button as it is and never unchecks one itself.
//
// Who implements: the bundle. Who calls: the host. The object is an element too: host/toolkit/element.h says
// how long it lives and how it reports a change. Main thread only.
#pragma once

#include "framework/border/visitors.h"

namespace vs::project_resave {

class radiobutton_impl : public interface_of<radiobutton_impl> {
public:
    static constexpr const char* name = "vs_radiobutton_interface_1";
    static constexpr const char16_t* element_kind = u"radiobutton";
    // Passes the words next to the button. They never change.
    virtual void caption(string_visitor visitor) = 0;
    // True if this button is the checked one of its group.
    virtual bool checked() = 0;
    // The user pressed the button: it becomes the checked one of its group, and each button that changes
    // reports it. Pressing the checked button changes nothing.
    virtual void pressed() = 0;
    using operations =
        operation_list<&radiobutton_impl::caption, &radiobutton_impl::checked, &radiobutton_impl::pressed>;

protected:
    ~radiobutton_impl() = default;
};

} // namespace vs::project_resave
