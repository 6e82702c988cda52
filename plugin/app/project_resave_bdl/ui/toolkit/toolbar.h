// Row of tools.
#pragma once

#include <vector>

#include "host/toolkit/toolbar.h"
#include "ui/toolkit/element_base.h"

namespace vs::project_resave::toolkit {

class toolbar : public element_base<polymorphic<toolbar_impl>> {
public:
    toolbar() : element_base(toolbar_impl::element_kind) {}

    // Puts a tool, which must outlive the tool bar, behind the others.
    void add(const element& tool) { tools_.push_back(tool); }

    uint32_t tool_count() override { return static_cast<uint32_t>(tools_.size()); }
    element tool(uint32_t index) override { return index < tools_.size() ? tools_[index] : element(); }

private:
    std::vector<element> tools_;
};

} // namespace vs::project_resave::toolkit
