// A button with a picture, in a tool bar. Who implements: the bundle. Who calls: the host.
#pragma once

#include "framework/border/visitors.h"
#include "host/interfaces/masked_bitmap.h"

namespace vs::project_resave {

class tool_impl : public interface_of<tool_impl> {
public:
    static constexpr const char* name = "vs_tool_interface_1";
    static constexpr const char16_t* element_kind = u"tool";
    // What the tool does, in one word; the same text in every session and language, and in every tool bar.
    virtual void id(string_visitor visitor) = 0;
    virtual void caption(string_visitor visitor) = 0;
    virtual void hint(string_visitor visitor) = 0;
    // Told once; empty if the picture is missing.
    virtual void image(masked_bitmap_visitor visitor) = 0;
    // The user pressed the tool.
    virtual void click() = 0;
    using operations = operation_list<&tool_impl::id, &tool_impl::caption, &tool_impl::hint,
                                      &tool_impl::image, &tool_impl::click>;

protected:
    ~tool_impl() = default;
};

} // namespace vs::project_resave
