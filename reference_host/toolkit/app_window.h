// The window in which the host shows a tool of a bundle, without a screen: it takes the tool's content and
// reports when the window opens and closes.
#pragma once

#include "framework/border/ref.h"
#include "host/toolkit/custom_app_service.h"
#include "reference_host/toolkit/shown_window.h"

namespace vestra::toolkit {

class app_window final : public shown_window {
public:
    // Opens the tool with this id, which the bundles of the current registry are asked for. If several offer
    // it, the first one is used.
    explicit app_window(wide_view id);
    // Closes the tool, which may then close its project, and releases everything that belongs to it. Must run
    // before the bundle is unloaded.
    ~app_window() override;
    app_window(const app_window&) = delete;
    app_window& operator=(const app_window&) = delete;

    // Returns false if no bundle offers the tool.
    bool is_open() const { return static_cast<bool>(content_); }
    // Returns the name under which the host stores the window's size and position.
    const wide_string& name() const { return name_; }
    // The content and the button box below it; valid as long as the window. The box can be null.
    vs::project_resave::element content() const;
    vs::project_resave::element button_box() const;
    // Returns the tool's service, which can be asked for its other interfaces.
    const vs::project_resave::custom_app_service& service() const { return service_.get(); }
    element_view look() const override;

private:
    vs::project_resave::ref<vs::project_resave::custom_app_service_impl> service_;
    vs::project_resave::ref<vs::project_resave::docker_impl> content_;
    vs::project_resave::ref<vs::project_resave::interface_impl> frame_; // counted while referenced
    wide_string name_;
};

} // namespace vestra::toolkit
