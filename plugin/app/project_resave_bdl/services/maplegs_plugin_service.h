// The project's map legends as a resave service of this bundle: a list under a heading, from which the user
// can leave out legends. A legend has no file; one that is not selected is removed from the new project.
//
// Who implements: this bundle, under no id, so that it is found with the services of all other bundles. Who
// calls: the resave, as services/resave_service.h says. Operations that are not overridden keep their
// defaults. Main thread only.
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

// The service of the map legends.
class maplegs_plugin_service final : public referent<resave_service_impl> {
public:
    // There are no items before set_project.
    explicit maplegs_plugin_service(const bundle_context&) {}

    void set_project(vs_prj* project) override;
    void caption(string_visitor visitor) override;
    void progress_caption(string_visitor visitor) override;
    bool shows_in_selection() override { return true; }
    bool has_own_heading() override { return true; }
    void tree_caption(string_visitor visitor) override;
    // Returns the legend's own uuid, valid as long as the legend; null past the last one and without a
    // project.
    vs_uuid* item_uuid(uint32_t index) override;
    // Passes the title of the legend; the empty text past the last one.
    void item_caption(uint32_t index, string_visitor visitor) override;
    uint32_t item_count() override;
    // Destroys the legend in the private copy; does nothing past the last one.
    void remove_item(uint32_t index) override;

private:
    vs_maplegs* legends_ = nullptr; // owned by the project; invalid between its end and the next set_project
};

} // namespace vs::project_resave
