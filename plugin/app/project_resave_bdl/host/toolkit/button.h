// A button inside of a window. Who implements: the bundle. Who calls: the host.
#pragma once

#include "framework/border/visitors.h"

namespace vs::project_resave {

class button_impl : public interface_of<button_impl> {
public:
    static constexpr const char* name = "vs_button_interface_1";
    static constexpr const char16_t* element_kind = u"button";
    virtual void caption(string_visitor visitor) = 0;
    // May be empty.
    virtual void hint(string_visitor visitor) = 0;
    // The user pressed the button. May run as long as the work behind it does, and show message boxes.
    virtual void click() = 0;
    using operations = operation_list<&button_impl::caption, &button_impl::hint, &button_impl::click>;

protected:
    ~button_impl() = default;
};

} // namespace vs::project_resave
