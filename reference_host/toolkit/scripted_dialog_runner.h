// A dialog runner that does what a function says: for tests and for programs without a person.
#pragma once

#include <functional>
#include <utility>

#include "host/toolkit/modal_dialog.h"
#include "reference_host/toolkit/element_view.h"

namespace vestra::toolkit {

class scripted_dialog_runner final : public vs::project_resave::dialog_runner_impl {
public:
    // Gets the walked dialog, may send events through it, and answers what the user closed it with; 0 is
    // cancel. The view is good for the call.
    using script = std::function<std::int32_t(const element_view& dialog)>;

    explicit scripted_dialog_runner(script plays) : script_(std::move(plays)) {}

    std::int32_t run(vs::project_resave::docker content) override {
        return script_(look_at(vs::project_resave::cast_to<vs::project_resave::element_impl>(content)));
    }

private:
    const script script_;
};

} // namespace vestra::toolkit
