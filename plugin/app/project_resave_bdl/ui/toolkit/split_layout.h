// Two elements with a movable divider between them.
#pragma once

#include "host/toolkit/split_layout.h"
#include "ui/toolkit/element_base.h"

namespace vs::project_resave::toolkit {

class split_layout final : public element_base<polymorphic<split_layout_impl>> {
public:
    // Both must outlive the layout.
    split_layout(const element& top_element, const element& bottom_element)
        : element_base(split_layout_impl::element_kind), top_(top_element), bottom_(bottom_element) {}

    element top() override { return top_; }
    element bottom() override { return bottom_; }

private:
    const element top_;
    const element bottom_;
};

} // namespace vs::project_resave::toolkit
