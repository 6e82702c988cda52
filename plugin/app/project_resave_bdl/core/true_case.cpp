#include "core/true_case.h"

#include <algorithm>

#include "operations/run/path_files.h"
#include "platform/path_text.h"
#include "platform/system.h"

namespace vs::project_resave {

bool true_case_path(const wide_string& path, wide_string& result) {
    result.clear();
    wide_string copy = path;
    std::replace(copy.begin(), copy.end(), u'/', u'\\');
    if (copy.empty() || path_is_relative(copy) || !path_exists(copy)) return false;
    const wide_string drive = path_root(copy);
    if (drive.empty()) return false;

    wide_string spelled = drive;
    for (const wide_string& component : path_split(copy.substr(drive.size()), u"\\", true)) {
        wide_string spelling = component;
        platform::current_system().true_name(spelled + u"\\", component, spelling);
        spelled += u"\\" + spelling;
    }
    result = spelled;
    return true;
}

} // namespace vs::project_resave
