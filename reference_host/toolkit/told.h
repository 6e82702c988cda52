// Reads the texts that elements tell a visitor.
#pragma once

#include "framework/border/visitors.h"
#include "reference_host/model/counted.h"

namespace vestra::toolkit {

// The text that an operation tells; empty if it tells none, or if the object does not speak that interface.
template <auto Operation, class Impl, class... Args>
wide_string told(const vs::project_resave::interface_to<Impl>& target, Args... args) {
    wide_string text;
    vs::project_resave::stdwstring_visitor visitor(text);
    vs::project_resave::call<Operation>(target, args..., visitor);
    return text;
}

} // namespace vestra::toolkit
