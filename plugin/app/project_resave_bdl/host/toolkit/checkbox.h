// A box that the user checks or unchecks. Who implements: the bundle. Who calls: the host.
#pragma once

#include <cstdint>

#include "framework/border/visitors.h"

namespace vs::project_resave {

// The toolkit's own numbers, not the host's three-state ones.
enum class checkbox_state : uint32_t { unchecked = 0, checked = 2 };

class checkbox_impl : public interface_of<checkbox_impl> {
public:
    static constexpr const char* name = "vs_checkbox_interface_1";
    static constexpr const char16_t* element_kind = u"checkbox";
    virtual void caption(string_visitor visitor) = 0;
    virtual checkbox_state state() = 0;
    // The user set the box to this state. It may change other elements, which tell their observers.
    virtual void state_entered(checkbox_state state) = 0;
    using operations =
        operation_list<&checkbox_impl::caption, &checkbox_impl::state, &checkbox_impl::state_entered>;

protected:
    ~checkbox_impl() = default;
};

} // namespace vs::project_resave
