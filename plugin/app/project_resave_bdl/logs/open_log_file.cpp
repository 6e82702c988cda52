#include "logs/open_log_file.h"

#include "framework/resources/strings.h"
#include "platform/path_text.h"

namespace vs::project_resave {

void open_log_file::set_open_log_path(const wide_string& project_path, bool enable) {
    // The suffix first: once the extension is off, a dot in the project's name would begin one.
    path = path_replace_extension(path_add_to_stem(project_path, u"_last_resave_open_log"), u".txt");
    enabled = enable;
}

void open_log_file::write_load_begin() { write_only_line(load_string(text::load_begin)); }

void open_log_file::write_load_end() { write_only_line(load_string(text::load_end)); }

void open_log_file::enter(const wide_string& text) {
    if (!enabled) return;
    write_only_line(text);
    indent();
}

void open_log_file::leave(const wide_string& text) {
    if (!enabled) return;
    unindent();
    write_only_line(text);
}

void open_log_file::write_only_line(const wide_string& text) {
    if (!enabled) return;
    open(path, true);
    write_at(text, depth);
}

} // namespace vs::project_resave
