// Files that describe one layer or scene, written by the host next to the new project as an additional output
// of a run. Each is recorded in the placement whatever the result of the host's writer; the report lists the
// files that could not be written and those that replaced an existing file. Main thread only.
#pragma once

#include "host/types.h"
#include "platform/wide_string.h"

namespace vs::project_resave {

struct run_state;

// Returns the path of the file for an element with this caption in `folder`. The caption and its dots are
// kept, except for characters that no file name can have and parts that would lead out of the folder; a
// caption never counts as a drive.
wide_string caption_file_path(wide_view folder, wide_view caption, wide_view extension);

// Extensions of the files, by their content.
inline constexpr wide_view scene_2d_extension = u"._sn";
inline constexpr wide_view scene_3d_extension = u"._sc";
inline constexpr wide_view layer_2d_extension = u"._lr";
inline constexpr wide_view layer_3d_extension = u"._lrd";

// Write the element as it is now. An existing file is replaced, unless it belongs to the source project or is
// a copy made by the run: then the new file gets the next free name. `source` is the file that the scene was
// read from, if any. With `lacks_joins` the file is written again when the joins of tables are restored.
void write_scene_file_2d(vs_scn_2d* scene, const wide_string& path, run_state& run,
                         const wide_string& source = {}, bool lacks_joins = false);
void write_scene_file_3d(vs_scn_3d* scene, const wide_string& path, run_state& run, bool lacks_joins = false);
void write_layer_file_2d(vs_lr* layer, const wide_string& path, run_state& run, bool lacks_joins = false);
void write_layer_file_3d(vs_lr* layer, const wide_string& path, run_state& run, bool lacks_joins = false);

// If the options ask for layer files, write the layer to "caption._lr" ("._lrd" for a 3D layer) in the output
// folder. Do nothing for a null layer.
void save_layer_file_2d(vs_lr* layer, run_state& run, bool lacks_joins = false);
void save_layer_file_3d(vs_lr* layer, run_state& run, bool lacks_joins = false);

} // namespace vs::project_resave
