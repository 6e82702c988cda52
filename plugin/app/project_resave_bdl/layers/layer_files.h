// Files that describe one layer or scene, written beside the new project as an additional product of a run.
#pragma once

#include "host/types.h"
#include "platform/wide_string.h"

namespace vs::project_resave {

class project_context;

// Path of the file of a captioned element in `folder`. The caption and its dots stay as they are, but for
// characters that no file name may hold; a caption is never taken for a drive.
wide_string caption_file_path(wide_view folder, wide_view caption, wide_view extension);

// If the options ask for layer files, write the layer as it is now to "caption._lr" ("._lrd" for a 3D layer)
// in the output folder, over a file that stands there, and enter it in the placement whatever the host's
// writer says. Nothing for a null layer.
void save_layer_file_2d(vs_lr* layer, project_context& context);
void save_layer_file_3d(vs_lr* layer, project_context& context);

} // namespace vs::project_resave
