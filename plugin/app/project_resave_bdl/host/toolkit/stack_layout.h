// Elements side by side, each as wide as it needs to be. Who implements: the bundle. Who calls: the host.
#pragma once

#include <cstdint>

#include "host/toolkit/element.h"

namespace vs::project_resave {

class stack_layout_impl : public interface_of<stack_layout_impl> {
public:
    static constexpr const char* name = "vs_stack_layout_interface_1";
    static constexpr const char16_t* element_kind = u"stack_layout";
    // The number never changes.
    virtual uint32_t child_count() = 0;
    // From left to right; null for an index past the last.
    virtual element child(uint32_t index) = 0;
    using operations = operation_list<&stack_layout_impl::child_count, &stack_layout_impl::child>;

protected:
    ~stack_layout_impl() = default;
};

} // namespace vs::project_resave
