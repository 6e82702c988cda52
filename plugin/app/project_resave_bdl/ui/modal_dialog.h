// The bundle's modal dialogs. Each dialog is an instance of the templates below, with a tag type whose `name`
// identifies the dialog. The host makes the factory create the service and installs its runner; from then on
// the bundle's code reaches the runner through the service's slot, without a look-up. Main thread only.
#pragma once

#include "framework/factories.h"
#include "framework/resources/strings.h"
#include "host/toolkit/modal_dialog.h"
#include "ui/toolkit/element_base.h"

namespace vs::project_resave {

// Keeps the connection to the host's dialog runner. The host installs a runner after loading the bundle and
// removes it before the runner is destroyed.
template <class Tag>
class modal_dialog final : public modal_dialog_impl {
public:
    // The host stores the size and position of the dialog under this name.
    void identity_text(string_visitor visitor) override {
        call<&string_visitor_impl::visit>(visitor, Tag::name);
    }
    void set_runner(dialog_runner runner) override { runner_.assign(runner); }

    // Shows the docker and blocks until the user closes it; events of the user arrive meanwhile. Returns 0 if
    // it was cancelled or there is no runner.
    int32_t run(docker content) const { return call<&dialog_runner_impl::run>(runner_.get(), content); }

private:
    // Weak, because a dialog must not keep the host's runner alive.
    weak_ref<dialog_runner_impl> runner_;
};

// The service of one dialog, created by the factory below when the host first asks for it. There is one slot
// for each tag, so code that shows a dialog needs no pointer to its service.
template <class Tag>
class modal_dialog_service final : public referent<modal_dialog_service_impl> {
public:
    modal_dialog_service() { slot = this; }
    ~modal_dialog_service() override {
        if (slot == this) slot = nullptr;
    }
    modal_dialog_pointer dialog() override { return pointer_to<modal_dialog_impl>(own_dialog); }

    // The dialog that the host is given.
    modal_dialog<Tag> own_dialog;
    // The service created last; null after its destruction. Null as well while the host has not asked for the
    // dialog; then it is not shown.
    static inline modal_dialog_service* slot = nullptr;
};

// Creates the service when it is first needed, and keeps it until the library is unloaded. Its id is empty,
// so the host finds it under every id.
template <class Tag>
class modal_dialog_service_factory final : public custom_service_factory_impl {
public:
    modal_dialog_service_factory() : custom_service_factory_impl(u"") {}
    identity_pointer create(bundle_context) override {
        if (!service_) service_.assign(pointer_to<modal_dialog_service_impl>(*new modal_dialog_service<Tag>));
        return identity_of(static_cast<const interface_pointer&>(service_.get()));
    }

private:
    ref<modal_dialog_service_impl> service_;
};

// The content of a dialog window: the dialog's element, with the dialog's title.
class dialog_docker final : public toolkit::docker_base {
public:
    // `title_id` is the row of the title. `box` may be null, then the host adds its own buttons; both
    // elements must outlive the docker.
    dialog_docker(int32_t title_id, const element& content, const element& box = {})
        : docker_base(load_string(title_id)), content_(content), box_(box) {}
    element main_element() override { return content_; }
    element buttons() override { return box_; }

private:
    const element content_;
    const element box_;
};

} // namespace vs::project_resave
