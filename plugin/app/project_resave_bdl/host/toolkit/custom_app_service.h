// A tool that a bundle offers: the service by which the host finds it, under the tool's own id such as
// "vestra/app/project_resave_app", and opens it in a window.
//
// Order of calls: to open the tool, the host calls hand_over_main_element, takes a ref to the docker and
// passes its window to the docker's set_parent. To close it, the host passes null to set_parent and releases
// the ref. The elements keep their state until the tool is opened again. Main thread only.
#pragma once

#include "host/toolkit/docker.h"

namespace vs::project_resave {

// Who implements: the host, for one call of hand_over_main_element. Who calls: the bundle.
class main_element_visitor_impl : public interface_of<main_element_visitor_impl> {
public:
    static constexpr const char* name = "vs_main_element_visitor_interface_1";
    // Receives what the window shows, a referent, and the name under which the host stores the window's size
    // and position. Both are borrowed for the call: the host takes a ref to `content`.
    virtual void visit(const char16_t* window_name, docker content) = 0;
    using operations = operation_list<&main_element_visitor_impl::visit>;

protected:
    ~main_element_visitor_impl() = default;
};
using main_element_visitor = interface_to<main_element_visitor_impl>;

// Who implements: the bundle, as a referent that its factory keeps. Who calls: the host.
class custom_app_service_impl : public interface_of<custom_app_service_impl> {
public:
    static constexpr const char* name = "vs_custom_app_service_interface_79";
    // Calls the visitor once, with the same docker each time.
    virtual void hand_over_main_element(main_element_visitor visitor) = 0;
    // Returns the button box to be shown below the main element, in place of the docker's own buttons. Valid
    // as long as the service.
    virtual element button_box() = 0;
    using operations = operation_list<&custom_app_service_impl::hand_over_main_element,
                                      &custom_app_service_impl::button_box>;

protected:
    ~custom_app_service_impl() = default;
};
using custom_app_service = interface_to<custom_app_service_impl>;

// Who implements: code that looks for tools, as host/interfaces/service_visitor.h says. Who calls: the
// registry.
class custom_app_service_visitor_impl : public interface_of<custom_app_service_visitor_impl> {
public:
    static constexpr const char* name = "vs_custom_app_service_visitor_interface_79";
    // Receives one service, borrowed for the call: take a ref to keep it.
    virtual void visit(custom_app_service service) = 0;
    using operations = operation_list<&custom_app_service_visitor_impl::visit>;

protected:
    ~custom_app_service_visitor_impl() = default;
};

} // namespace vs::project_resave
