#include "layers/layer_copying.h"

#include "core/copying.h"
#include "operations/project_context.h"

namespace vs::project_resave {

bool copy_file_and_projection(const wide_string& source, const wide_string& target,
                              project_context& context) {
    copy_one(source, target, context);
    copy_projection_file(source, target, context);
    return true;
}

bool copy_data_set(const wide_string& source, const wide_string& target, project_context& context) {
    copy_one(source, target, context);
    copy_data_source_files(source, target, false, context);
    copy_projection_file(source, target, context);
    return true;
}

bool copy_data_folder(const wide_string& source, const wide_string& target, project_context& context) {
    if (copy_folder(source, target, false, false))
        context.placement.register_placed(source, target);
    else
        record_copy_failure(source, context.log, context.report);
    return true;
}

} // namespace vs::project_resave
