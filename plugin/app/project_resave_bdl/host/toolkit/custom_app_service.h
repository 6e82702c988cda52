// A tool that a bundle offers: the service by which the host finds it, under the tool's own id, and opens it
// in a window.
#pragma once

#include "host/toolkit/docker.h"

namespace vs::project_resave {

// Who implements: the host, for the call.
class main_element_visitor_impl : public interface_of<main_element_visitor_impl> {
public:
    static constexpr const char* name = "vs_main_element_visitor_interface_1";
    // What the window shows, a referent, and the name under which the host keeps the window's size and place.
    virtual void visit(const char16_t* window_name, docker content) = 0;
    using operations = operation_list<&main_element_visitor_impl::visit>;

protected:
    ~main_element_visitor_impl() = default;
};
using main_element_visitor = interface_to<main_element_visitor_impl>;

// Who implements: the bundle; a referent that its factory keeps. Who calls: the host.
//
// To open the tool the host takes a ref to the main element and tells it its window by `set_parent`; to close
// it, it tells null and lets go. The elements stay what they are for the next time.
class custom_app_service_impl : public interface_of<custom_app_service_impl> {
public:
    static constexpr const char* name = "vs_custom_app_service_interface_79";
    // Calls the visitor once.
    virtual void hand_over_main_element(main_element_visitor visitor) = 0;
    // The buttons below the main element, in place of its docker's own; lives as long as the service.
    virtual element button_box() = 0;
    using operations = operation_list<&custom_app_service_impl::hand_over_main_element,
                                      &custom_app_service_impl::button_box>;

protected:
    ~custom_app_service_impl() = default;
};
using custom_app_service = interface_to<custom_app_service_impl>;

// Who implements: whoever looks for tools. Told each service once.
class custom_app_service_visitor_impl : public interface_of<custom_app_service_visitor_impl> {
public:
    static constexpr const char* name = "vs_custom_app_service_visitor_interface_79";
    virtual void visit(custom_app_service service) = 0;
    using operations = operation_list<&custom_app_service_visitor_impl::visit>;

protected:
    ~custom_app_service_visitor_impl() = default;
};

} // namespace vs::project_resave
