// A button with a picture, in a tool bar.
//
// Who implements: the bundle. Who calls: the host. The object is an element too: host/toolkit/element.h says
// how long it lives and how it reports a change. Main thread only.
#pragma once

#include "framework/border/visitors.h"
#include "host/interfaces/masked_bitmap.h"

namespace vs::project_resave {

class tool_impl : public interface_of<tool_impl> {
public:
    static constexpr const char* name = "vs_tool_interface_1";
    static constexpr const char16_t* element_kind = u"tool";
    // Passes the name of the tool's function, the same in every session and language. Tools with the same
    // function in several tool bars have the same name.
    virtual void id(string_visitor visitor) = 0;
    // Passes the caption of the tool; does not call the visitor if it is missing.
    virtual void caption(string_visitor visitor) = 0;
    // Passes a sentence for a hint, in the same way.
    virtual void hint(string_visitor visitor) = 0;
    // Passes the picture, in one call; a picture of width 0 if there is none.
    virtual void image(masked_bitmap_visitor visitor) = 0;
    // The user pressed the tool. Other elements may change and report that to their observers.
    virtual void click() = 0;
    using operations = operation_list<&tool_impl::id, &tool_impl::caption, &tool_impl::hint,
                                      &tool_impl::image, &tool_impl::click>;

protected:
    ~tool_impl() = default;
};

} // namespace vs::project_resave
