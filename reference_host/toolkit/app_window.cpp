#include "reference_host/toolkit/app_window.h"

#include "host/interfaces/service_visitor.h"
#include "reference_host/model/counted.h"
#include "reference_host/shell/service_registry.h"
#include "reference_host/toolkit/element_description.h"

namespace vestra::toolkit {

namespace border = vs::project_resave;
using border::call;
using border::cast_to;

namespace {

class found_app final : public border::polymorphic<border::custom_app_service_visitor_impl,
                                                   border::polymorphic<border::service_visitor_impl>> {
public:
    void visit(border::custom_app_service service) override {
        if (!held) held.assign(service);
    }
    border::ref<border::custom_app_service_impl> held;
};

class main_element final : public border::main_element_visitor_impl {
public:
    void visit(const char16_t* window_name, border::docker content) override {
        name = border::text_or_empty(window_name);
        held.assign(content);
    }
    wide_string name;
    border::ref<border::docker_impl> held;
};

// What the content is told to stand in.
class frame final : public border::obj, private counted {};

} // namespace

app_window::app_window(wide_view id) {
    found_app found;
    shell::visit_services(id,
                          border::identity_of(static_cast<border::custom_app_service_visitor_impl&>(found)));
    if (!found.held) return;
    main_element handed;
    call<&border::custom_app_service_impl::hand_over_main_element>(
        found.held.get(), border::pointer_to<border::main_element_visitor_impl>(handed));
    if (!handed.held) return;
    service_ = found.held;
    content_ = handed.held;
    name_ = handed.name;
    frame_.assign(border::identity_of(*new frame));
    call<&border::docker_impl::set_parent>(content_.get(), frame_.get());
}

app_window::~app_window() {
    call<&border::docker_impl::set_parent>(content_.get(), border::identity_pointer());
}

element_view app_window::look() const {
    element_view view = look_at(cast_to<border::element_impl>(content_.get()));
    if (const auto box = call<&border::custom_app_service_impl::button_box>(service_.get()))
        view.children.push_back(look_at(box));
    name_elements(view);
    return view;
}

} // namespace vestra::toolkit
