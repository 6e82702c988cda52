#include "logs/txt_file.h"

#include "framework/border/encoding.h"
#include "framework/resources/strings.h"
#include "logs/file_stream.h"

namespace vs::project_resave {

bool txt_file::open(const wide_string& name) {
    file_name = name;
    if (!file_name.empty()) return false;
    file_stream().open(file_name, u"w");
    return true;
}

void txt_file::close() { file_name.clear(); }

bool txt_file::write(uint32_t row, bool end_line) {
    return write(load_string(static_cast<int32_t>(row)), end_line);
}

bool txt_file::write(const char* text, bool end_line) { return write(host_text(text), end_line); }

bool txt_file::write(const wide_string& text, bool end_line) {
    append_text(file_name, text, end_line);
    return true;
}

} // namespace vs::project_resave
