// Two elements, one above the other, with a divider between them that the user can move.
//
// Who implements: the bundle. Who calls: the host. The object is an element too: host/toolkit/element.h says
// how long it lives and how it reports a change. Main thread only.
#pragma once

#include "host/toolkit/element.h"

namespace vs::project_resave {

class split_layout_impl : public interface_of<split_layout_impl> {
public:
    static constexpr const char* name = "vs_split_layout_interface_1";
    static constexpr const char16_t* element_kind = u"split_layout";
    // Returns the upper element, which never changes; valid as long as the layout.
    virtual element top() = 0;
    // Returns the lower element, in the same way.
    virtual element bottom() = 0;
    using operations = operation_list<&split_layout_impl::top, &split_layout_impl::bottom>;

protected:
    ~split_layout_impl() = default;
};

} // namespace vs::project_resave
