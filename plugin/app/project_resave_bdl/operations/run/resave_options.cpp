#include "operations/run/resave_options.h"

#include "operations/run/run_progress.h"
#include "operations/run/run_questions.h"

namespace vs::project_resave {

void resave_options::reset() {
    // Everything else returns to its default, even the answer of the user.
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
    if (add_referenced == add_referenced_answer::not_asked) {
        const bool shown = progress->window != nullptr;
        // The box must not be hidden by the progress window.
        progress->set_hidden(true);
        const bool wanted = progress->questions->add_referenced();
        add_referenced = wanted ? add_referenced_answer::yes : add_referenced_answer::no;
        if (shown) progress->set_hidden(false);
    }
    return add_referenced == add_referenced_answer::yes;
}

} // namespace vs::project_resave
