// A figure with a caption in front of it and its unit after it.
//
// Who implements: the bundle. Who calls: the host. The object is an element too: host/toolkit/element.h says
// how long it lives and how it reports a change. Main thread only.
#pragma once

#include "framework/border/visitors.h"

namespace vs::project_resave {

class label_ex_impl : public interface_of<label_ex_impl> {
public:
    static constexpr const char* name = "vs_label_ex_interface_1";
    static constexpr const char16_t* element_kind = u"label_ex";
    // Passes the caption in front of the figure. It never changes.
    virtual void caption(string_visitor visitor) = 0;
    // Passes the figure as text, including the spaces that separate it from caption and unit.
    virtual void value(string_visitor visitor) = 0;
    // Passes the unit, which changes with the size of the figure.
    virtual void unit(string_visitor visitor) = 0;
    using operations = operation_list<&label_ex_impl::caption, &label_ex_impl::value, &label_ex_impl::unit>;

protected:
    ~label_ex_impl() = default;
};

} // namespace vs::project_resave
