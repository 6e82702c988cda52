// The structure of a loaded project as text: a line for each unit, indented by depth.
#include "operations/structure_run.h"

#include "framework/resources/strings.h"
#include "operations/project_context.h"
#include "platform/path_text.h"

namespace vs::project_resave {

namespace {

void take_over(const structure_settings& settings, resave_options& options) {
    options.write_layer_names = settings.write_layer_names;
    options.write_table_names = settings.write_table_names;
    options.write_table_columns = settings.write_table_columns;
    options.write_layout_layers = settings.write_layout_layers;
    options.write_legend_content = settings.write_legend_content;
    options.write_legend_columns = settings.write_legend_columns;
    options.write_file_paths = settings.write_file_paths;
    options.indent_unit.clear();
    for (uint32_t i = 0; i < settings.indent_repeat; ++i) options.indent_unit += settings.indent_text;
}

} // namespace

bool project_context::save_structure(const structure_settings& settings) {
    if (!project) {
        show_error(501);
        return false;
    }
    report.reset();
    report.unprocessed_types = types_of_tree;
    options.reset();
    take_over(settings, options);
    const bool completed = write_text(settings.output_path, [this] {
        log.write_indented(load_string(619) + path_file_name(placement.source_project_path));
        log.indent();
        if (!progress.is_stopped())
            for (const auto& root : tree) root->write_structure();
        log.unindent();
        log.write_indented(629);
    });
    if (completed) show_message(511);
    return true;
}

} // namespace vs::project_resave
