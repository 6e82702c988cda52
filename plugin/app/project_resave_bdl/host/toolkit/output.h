// A field with one line of text that the user can read and copy but not change.
//
// Who implements: the bundle. Who calls: the host. The object is an element too: host/toolkit/element.h says
// how long it lives and how it reports a change. Main thread only.
#pragma once

#include "framework/border/visitors.h"

namespace vs::project_resave {

class output_impl : public interface_of<output_impl> {
public:
    static constexpr const char* name = "vs_output_interface_1";
    static constexpr const char16_t* element_kind = u"output";
    // Passes the text; it can change.
    virtual void text(string_visitor visitor) = 0;
    using operations = operation_list<&output_impl::text>;

protected:
    ~output_impl() = default;
};

} // namespace vs::project_resave
