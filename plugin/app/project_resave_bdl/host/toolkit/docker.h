// The content of a window, a dialog or a page: one main element, with its title. It is an element too, and so
// may stand inside another. Who implements: the bundle. Who calls: the host.
#pragma once

#include "host/toolkit/element.h"

namespace vs::project_resave {

class docker_impl : public interface_of<docker_impl> {
public:
    static constexpr const char* name = "vs_docker_interface_1";
    static constexpr const char16_t* element_kind = u"docker";
    virtual void title(string_visitor visitor) = 0;
    // A sentence for a hint; may be empty.
    virtual void description(string_visitor visitor) = 0;
    virtual element main_element() = 0;
    // The button box of the window; null: the host adds its own OK and cancel.
    virtual element buttons() = 0;
    // The window that the docker stands in, kept while it does; null when the window goes. A dialog's docker
    // need not be told.
    virtual void set_parent(identity_pointer window) = 0;
    using operations =
        operation_list<&docker_impl::title, &docker_impl::description, &docker_impl::main_element,
                       &docker_impl::buttons, &docker_impl::set_parent>;

protected:
    ~docker_impl() = default;
};
using docker = interface_to<docker_impl>;

} // namespace vs::project_resave
