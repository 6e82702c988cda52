#include "host/vsk_xml_save_prj.h"

#include "reference_host/api/file_calls.h"
#include "reference_host/api/objects.h"
#include "reference_host/shell/settings.h"

using namespace vestra::api;
using namespace vestra::files;
using vestra::shell::settings;

vs_xml_save_prj* vs_xml_save_prj_create() { return create<vs_xml_save_prj>(); }

void vs_xml_save_prj_destroy(vs_xml_save_prj* xml) { destroy(xml); }

uint32_t vs_xml_data_load_prj_w(vs_xml_save_prj* xml, const char16_t* path, vs_prj* project) {
    return with_file(xml, path, project, settings().read_error, read_project);
}

uint32_t vs_xml_data_save_prj_w(vs_xml_save_prj* xml, const char16_t* path, vs_prj* project) {
    return to_file(xml, path, project, write_project);
}
