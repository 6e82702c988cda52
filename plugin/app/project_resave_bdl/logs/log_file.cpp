// Writers of the resave log and of the load log. Every line is flushed to its file at once, so that the log
// is complete up to the moment at which a run or the program ends.

#include "logs/log_file.h"

#include "framework/border/encoding.h"
#include "framework/resources/strings.h"
#include "logs/txt_file.h"
#include "platform/path_text.h"

namespace vs::project_resave {

// Kept as users know it: the result is true even if the file could not be created; failure() has the reason.
bool log_file::open(const wide_string& name, bool enable) {
    if (!enable) return false;
    file_name_ = name;
    file_stream created;
    failure_ = created.open(file_name_, u"w");
    if (failure_) failure_ = created.close();
    return true;
}

// Nothing to do: no file stays open between two lines, and more lines may follow.
void log_file::close() {}

bool log_file::write(int32_t row) { return write(load_string(row)); }

bool log_file::write(const char* text) { return write(host_text(text)); }

// Kept as users know it: the result is always false.
bool log_file::write(const wide_string& text) {
    if (file_name_.empty()) return false;
    const platform::outcome written = append_text(file_name_, text, true);
    if (!written && failure_) failure_ = written;
    return false;
}

void log_file::copy_failed(const wide_string& path) { write_block({load_string(text::copy_failed), path}); }

void log_file::new_name_failed(const wide_string& path) {
    write_block({load_string(text::new_name_failed), path});
}

void log_file::file_missing(const wide_string& path) { write_block({load_string(text::file_missing), path}); }

void log_file::layer_2d_not_saved(const char* name) { layer_2d_not_saved(host_text(name)); }

void log_file::layer_2d_not_saved(const wide_string& name) {
    write_block({load_string(text::layer_not_saved), name, load_string(text::of_scene_2d)});
}

void log_file::layer_3d_not_saved(const char* name) { layer_3d_not_saved(host_text(name)); }

void log_file::layer_3d_not_saved(const wide_string& name) {
    write_block({load_string(text::layer_not_saved), name, load_string(text::of_scene_3d)});
}

void log_file::file_renamed(const wide_string& old_path, const wide_string& new_path) {
    write_block({load_string(text::file_prefix), old_path, load_string(text::exists_and_renamed), new_path});
}

void log_file::layer_2d_removed() { write_block({load_string(text::layer_2d_removed)}); }

void log_file::layer_3d_removed() { write_block({load_string(text::layer_3d_removed)}); }

void log_file::dbf_table_removed() { write_block({load_string(text::dbf_table_removed)}); }

void log_file::tos_table_removed() { write_block({load_string(text::tos_table_removed)}); }

void log_file::scene_not_loaded(const wide_string& name) {
    write_block({load_string(text::scene_prefix), name, load_string(text::not_loaded)});
}

void log_file::service_begin(const wide_string& name) {
    write_block({load_string(text::service_begin), name});
}

void log_file::service_end(const wide_string& name) { write_block({load_string(text::service_end), name}); }

void log_file::service_file_removed(const wide_string& name) {
    write_block({load_string(text::service_file_removed), name});
}

void log_file::indent() { ++depth; }

uint32_t log_file::unindent() {
    if (depth > 0) --depth;
    return depth;
}

// Indented by whole units, which the user chooses: blanks, a tab or nothing.
bool log_file::write_at(const wide_string& text, uint32_t at_depth) {
    wide_string line;
    for (uint32_t i = 0; i < at_depth; ++i) line += *indent_unit_;
    return write(line + text);
}

void log_file::write_indented(int32_t row) { write_indented(load_string(row)); }

void log_file::write_indented(const wide_string& text) { write_at(text, depth); }

void log_file::clear_unprocessed_types() { unprocessed_types_.clear(); }

void log_file::add_unprocessed_type(const char* text) {
    unprocessed_types_.push_back(host_text(text) + load_string(text::end_of_block));
}

// Kept as users know it: a type is listed once for each layer, unlike in the final message.
void log_file::dump_unprocessed_types() {
    if (unprocessed_types_.empty()) return;
    write(text::unprocessed_types);
    for (const wide_string& type : unprocessed_types_) write(type);
}

void log_file::write_block(std::initializer_list<wide_string> lines) {
    for (const wide_string& line : lines) write(line);
    write(text::end_of_block);
}

void open_log_file::set_open_log_path(const wide_string& project_path, bool enable) {
    // The suffix comes first: without the extension, a dot in the project's name would count as the start of
    // one.
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
