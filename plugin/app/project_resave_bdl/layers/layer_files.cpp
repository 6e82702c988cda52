#include "layers/layer_files.h"

#include "framework/border/host_owned.h"
#include "framework/border/string_adapter.h"
#include "host/vsk_lr2d.h"
#include "host/vsk_lr3d.h"
#include "host/vsk_xml_save_2d.h"
#include "host/vsk_xml_save_3d.h"
#include "operations/project_context.h"
#include "platform/path_text.h"

namespace vs::project_resave {

wide_string caption_file_path(wide_view folder, wide_view caption, wide_view extension) {
    wide_string path(folder);
    if (!path.empty() && !is_separator(path.back())) path += u'\\';
    // Apart: without a folder a caption like "a:b" would pass for a name on a drive.
    return valid_path(path) + valid_name(held_below(wide_string(caption).append(extension)));
}

void save_layer_file_2d(vs_lr* layer, project_context& context) {
    if (!context.options.save_layer_files || !layer) return;
    const host_owned<vs_xml_save_2d, &vs_xml_save_2d_destroy> writer(vs_xml_save_2d_create());
    const wide_string path = caption_file_path(context.placement.current_output_folder(),
                                               host_string(&vs_lr2d_get_wcaption, layer), u"._lr");
    vs_xml_data_save_lr2d_w(writer.get(), path.c_str(), layer);
    context.placement.register_placed(wide_string(), path);
}

void save_layer_file_3d(vs_lr* layer, project_context& context) {
    if (!context.options.save_layer_files || !layer) return;
    const host_owned<vs_xml_save_3d, &vs_xml_save_3d_destroy> writer(vs_xml_save_3d_create());
    const wide_string path = caption_file_path(context.placement.current_output_folder(),
                                               host_string(&vs_lr3d_get_wcaption, layer), u"._lrd");
    vs_xml_data_save_lr3d_w(writer.get(), path.c_str(), layer);
    context.placement.register_placed(wide_string(), path);
}

} // namespace vs::project_resave
