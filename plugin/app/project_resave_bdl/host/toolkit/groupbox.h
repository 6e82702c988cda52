// A frame with a caption. The element also implements grid_layout, which describes the content of the frame.
//
// Who implements: the bundle. Who calls: the host. The object is an element too: host/toolkit/element.h says
// how long it lives and how it reports a change. Main thread only.
#pragma once

#include "framework/border/visitors.h"

namespace vs::project_resave {

class groupbox_impl : public interface_of<groupbox_impl> {
public:
    static constexpr const char* name = "vs_groupbox_interface_1";
    static constexpr const char16_t* element_kind = u"groupbox";
    // Passes the caption of the frame; empty for a frame without caption. It never changes.
    virtual void caption(string_visitor visitor) = 0;
    using operations = operation_list<&groupbox_impl::caption>;

protected:
    ~groupbox_impl() = default;
};

} // namespace vs::project_resave
