// Opens a tool of a bundle without a screen.
#include "reference_host/toolkit/app_window.h"

#include "host/interfaces/service_visitor.h"
#include "reference_host/model/counted.h"
#include "reference_host/shell/service_registry.h"
#include "reference_host/toolkit/element_description.h"

namespace vestra::toolkit {

using namespace vs::project_resave;

namespace {

class found_app final
    : public polymorphic<custom_app_service_visitor_impl, polymorphic<service_visitor_impl>> {
public:
    void visit(custom_app_service service) override {
        // The first service wins; the registry passes them in the order of registration.
        if (!held) held.assign(service);
    }
    ref<custom_app_service_impl> held;
};

class main_element final : public main_element_visitor_impl {
public:
    void visit(const char16_t* window_name, docker content) override {
        name = text_or_empty(window_name);
        held.assign(content);
    }
    wide_string name;
    ref<docker_impl> held;
};

// The window object that the content is opened in. It is counted, so a test notices content that keeps its
// window.
class frame final : public obj, private counted {};

} // namespace

app_window::app_window(wide_view id) {
    found_app found;
    shell::visit_services(id, identity_of(static_cast<custom_app_service_visitor_impl&>(found)));
    if (!found.held) return;
    main_element handed;
    call<&custom_app_service_impl::hand_over_main_element>(found.held.get(),
                                                           pointer_to<main_element_visitor_impl>(handed));
    if (!handed.held) return;
    service_ = found.held;
    content_ = handed.held;
    name_ = handed.name;
    frame_.assign(identity_of(*new frame));
    // After the ref was taken, as tools expect.
    call<&docker_impl::set_parent>(content_.get(), frame_.get());
}

// Before the refs are released, so the tool can still close its project. Without an open tool the call does
// nothing.
app_window::~app_window() { call<&docker_impl::set_parent>(content_.get(), identity_pointer()); }

element app_window::content() const { return cast_to<element_impl>(content_.get()); }

element app_window::button_box() const { return call<&custom_app_service_impl::button_box>(service_.get()); }

element_view app_window::look() const {
    element_view view = look_at(content());
    if (const element box = button_box()) view.children.push_back(look_at(box));
    name_elements(view);
    return view;
}

} // namespace vestra::toolkit
