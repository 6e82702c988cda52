// Has the host write the files of single scenes and layers, in places where nothing of value is overwritten.

#include "layers/layer_files.h"

#include <functional>

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

// `write` makes the host write to a path. Copies made by the run and files of the source are never
// overwritten: the file gets the next free name instead.
void make_file(const wide_string& source, const wide_string& wanted, bool lacks_joins, run_state& run,
               const std::function<bool(const wide_string&)>& write) {
    path_placement& placement = run.placement;
    wide_string path = wanted;
    const bool existed = path_exists(path);
    const bool kept = placement.made.is_copy(path) || run.guard.protects(path) ||
                      (!existed && is_name_taken(path)); // a pipe or a broken link
    if (kept) {
        path = placement.next_free_name(path, true);
        run.log.file_renamed(wanted, path);
        run.report.add(fact_kind::renamed, wanted, path);
    }
    const bool written = write(path);
    // Kept as users know it: the file counts as placed even if the host could not write it.
    placement.register_placed(source, path);
    if (!written) return run.report.add(fact_kind::not_written, source, path);
    if (source.empty())
        placement.made.add_written(path);
    else // the scene of a map layer
        placement.made.add_copy(source, path);
    if (existed && !kept) run.report.add(fact_kind::written_over, source, path);
    run.joins.unfinished.erase(path_key(path)); // the last writer of a path owns it
    if (lacks_joins) run.joins.unfinished[path_key(path)] = {source, path, [=] { return write(path); }};
}

// The low byte of the result of the host's writers is 0 on failure.
template <class Writer, auto Create, auto Save, class Element>
auto file_writer(Element* element) {
    return [element](const wide_string& path) {
        const Writer writer(Create());
        return (Save(writer.get(), path.c_str(), element) & 0xFF) != 0;
    };
}

} // namespace

wide_string caption_file_path(wide_view folder, wide_view caption, wide_view extension) {
    wide_string path(folder);
    if (!path.empty() && !is_separator(path.back())) path += u'\\';
    // Folder and name are checked separately: without a folder, a caption like "a:b" would count as a name on
    // a drive.
    const wide_string name = trim(wide_string(caption).append(extension), path_separators);
    return path + valid_name(held_below(name));
}

void write_scene_file_2d(vs_scn_2d* scene, const wide_string& path, run_state& run, const wide_string& source,
                         bool lacks_joins) {
    make_file(source, path, lacks_joins, run,
              file_writer<writer_2d, &vs_xml_save_2d_create, &vs_xml_data_save_scn2d_w>(scene));
}

void write_scene_file_3d(vs_scn_3d* scene, const wide_string& path, run_state& run, bool lacks_joins) {
    make_file({}, path, lacks_joins, run,
              file_writer<writer_3d, &vs_xml_save_3d_create, &vs_xml_data_save_scn3d_w>(scene));
}

void write_layer_file_2d(vs_lr* layer, const wide_string& path, run_state& run, bool lacks_joins) {
    make_file({}, path, lacks_joins, run,
              file_writer<writer_2d, &vs_xml_save_2d_create, &vs_xml_data_save_lr2d_w>(layer));
}

void write_layer_file_3d(vs_lr* layer, const wide_string& path, run_state& run, bool lacks_joins) {
    make_file({}, path, lacks_joins, run,
              file_writer<writer_3d, &vs_xml_save_3d_create, &vs_xml_data_save_lr3d_w>(layer));
}

void save_layer_file_2d(vs_lr* layer, run_state& run, bool lacks_joins) {
    if (!run.options.save_layer_files || !layer) return;
    const wide_string caption = host_string(&vs_lr2d_get_wcaption, layer);
    const wide_string folder = run.placement.current_output_folder();
    write_layer_file_2d(layer, caption_file_path(folder, caption, layer_2d_extension), run, lacks_joins);
}

void save_layer_file_3d(vs_lr* layer, run_state& run, bool lacks_joins) {
    if (!run.options.save_layer_files || !layer) return;
    const wide_string caption = host_string(&vs_lr3d_get_wcaption, layer);
    const wide_string folder = run.placement.current_output_folder();
    write_layer_file_3d(layer, caption_file_path(folder, caption, layer_3d_extension), run, lacks_joins);
}

} // namespace vs::project_resave
