#include "operations/run/run_report.h"

#include "framework/border/encoding.h"
#include "framework/resources/strings.h"
#include "platform/path_text.h"

namespace vs::project_resave {

void run_report::reset() { *this = run_report(); }

void run_report::add_lost_source(const wide_string& what) { add_to_current(load_string(519) + what + u"\n"); }

void run_report::add_copy_error(const wide_string& path) {
    add_to_current(load_string(520) + path_file_name(path) + u"\n");
}

void run_report::add_unprocessed_type(const char* layer_type) {
    unprocessed_types.insert(host_text(layer_type));
}

void run_report::add_to_current(const wide_string& text) {
    std::vector<problem>& all = current_unit.empty() ? untitled : problems;
    if (all.empty() || all.back().title != current_unit) all.push_back({current_unit, {}});
    all.back().text += text;
}

} // namespace vs::project_resave
