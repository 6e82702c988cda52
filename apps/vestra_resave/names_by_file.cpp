// Looks files up by path, then by stem, then by the folders above them.
#include "apps/vestra_resave/names_by_file.h"

#include "apps/vestra_resave/shortfalls.h"
#include "platform/path_text.h"

namespace vestra::command {

using namespace vs::project_resave;

namespace {

wide_string stem_key(const wide_string& file) { return path_key(path_replace_extension(file, u"")); }

} // namespace

names_by_file::names_by_file(const source_elements& source) {
    for (const source_elements::row& each : source.rows()) add(each.file, each.name);
}

void names_by_file::add(const wide_string& file, const element_name& name) {
    if (file.empty()) return;
    names_.try_emplace(path_key(file), name);
    stems_.try_emplace(stem_key(file), name);
}

const element_name* names_by_file::find(const wide_string& file) const {
    if (const auto name = names_.find(path_key(file)); name != names_.end()) return &name->second;
    if (const auto name = stems_.find(stem_key(file)); name != stems_.end()) return &name->second;
    wide_string key = path_key(file);
    // The element of the innermost folder, if folders of elements are nested.
    for (size_t end; (end = key.rfind(u'\\')) != wide_string::npos;) {
        key.resize(end);
        if (const auto name = names_.find(key); name != names_.end()) return &name->second;
    }
    return nullptr;
}

} // namespace vestra::command
