// The content of a window, a dialog or a page: a title, one main element, and the window's buttons. As an
// element it can also be a child of another element.
//
// Who implements: the bundle. Who calls: the host. The object is an element too: host/toolkit/element.h says
// how long it lives and how it reports a change. Main thread only.
#pragma once

#include "host/toolkit/element.h"

namespace vs::project_resave {

class docker_impl : public interface_of<docker_impl> {
public:
    static constexpr const char* name = "vs_docker_interface_1";
    static constexpr const char16_t* element_kind = u"docker";
    // Passes the title of the window, dialog or page; may be empty. It never changes.
    virtual void title(string_visitor visitor) = 0;
    // Passes a sentence for a hint; passes the empty text or does not call the visitor if there is none.
    virtual void description(string_visitor visitor) = 0;
    // Returns the element that fills the docker, valid as long as the docker.
    virtual element main_element() = 0;
    // Returns the button box of a window or dialog, valid as long as the docker. Null if the host must add
    // its own OK and cancel buttons.
    virtual element buttons() = 0;
    // Sets the window that shows the docker, which keeps a ref to it; null before the window closes. What the
    // docker shows, such as a loaded project, may be destroyed then. Need not be called for the docker of a
    // dialog or of a page.
    virtual void set_parent(identity_pointer window) = 0;
    using operations =
        operation_list<&docker_impl::title, &docker_impl::description, &docker_impl::main_element,
                       &docker_impl::buttons, &docker_impl::set_parent>;

protected:
    ~docker_impl() = default;
};
using docker = interface_to<docker_impl>;

} // namespace vs::project_resave
