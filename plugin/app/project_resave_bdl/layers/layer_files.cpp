#include "layers/layer_files.h"

#include "framework/border/host_owned.h"
#include "framework/border/string_adapter.h"
#include "host/vsk_lr2d.h"
#include "host/vsk_lr3d.h"
#include "host/vsk_xml_save_2d.h"
#include "host/vsk_xml_save_3d.h"
#include "operations/run/path_files.h"
#include "operations/run/run_state.h"
#include "platform/path_text.h"

namespace vs::project_resave {

namespace {

using writer_2d = host_owned<vs_xml_save_2d, &vs_xml_save_2d_destroy>;
using writer_3d = host_owned<vs_xml_save_3d, &vs_xml_save_3d_destroy>;

// `write` calls the host, whose answer has a low byte of 0 on failure.
template <class Write>
void make_file(const wide_string& source, const wide_string& path, run_state& run, const Write& write) {
    const bool existed = path_exists(path);
    const bool written = (write() & 0xFF) != 0;
    run.placement.register_placed(source, path);
    if (!written)
        run.report.add(fact_kind::not_written, source, path);
    else if (existed)
        run.report.add(fact_kind::written_over, source, path);
}

} // namespace

wide_string caption_file_path(wide_view folder, wide_view caption, wide_view extension) {
    wide_string path(folder);
    if (!path.empty() && !is_separator(path.back())) path += u'\\';
    // Apart: without a folder a caption like "a:b" would pass for a name on a drive.
    return valid_path(path) + valid_name(held_below(wide_string(caption).append(extension)));
}

void write_scene_file_2d(vs_scn_2d* scene, const wide_string& path, run_state& run,
                         const wide_string& source) {
    const writer_2d writer(vs_xml_save_2d_create());
    make_file(source, path, run, [&] { return vs_xml_data_save_scn2d_w(writer.get(), path.c_str(), scene); });
}

void write_scene_file_3d(vs_scn_3d* scene, const wide_string& path, run_state& run) {
    const writer_3d writer(vs_xml_save_3d_create());
    make_file({}, path, run, [&] { return vs_xml_data_save_scn3d_w(writer.get(), path.c_str(), scene); });
}

void write_layer_file_2d(vs_lr* layer, const wide_string& path, run_state& run) {
    const writer_2d writer(vs_xml_save_2d_create());
    make_file({}, path, run, [&] { return vs_xml_data_save_lr2d_w(writer.get(), path.c_str(), layer); });
}

void write_layer_file_3d(vs_lr* layer, const wide_string& path, run_state& run) {
    const writer_3d writer(vs_xml_save_3d_create());
    make_file({}, path, run, [&] { return vs_xml_data_save_lr3d_w(writer.get(), path.c_str(), layer); });
}

void save_layer_file_2d(vs_lr* layer, run_state& run) {
    if (!run.options.save_layer_files || !layer) return;
    const wide_string caption = host_string(&vs_lr2d_get_wcaption, layer);
    const wide_string folder = run.placement.current_output_folder();
    write_layer_file_2d(layer, caption_file_path(folder, caption, layer_2d_extension), run);
}

void save_layer_file_3d(vs_lr* layer, run_state& run) {
    if (!run.options.save_layer_files || !layer) return;
    const wide_string caption = host_string(&vs_lr3d_get_wcaption, layer);
    const wide_string folder = run.placement.current_output_folder();
    write_layer_file_3d(layer, caption_file_path(folder, caption, layer_3d_extension), run);
}

} // namespace vs::project_resave
