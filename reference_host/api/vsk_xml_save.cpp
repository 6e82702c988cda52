// The C functions that read and write files of projects, scenes and layers.
#include "host/vsk_lr2d.h"
#include "host/vsk_lr3d.h"
#include "host/vsk_xml_save_2d.h"
#include "host/vsk_xml_save_3d.h"
#include "host/vsk_xml_save_prj.h"
#include "reference_host/api/file_calls.h"
#include "reference_host/api/objects.h"

using namespace vestra::api;
using namespace vestra::files;

namespace {

const auto& reader_of(const vestra::project&) { return vestra::shell::settings().project_read; }
const auto& reader_of(const vestra::scene&) { return vestra::shell::settings().scene_read; }

// References are returned as resolved from the file. A callback in the settings can change them before the
// bundle sees them.
template <class Model,
          std::optional<file_error> (*Reader)(const vestra::wide_string&, Model&, vestra::wide_view)>
std::optional<file_error> read_at_its_place(const vestra::wide_string& path, Model& out) {
    // Without a folder, references are resolved against the file's own place.
    std::optional<file_error> error = Reader(path, out, {});
    if (const auto& reads_along = reader_of(out); reads_along && !error) reads_along(out);
    return error;
}

} // namespace

vs_xml_save_prj* vs_xml_save_prj_create() { return create<vs_xml_save_prj>(); }

void vs_xml_save_prj_destroy(vs_xml_save_prj* xml) { destroy(xml); }

uint32_t vs_xml_data_load_prj_w(vs_xml_save_prj* xml, const char16_t* path, vs_prj* project) {
    return from_file(xml, path, project, &read_at_its_place<vestra::project, read_project>);
}

uint32_t vs_xml_data_save_prj_w(vs_xml_save_prj* xml, const char16_t* path, vs_prj* project) {
    return to_file(xml, path, project, write_project);
}

using namespace vestra::api;
using namespace vestra::files;

vs_xml_save_2d* vs_xml_save_2d_create() { return create<vs_xml_save_2d>(); }

void vs_xml_save_2d_destroy(vs_xml_save_2d* xml) { destroy(xml); }

uint32_t vs_xml_data_load_scn2d_w(vs_xml_save_2d* xml, const char16_t* path, vs_scn_2d* scene) {
    return from_file(xml, path, scene, &read_at_its_place<vestra::scene, read_scene>);
}

uint32_t vs_xml_data_save_scn2d_w(vs_xml_save_2d* xml, const char16_t* path, vs_scn_2d* scene) {
    return to_file(xml, path, scene, write_scene);
}

uint32_t vs_xml_data_save_lr2d_w(vs_xml_save_2d* xml, const char16_t* path, vs_lr* layer) {
    // A layer of the other kind fails like a null handle.
    return to_file(xml, path, vs_lr2d_safe_downcast(layer), write_layer);
}

using namespace vestra::api;
using namespace vestra::files;

vs_xml_save_3d* vs_xml_save_3d_create() { return create<vs_xml_save_3d>(); }

void vs_xml_save_3d_destroy(vs_xml_save_3d* xml) { destroy(xml); }

uint32_t vs_xml_data_save_scn3d_w(vs_xml_save_3d* xml, const char16_t* path, vs_scn_3d* scene) {
    return to_file(xml, path, scene, write_scene);
}

uint32_t vs_xml_data_save_lr3d_w(vs_xml_save_3d* xml, const char16_t* path, vs_lr* layer) {
    return to_file(xml, path, vs_lr3d_safe_downcast(layer), write_layer);
}
