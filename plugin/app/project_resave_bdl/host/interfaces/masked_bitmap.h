// A picture with a mask that crosses the border. Who implements: whoever has the picture, for the call.
#pragma once

#include "framework/border/visitors.h"

namespace vs::project_resave {

class masked_bitmap_impl : public interface_of<masked_bitmap_impl> {
public:
    static constexpr const char* name = "vs_masked_bitmap_interface_0";
    virtual uint32_t width() = 0;
    virtual uint32_t height() = 0;
    // Each hands over its plane whole, in one call; an empty picture calls no visitor. Colour: three bytes to
    // a pixel. Mask: one byte to a pixel, 0 transparent.
    virtual void visit_pixels(thrice_interleaved_bytes_visitor visitor) = 0;
    virtual void visit_mask(bytes_visitor visitor) = 0;
    using operations = operation_list<&masked_bitmap_impl::width, &masked_bitmap_impl::height,
                                      &masked_bitmap_impl::visit_pixels, &masked_bitmap_impl::visit_mask>;

protected:
    ~masked_bitmap_impl() = default;
};
using masked_bitmap = interface_to<masked_bitmap_impl>;

// Told one picture; the pointer is borrowed for the call.
class masked_bitmap_visitor_impl : public interface_of<masked_bitmap_visitor_impl> {
public:
    static constexpr const char* name = "vs_masked_bitmap_visitor_interface_0";
    virtual void visit(masked_bitmap picture) = 0;
    using operations = operation_list<&masked_bitmap_visitor_impl::visit>;

protected:
    ~masked_bitmap_visitor_impl() = default;
};
using masked_bitmap_visitor = interface_to<masked_bitmap_visitor_impl>;

} // namespace vs::project_resave
