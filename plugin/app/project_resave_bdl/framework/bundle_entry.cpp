#include "framework/bundle_entry.h"

void vs_bundle_interface_to_custom_pointer(vs_interface_pointer* out, void* instance) {
    vs::project_resave::hand_out_bundle(out, instance);
}
