// A row of tools.
//
// Who implements: the bundle. Who calls: the host. The object is an element too: host/toolkit/element.h says
// how long it lives and how it reports a change. Main thread only.
#pragma once

#include <cstdint>

#include "host/toolkit/element.h"

namespace vs::project_resave {

class toolbar_impl : public interface_of<toolbar_impl> {
public:
    static constexpr const char* name = "vs_toolbar_interface_1";
    static constexpr const char16_t* element_kind = u"toolbar";
    // Returns the number of tools. They never change.
    virtual uint32_t tool_count() = 0;
    // Returns a tool, counted from the left; null for an index past the last.
    virtual element tool(uint32_t index) = 0;
    using operations = operation_list<&toolbar_impl::tool_count, &toolbar_impl::tool>;

protected:
    ~toolbar_impl() = default;
};

} // namespace vs::project_resave
