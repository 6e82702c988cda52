// What a service tells a visitor in answer to a question, as a text.
#pragma once

#include "framework/border/visitors.h"

namespace vs::project_resave {

// `Question` is an operation whose last argument is a string visitor. Empty if the service is null or tells
// nothing.
template <auto Question, class Impl, class... Args>
wide_string told_text(const interface_to<Impl>& service, Args... args) {
    wide_string text;
    stdwstring_visitor visitor(text);
    call<Question>(service, args..., visitor);
    return text;
}

} // namespace vs::project_resave
