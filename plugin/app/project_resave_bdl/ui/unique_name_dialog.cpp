#include "ui/unique_name_dialog.h"

#include "framework/resources/strings.h"
#include "operations/run/path_files.h"

namespace vs::dialog {

using project_resave::load_string;
using project_resave::path_exists;
using project_resave::wide_string;
namespace text = project_resave::text;

unique_name_dialog::unique_name_dialog(const wide_string& source_path, const wide_string& proposed_path)
    : groupbox(4, 1), explanation_(load_string(text::file_name_exists)), source_(source_path),
      request_(load_string(text::set_file_path)), path_(project_resave::file_input_mode::new_file) {
    path_.set_text(proposed_path);
    path_.set_validator([this](const wide_string& entered) { return take(entered); });
    place(0, 0, explanation_);
    place(1, 0, source_);
    place(2, 0, request_);
    place(3, 0, path_);
    set_spare_row(3);
}

wide_string unique_name_dialog::free_path() const {
    return path_exists(path_.text()) ? wide_string() : path_.text();
}

bool unique_name_dialog::take(const wide_string& entered) {
    if (!path_exists(entered)) return true;
    project_resave::show_error(text::file_name_exists);
    path_.set_text({});
    return false;
}

} // namespace vs::dialog
