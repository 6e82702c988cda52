// A box that the user checks or unchecks.
//
// Who implements: the bundle. Who calls: the host. The object is an element too: host/toolkit/element.h says
// how long it lives and how it reports a change. Main thread only.
#pragma once

#include <cstdint>

#include "framework/border/visitors.h"

namespace vs::project_resave {

// The toolkit's own numbers, different from those of vs_three_state.
enum class checkbox_state : uint32_t { unchecked = 0, checked = 2 };

class checkbox_impl : public interface_of<checkbox_impl> {
public:
    static constexpr const char* name = "vs_checkbox_interface_1";
    static constexpr const char16_t* element_kind = u"checkbox";
    // Passes the words next to the box. They never change.
    virtual void caption(string_visitor visitor) = 0;
    // Returns the current state; it can change without the user.
    virtual checkbox_state state() = 0;
    // The user set the box to this state; any number except `checked` unchecks it. Setting the current state
    // changes nothing. Other elements may change too and report that to their observers.
    virtual void state_entered(checkbox_state state) = 0;
    using operations =
        operation_list<&checkbox_impl::caption, &checkbox_impl::state, &checkbox_impl::state_entered>;

protected:
    ~checkbox_impl() = default;
};

} // namespace vs::project_resave
