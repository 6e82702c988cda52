// A frame with a caption around a grid with cells that span columns. The element also implements groupbox,
// grid_layout and grid_span_layout, which have all the operations; this interface only marks the kind.
//
// Who implements: the bundle. Who calls: the host. The object is an element too: host/toolkit/element.h says
// how long it lives and how it reports a change. Main thread only.
#pragma once

#include "framework/border/interface.h"

namespace vs::project_resave {

class groupbox_span_impl : public interface_of<groupbox_span_impl> {
public:
    static constexpr const char* name = "vs_groupbox_span_interface_1";
    static constexpr const char16_t* element_kind = u"groupbox_span";
    using operations = operation_list<>;

protected:
    ~groupbox_span_impl() = default;
};

} // namespace vs::project_resave
