// A field with many lines of text that the user can scroll, read and copy but not change.
//
// Who implements: the bundle. Who calls: the host. The object is an element too: host/toolkit/element.h says
// how long it lives and how it reports a change. Main thread only.
#pragma once

#include <cstdint>

#include "framework/border/visitors.h"

namespace vs::project_resave {

class multiline_output_impl : public interface_of<multiline_output_impl> {
public:
    static constexpr const char* name = "vs_multiline_output_interface_1";
    static constexpr const char16_t* element_kind = u"multiline_output";
    // Passes the whole text; a line feed ends a line.
    virtual void text(string_visitor visitor) = 0;
    // Returns the smallest useful width in average characters, which never changes. The host can make the
    // field larger.
    virtual uint32_t width() = 0;
    // Returns the smallest useful height in lines, in the same way.
    virtual uint32_t height() = 0;
    using operations = operation_list<&multiline_output_impl::text, &multiline_output_impl::width,
                                      &multiline_output_impl::height>;

protected:
    ~multiline_output_impl() = default;
};

} // namespace vs::project_resave
