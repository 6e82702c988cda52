// Button inside of a window.
#pragma once

#include <functional>

#include "host/toolkit/button.h"
#include "ui/toolkit/element_base.h"

namespace vs::project_resave::toolkit {

class button final : public element_base<polymorphic<button_impl>> {
public:
    button(wide_string caption, wide_string hint, std::function<void()> handler)
        : element_base(button_impl::element_kind), caption_(std::move(caption)), hint_(std::move(hint)),
          handler_(std::move(handler)) {}

    void caption(string_visitor visitor) override { tell(visitor, caption_); }
    void hint(string_visitor visitor) override { tell(visitor, hint_); }
    void click() override { handler_(); }

private:
    const wide_string caption_;
    const wide_string hint_;
    const std::function<void()> handler_;
};

} // namespace vs::project_resave::toolkit
