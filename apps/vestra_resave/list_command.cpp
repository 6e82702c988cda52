#include "apps/vestra_resave/commands.h"

#include <iostream>
#include <nlohmann/json.hpp>

#include "apps/vestra_resave/elements.h"
#include "apps/vestra_resave/resave_report.h"
#include "apps/vestra_resave/session.h"
#include "operations/project_context.h"
#include "platform/text.h"

namespace vestra::command {

using namespace vs::project_resave;
using nlohmann::ordered_json;
using platform::to_utf8;

namespace {

ordered_json to_json(const element& shown, const selection_register& selection) {
    ordered_json children = ordered_json::array();
    for (const element& child : shown.children) children.push_back(to_json(child, selection));
    return {{"kind", shown.kind},
            {"type", to_utf8(shown.type)},
            {"caption", to_utf8(shown.caption)},
            {"uuid", to_utf8(shown.uuid)},
            {"file", to_utf8(shown.file)},
            {"exists", shown.exists ? ordered_json(*shown.exists) : ordered_json(nullptr)},
            {"bytes", shown.bytes},
            {"selected", selection.is_selected(shown.uuid)},
            {"children", std::move(children)}};
}

void print(const element& shown, size_t depth) {
    std::string line = std::string(2 * depth, ' ') + one_line(shown.caption);
    if (shown.kind == "group")
        line += "/";
    else if (!shown.type.empty())
        line += "  [" + one_line(shown.type) + "]";
    if (!shown.uuid.empty()) line += "  " + one_line(shown.uuid);
    if (!shown.file.empty()) line += "  " + one_line(shown.file);
    if (shown.exists) line += *shown.exists ? "  " + size_text(shown.bytes) : "  MISSING";
    std::cout << line << '\n';
    for (const element& child : shown.children) print(child, depth + 1);
}

} // namespace

int list_project(const std::string& project, const common_options& options) {
    session host(options, {});
    if (!host.load(project)) return wrong_use;
    const wide_string& path = host.context().placement.source_project_path;
    const std::vector<element> elements = elements_of(host.context());
    if (options.json) {
        ordered_json all = ordered_json::array();
        for (const element& shown : elements) all.push_back(to_json(shown, host.context().selection));
        std::cout << ordered_json{{"project", to_utf8(path)}, {"elements", std::move(all)}}.dump(2) << '\n';
        return done;
    }
    std::cout << shell::printable(path) << "  " << size_text(bytes_of(path)) << '\n';
    for (const element& shown : elements) print(shown, 1);
    return done;
}

} // namespace vestra::command
