// What every element of a window answers, whatever it is, and how it tells that its answers changed.
//
// The host never knows an element's class. It gets an element as a pair, asks for its kind, casts it to the
// interfaces it can draw, asks them everything, and sends the user's events back through them.
#pragma once

#include "framework/border/visitors.h"

namespace vs::project_resave {

class element_impl;
using element = interface_to<element_impl>;

// Who implements: the host. It outlives the connection, or is a referent.
class element_observer_impl : public interface_of<element_observer_impl> {
public:
    static constexpr const char* name = "vs_element_observer_interface_1";
    // Something that `which` answers is no longer what it was: ask again. Told after the change.
    virtual void on_changed(element which) = 0;
    using operations = operation_list<&element_observer_impl::on_changed>;

protected:
    ~element_observer_impl() = default;
};
using element_observer = interface_to<element_observer_impl>;

// Who implements: the bundle, in each of its elements. Who calls: the host, which borrows an element for as
// long as its owner, in the end the docker it stands in, lives.
class element_impl : public interface_of<element_impl> {
public:
    static constexpr const char* name = "vs_element_interface_1";
    // Tells what the element is, the `element_kind` of its interface; the same word for all its life.
    virtual void kind(string_visitor visitor) = 0;
    // An element that is not enabled is drawn so, and the host sends it no events.
    virtual bool enabled() = 0;
    // One that is not visible keeps its place.
    virtual bool visible() = 0;
    // Connects the one observer of the element; null ends the connection.
    virtual void set_observer(element_observer observer) = 0;
    using operations = operation_list<&element_impl::kind, &element_impl::enabled, &element_impl::visible,
                                      &element_impl::set_observer>;

protected:
    ~element_impl() = default;
};

} // namespace vs::project_resave
