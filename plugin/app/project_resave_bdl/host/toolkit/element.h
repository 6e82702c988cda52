// The interface that every element of a window implements, and how an element reports that it has changed.
//
// The host never knows an element's class. It gets a pair of pointers, asks for the kind, casts the element
// to the interfaces that it can draw (framework/border/interface.h), asks these for everything they have, and
// sends the user's events back through them. Words are in the user's language, unless an operation says that
// they are the same in every language. Main thread only.
//
// Life: an element belongs to the bundle. The host borrows it for as long as the docker at the top of its
// window or dialog lives, unless the operation that returned it says otherwise.
#pragma once

#include "framework/border/visitors.h"

namespace vs::project_resave {

class element_impl;
using element = interface_to<element_impl>;

// Who implements: the host. Who calls: the element. It must outlive the connection or be a referent: an
// element keeps no ref, which would keep the observer alive.
class element_observer_impl : public interface_of<element_observer_impl> {
public:
    static constexpr const char* name = "vs_element_observer_interface_1";
    // A value that `which` returns has changed, so the host must ask for it again. Called after the change,
    // and not if a value was set to what it already was. May be called during an event that the host sends to
    // this element or to another one.
    virtual void on_changed(element which) = 0;
    using operations = operation_list<&element_observer_impl::on_changed>;

protected:
    ~element_observer_impl() = default;
};
using element_observer = interface_to<element_observer_impl>;

// Who implements: the bundle, in each of its elements. Who calls: the host.
class element_impl : public interface_of<element_impl> {
public:
    static constexpr const char* name = "vs_element_interface_1";
    // Passes the kind of the element, which is the `element_kind` of its interface; never changes.
    virtual void kind(string_visitor visitor) = 0;
    // False if the element must be drawn as disabled; then the host sends it no events.
    virtual bool enabled() = 0;
    // False if the element must not be drawn. It keeps its place in its layout.
    virtual bool visible() = 0;
    // Connects the element's only observer, replacing an earlier one; null ends the connection.
    virtual void set_observer(element_observer observer) = 0;
    using operations = operation_list<&element_impl::kind, &element_impl::enabled, &element_impl::visible,
                                      &element_impl::set_observer>;

protected:
    ~element_impl() = default;
};

} // namespace vs::project_resave
