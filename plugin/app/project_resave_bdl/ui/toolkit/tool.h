// Button with a picture.
#pragma once

#include <functional>

#include "host/toolkit/tool.h"
#include "ui/toolkit/element_base.h"

namespace vs::project_resave::toolkit {

// Tells the bundle's picture of this number, transparent where it is magenta; one of width 0 if there is
// none.
void tell_picture(const masked_bitmap_visitor& visitor, uint32_t number);

class tool : public element_base<polymorphic<tool_impl>> {
public:
    // Picture, caption and hint have one number.
    tool(wide_string id, uint32_t number, std::function<void()> action)
        : element_base(tool_impl::element_kind), id_(std::move(id)), number_(number),
          action_(std::move(action)) {}

    void id(string_visitor visitor) override { tell(visitor, id_); }
    void caption(string_visitor visitor) override;
    void hint(string_visitor visitor) override { caption(visitor); }
    void image(masked_bitmap_visitor visitor) override { tell_picture(visitor, number_); }
    void click() override { action_(); }

private:
    const wide_string id_;
    const uint32_t number_;
    const std::function<void()> action_;
};

} // namespace vs::project_resave::toolkit
