#include "operations/run/resave_options.h"

#include "framework/resources/strings.h"
#include "host/vsk_basic.h"
#include "operations/run/run_progress.h"

namespace vs::project_resave {

void resave_options::reset() {
    resave_options fresh(progress);
    fresh.separator_fallback = separator_fallback;
    *this = fresh;
}

void resave_options::assign(const resave_settings& settings) {
    structure_variant = settings.structure_variant;
    rename_on_conflict = settings.rename_on_conflict;
    delete_lost_sources = settings.delete_lost_sources;
    save_scene_files = settings.save_scene_files;
    save_layer_files = settings.save_layer_files;
    consider_project_file = settings.consider_project_file;
    lower_case = settings.lower_case;
}

bool resave_options::ask_add_referenced() {
    if (add_referenced == 2) {
        const bool shown = progress->window != nullptr;
        progress->set_hidden(true);
        add_referenced = vs_bool_to_3state(ask_yes_no(214));
        if (shown) progress->set_hidden(false);
    }
    return vs_3state_to_bool(add_referenced);
}

} // namespace vs::project_resave
