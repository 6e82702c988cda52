// A figure with words in front of it and its unit behind it. Who implements: the bundle. Who calls: the host.
#pragma once

#include "framework/border/visitors.h"

namespace vs::project_resave {

class label_ex_impl : public interface_of<label_ex_impl> {
public:
    static constexpr const char* name = "vs_label_ex_interface_1";
    static constexpr const char16_t* element_kind = u"label_ex";
    virtual void caption(string_visitor visitor) = 0;
    // With the blanks that part it from what stands beside it.
    virtual void value(string_visitor visitor) = 0;
    virtual void unit(string_visitor visitor) = 0;
    using operations = operation_list<&label_ex_impl::caption, &label_ex_impl::value, &label_ex_impl::unit>;

protected:
    ~label_ex_impl() = default;
};

} // namespace vs::project_resave
