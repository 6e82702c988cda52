// Elements side by side, each as wide as it needs to be.
//
// Who implements: the bundle. Who calls: the host. The object is an element too: host/toolkit/element.h says
// how long it lives and how it reports a change. Main thread only.
#pragma once

#include <cstdint>

#include "host/toolkit/element.h"

namespace vs::project_resave {

class stack_layout_impl : public interface_of<stack_layout_impl> {
public:
    static constexpr const char* name = "vs_stack_layout_interface_1";
    static constexpr const char16_t* element_kind = u"stack_layout";
    // Returns the number of elements. They never change.
    virtual uint32_t child_count() = 0;
    // Returns an element, counted from the left; null for an index past the last.
    virtual element child(uint32_t index) = 0;
    using operations = operation_list<&stack_layout_impl::child_count, &stack_layout_impl::child>;

protected:
    ~stack_layout_impl() = default;
};

} // namespace vs::project_resave
