#pragma once

#include "framework/border/ref.h"
#include "host/interfaces/service_factory.h"
#include "layers/resave_layer.h"
#include "services/resave_service.h"

namespace vs::project_resave {

// A layer of drawn graphics: a file with its projection.
class resave_graphics_layer : public Tvs_resave_layer {
public:
    using Tvs_resave_layer::Tvs_resave_layer;

    wide_string default_folder() override;
    bool copy_files(const wide_string& source, const wide_string& target) override;
};

// The project's map legends as a resave service of the bundle's own: a list that can be ticked. A legend has
// no file; one that is not selected leaves the new project.
class maplegs_plugin_service final : public referent<resave_service_impl> {
public:
    explicit maplegs_plugin_service(const bundle_context&) {}

    void set_project(vs_prj* project) override;
    void caption(string_visitor visitor) override;
    void progress_caption(string_visitor visitor) override;
    bool shows_in_selection() override { return true; }
    bool has_own_heading() override { return true; }
    void tree_caption(string_visitor visitor) override;
    vs_uuid* item_uuid(uint32_t index) override;
    void item_caption(uint32_t index, string_visitor visitor) override;
    uint32_t item_count() override;
    void remove_item(uint32_t index) override;

private:
    vs_maplegs* legends_ = nullptr; // the project's; stale from its end to the next load
};

} // namespace vs::project_resave
