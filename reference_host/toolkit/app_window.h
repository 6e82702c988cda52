// The window in which the host shows a tool of a bundle, without a screen: it takes what the tool hands over,
// says that it is there, and says that it goes.
#pragma once

#include "framework/border/ref.h"
#include "host/toolkit/custom_app_service.h"
#include "reference_host/toolkit/shown_window.h"

namespace vestra::toolkit {

class app_window final : public shown_window {
public:
    // Opens the tool of this id, of the bundles in the registry in force; they are asked for it first.
    explicit app_window(wide_view id);
    // Closes it. Nothing of the tool is held any more.
    ~app_window() override;
    app_window(const app_window&) = delete;
    app_window& operator=(const app_window&) = delete;

    // False if no bundle offers the tool.
    bool is_open() const { return static_cast<bool>(content_); }
    // The name under which the host keeps the window's size and place.
    const wide_string& name() const { return name_; }
    // What stands in it, and below that; both as long as the window. The box can be null.
    vs::project_resave::element content() const;
    vs::project_resave::element button_box() const;
    // The tool as the registry has it, to be asked what else it speaks.
    const vs::project_resave::custom_app_service& service() const { return service_.get(); }
    element_view look() const override;

private:
    vs::project_resave::ref<vs::project_resave::custom_app_service_impl> service_;
    vs::project_resave::ref<vs::project_resave::docker_impl> content_;
    vs::project_resave::ref<vs::project_resave::interface_impl> frame_; // counted while anybody holds it
    wide_string name_;
};

} // namespace vestra::toolkit
