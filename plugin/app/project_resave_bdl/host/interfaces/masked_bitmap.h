// A picture with a mask, as it is passed between libraries, and the visitor that receives one.
//
// Who implements: code that has a picture. Who calls: code that receives one, and only during the call in
// which it receives it: it copies the pixels and does not keep the picture. Main thread only.
#pragma once

#include "framework/border/visitors.h"

namespace vs::project_resave {

class masked_bitmap_impl : public interface_of<masked_bitmap_impl> {
public:
    static constexpr const char* name = "vs_masked_bitmap_interface_0";
    // Returns the width in pixels; 0 for a picture that was not found.
    virtual uint32_t width() = 0;
    // Returns the height in rows; 0 for a picture that was not found.
    virtual uint32_t height() = 0;
    // Passes the colours, in one call: three bytes for each pixel, blue, green, red. Does not call the
    // visitor if the picture is empty.
    virtual void visit_pixels(thrice_interleaved_bytes_visitor visitor) = 0;
    // Passes the mask in the same way: one byte for each pixel, 0 transparent, 255 opaque. The row passed
    // first is the top one. The stride, in bytes, leads to the next row and may be negative.
    virtual void visit_mask(bytes_visitor visitor) = 0;
    using operations = operation_list<&masked_bitmap_impl::width, &masked_bitmap_impl::height,
                                      &masked_bitmap_impl::visit_pixels, &masked_bitmap_impl::visit_mask>;

protected:
    ~masked_bitmap_impl() = default;
};
using masked_bitmap = interface_to<masked_bitmap_impl>;

// Who implements: code that receives a picture, for the call.
class masked_bitmap_visitor_impl : public interface_of<masked_bitmap_visitor_impl> {
public:
    static constexpr const char* name = "vs_masked_bitmap_visitor_interface_0";
    // Receives one picture, borrowed for the call.
    virtual void visit(masked_bitmap picture) = 0;
    using operations = operation_list<&masked_bitmap_visitor_impl::visit>;

protected:
    ~masked_bitmap_visitor_impl() = default;
};
using masked_bitmap_visitor = interface_to<masked_bitmap_visitor_impl>;

} // namespace vs::project_resave
