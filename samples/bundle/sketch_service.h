// Sketches: layers of a kind that only this bundle knows. A sketch is a drawing in a file. It can have a
// legend that explains its signs, in the file with the same name and ".legend" appended. It is drawn over
// other layers, whose uuids it stores under "sample_sketch", one text for each.
#pragma once

#include "framework/border/ref.h"
#include "host/interfaces/service_factory.h"
#include "services/resave_entity_service.h"

namespace sample {

using namespace vs::project_resave;

class sketch_service final : public referent<resave_entity_service_impl> {
public:
    explicit sketch_service(const bundle_context&) {}

    uint32_t meta_id_count() override { return 1; }
    void meta_id(uint32_t, string_visitor visitor) override { tell(visitor, u"sample_sketch_lr2d"); }
    // Asked before every claim with a higher number.
    int32_t priority() override { return 0; }
    bool accepts(vs_entity* entity) override;
    uint32_t reference_count(vs_entity* entity) override;
    void reference_uuid(vs_entity* entity, uint32_t index, vs_uuid* uuid) override;
    // Only the drawing has a path in the layer; copy_files and all_files add its legend.
    uint32_t file_count(vs_entity*) override { return 1; }
    void file_info(vs_entity* entity, uint32_t index, string_visitor source, string_visitor folder) override;
    void set_file(vs_entity* entity, uint32_t index, const char16_t* new_path) override;
    bool copy_files(vs_entity* entity, uint32_t index, const char16_t* source, const char16_t* target,
                    vs_wstrings* sources, vs_wstrings* targets) override;
    bool all_files(vs_entity* entity, vs_wstrings* files) override;
};

} // namespace sample
