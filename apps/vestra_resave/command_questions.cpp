#include "apps/vestra_resave/command_questions.h"

#include "framework/resources/strings.h"
#include "ui/dialogs.h"

namespace vestra::command {

using namespace vs::project_resave;

bool command_questions::add_referenced() {
    return decided_.add_referenced ? *decided_.add_referenced
                                   : person_.yes_no(load_string(text::add_referenced_elements));
}

stop_answer command_questions::on_stop() {
    if (decided_.on_stop) return *decided_.on_stop;
    switch (person_.yes_no_cancel(load_string(text::erase_created_files))) {
    case shell::answer::cancel:
        return stop_answer::go_on;
    case shell::answer::yes:
        return stop_answer::erase_created;
    default:
        return stop_answer::keep_created;
    }
}

unique_name_answer command_questions::new_name(const wide_string& source, const wide_string& proposed) {
    return show_unique_name_dialog(source, proposed);
}

} // namespace vestra::command
