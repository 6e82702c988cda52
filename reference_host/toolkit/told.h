// Reads texts that elements pass to a visitor.
#pragma once

#include "framework/border/visitors.h"
#include "reference_host/model/counted.h"

namespace vestra::toolkit {

// Returns the text that an operation passes to its visitor; empty if it passes none or if the object does not
// implement the interface. The visitor must be the operation's last argument.
template <auto Operation, class Impl, class... Args>
wide_string told(const vs::project_resave::interface_to<Impl>& target, Args... args) {
    wide_string text;
    vs::project_resave::stdwstring_visitor visitor(text);
    vs::project_resave::call<Operation>(target, args..., visitor);
    return text;
}

} // namespace vestra::toolkit
