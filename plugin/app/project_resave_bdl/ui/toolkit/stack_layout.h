// Elements side by side.
#pragma once

#include <vector>

#include "host/toolkit/stack_layout.h"
#include "ui/toolkit/element_base.h"

namespace vs::project_resave::toolkit {

class stack_layout final : public element_base<polymorphic<stack_layout_impl>> {
public:
    // All must outlive the layout.
    explicit stack_layout(std::vector<element> children)
        : element_base(stack_layout_impl::element_kind), children_(std::move(children)) {}

    uint32_t child_count() override { return static_cast<uint32_t>(children_.size()); }
    element child(uint32_t index) override { return index < children_.size() ? children_[index] : element(); }

private:
    const std::vector<element> children_;
};

} // namespace vs::project_resave::toolkit
