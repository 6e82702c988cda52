// One of several buttons of which at most one is checked. The bundle keeps the group; the host draws each
// button as it answers. Who implements: the bundle. Who calls: the host.
#pragma once

#include "framework/border/visitors.h"

namespace vs::project_resave {

class radiobutton_impl : public interface_of<radiobutton_impl> {
public:
    static constexpr const char* name = "vs_radiobutton_interface_1";
    static constexpr const char16_t* element_kind = u"radiobutton";
    virtual void caption(string_visitor visitor) = 0;
    virtual bool checked() = 0;
    // The user pressed the button: it is checked, and the one of its group that was is not any more. Nothing
    // for one that is checked.
    virtual void pressed() = 0;
    using operations =
        operation_list<&radiobutton_impl::caption, &radiobutton_impl::checked, &radiobutton_impl::pressed>;

protected:
    ~radiobutton_impl() = default;
};

} // namespace vs::project_resave
