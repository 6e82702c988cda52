#include "logs/log_file.h"

#include "framework/border/encoding.h"
#include "framework/resources/strings.h"
#include "logs/file_stream.h"

namespace vs::project_resave {

namespace {

enum log_text : uint32_t {
    block_end = 601,
    copy_failed_text = 602,
    new_name_failed_text = 603,
    file_missing_text = 604,
    layer_not_saved_text = 605,
    of_scene_2d_text = 606,
    of_scene_3d_text = 607,
    file_text = 608,
    renamed_text = 609,
    layer_2d_removed_text = 610,
    layer_3d_removed_text = 611,
    dbf_table_removed_text = 612,
    tos_table_removed_text = 613,
    scene_text = 614,
    not_loaded_text = 615,
    unprocessed_types_text = 632,
    service_begin_text = 634,
    service_end_text = 635,
    service_file_removed_text = 636,
};

wide_string text_of(uint32_t string_id) { return load_string(static_cast<int32_t>(string_id)); }

} // namespace

bool log_file::open(const wide_string& name, bool enable) {
    if (!enable) return false;
    file_name = name;
    file_stream created;
    failure_ = created.open(file_name, u"w");
    if (failure_) failure_ = created.close();
    return true;
}

// Nothing is open between two lines, and lines may still follow.
void log_file::close() {}

bool log_file::write(uint32_t string_id) { return write(text_of(string_id)); }

bool log_file::write(const char* text) { return write(host_text(text)); }

bool log_file::write(const wide_string& text) {
    if (file_name.empty()) return false;
    const platform::outcome written = append_text(file_name, text, true);
    if (!written && failure_) failure_ = written;
    return false;
}

void log_file::copy_failed(const wide_string& path) { write_block({text_of(copy_failed_text), path}); }

void log_file::new_name_failed(const wide_string& path) {
    write_block({text_of(new_name_failed_text), path});
}

void log_file::file_missing(const wide_string& path) { write_block({text_of(file_missing_text), path}); }

void log_file::layer_2d_not_saved(const char* name) { layer_2d_not_saved(host_text(name)); }

void log_file::layer_2d_not_saved(const wide_string& name) {
    write_block({text_of(layer_not_saved_text), name, text_of(of_scene_2d_text)});
}

void log_file::layer_3d_not_saved(const char* name) { layer_3d_not_saved(host_text(name)); }

void log_file::layer_3d_not_saved(const wide_string& name) {
    write_block({text_of(layer_not_saved_text), name, text_of(of_scene_3d_text)});
}

void log_file::file_renamed(const wide_string& old_path, const wide_string& new_path) {
    write_block({text_of(file_text), old_path, text_of(renamed_text), new_path});
}

void log_file::layer_2d_removed() { write_block({text_of(layer_2d_removed_text)}); }

void log_file::layer_3d_removed() { write_block({text_of(layer_3d_removed_text)}); }

void log_file::dbf_table_removed() { write_block({text_of(dbf_table_removed_text)}); }

void log_file::tos_table_removed() { write_block({text_of(tos_table_removed_text)}); }

void log_file::scene_not_loaded(const wide_string& name) {
    write_block({text_of(scene_text), name, text_of(not_loaded_text)});
}

void log_file::service_begin(const wide_string& name) { write_block({text_of(service_begin_text), name}); }

void log_file::service_end(const wide_string& name) { write_block({text_of(service_end_text), name}); }

void log_file::service_file_removed(const wide_string& name) {
    write_block({text_of(service_file_removed_text), name});
}

void log_file::indent() { ++depth; }

uint32_t log_file::unindent() {
    if (depth > 0) --depth;
    return depth;
}

bool log_file::write_at(const wide_string& text, uint32_t at_depth) {
    wide_string line;
    for (uint32_t i = 0; i < at_depth; ++i) line += *indent_unit_;
    return write(line + text);
}

void log_file::write_indented(uint32_t string_id) { write_indented(text_of(string_id)); }

void log_file::write_indented(const wide_string& text) { write_at(text, depth); }

void log_file::clear_unprocessed_types() { unprocessed_types.clear(); }

void log_file::add_unprocessed_type(const char* text) {
    unprocessed_types.push_back(host_text(text) + text_of(block_end));
}

void log_file::dump_unprocessed_types() {
    if (unprocessed_types.empty()) return;
    write(unprocessed_types_text);
    for (const wide_string& type : unprocessed_types) write(type);
}

void log_file::write_block(std::initializer_list<wide_string> lines) {
    for (const wide_string& line : lines) write(line);
    write(block_end);
}

} // namespace vs::project_resave
