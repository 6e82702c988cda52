// The services that the bundle offers, and the function through which the host gets them.
#include "framework/bundle_entry.h"
#include "notes_service.h"
#include "sketch_service.h"

namespace sample {

namespace {

using namespace vs::project_resave;

// Static objects: they are in the library's list of factories before the host calls it, and end the services
// when the library is unloaded.
service_factory<notes_service>
    notes(u"vestra/resave_project",
          std::make_unique<ref_service_holder<notes_service, resave_service_impl>>());
service_factory<sketch_service>
    sketches(u"vestra/resave_project",
             std::make_unique<ref_service_holder<sketch_service, resave_entity_service_impl>>());

} // namespace

} // namespace sample

void vs_bundle_interface_to_custom_pointer(vs_interface_pointer* out, void* instance) {
    vs::project_resave::hand_out_bundle(out, instance);
}
