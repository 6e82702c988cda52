// Content of a window, a dialog or a page.
#pragma once

#include "host/toolkit/docker.h"
#include "ui/toolkit/element_base.h"

namespace vs::project_resave::toolkit {

// A derived class owns the main element and hands it over with `main_element`.
class docker_base : public element_base<polymorphic<docker_impl>> {
public:
    operator docker() { return pointer_to<docker_impl>(*this); }

    void title(string_visitor visitor) override { tell(visitor, title_); }
    void description(string_visitor) override {}
    element buttons() override { return {}; }
    void set_parent(identity_pointer window) override { parent_.assign(window); }

protected:
    explicit docker_base(wide_string title)
        : element_base(docker_impl::element_kind), title_(std::move(title)) {}
    ~docker_base() = default;

private:
    const wide_string title_;
    ref<interface_impl> parent_;
};

} // namespace vs::project_resave::toolkit
