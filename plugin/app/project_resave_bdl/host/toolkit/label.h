// One line of text next to another element.
//
// Who implements: the bundle. Who calls: the host. The object is an element too: host/toolkit/element.h says
// how long it lives and how it reports a change. Main thread only.
#pragma once

#include "framework/border/visitors.h"

namespace vs::project_resave {

class label_impl : public interface_of<label_impl> {
public:
    static constexpr const char* name = "vs_label_interface_1";
    static constexpr const char16_t* element_kind = u"label";
    // Passes the text; it can change.
    virtual void text(string_visitor visitor) = 0;
    using operations = operation_list<&label_impl::text>;

protected:
    ~label_impl() = default;
};

} // namespace vs::project_resave
