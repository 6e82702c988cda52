// A frame with a caption. What stands in it is told by the grid_layout interface, which the element speaks
// too. Who implements: the bundle. Who calls: the host.
#pragma once

#include "framework/border/visitors.h"

namespace vs::project_resave {

class groupbox_impl : public interface_of<groupbox_impl> {
public:
    static constexpr const char* name = "vs_groupbox_interface_1";
    static constexpr const char16_t* element_kind = u"groupbox";
    // Empty: a frame without words.
    virtual void caption(string_visitor visitor) = 0;
    using operations = operation_list<&groupbox_impl::caption>;

protected:
    ~groupbox_impl() = default;
};

} // namespace vs::project_resave
