#include "apps/vestra_resave/commands.h"

#include <iostream>
#include <nlohmann/json.hpp>

#include "apps/vestra_resave/resave_report.h"
#include "apps/vestra_resave/session.h"
#include "apps/vestra_resave/verification.h"
#include "operations/project_context.h"
#include "platform/text.h"

namespace vestra::command {

using namespace vs::project_resave;

namespace {

const char* outcome_of(const verification& found) {
    if (found.stopped) return "stopped";
    return found.astray.empty() ? "stands alone" : "does not stand alone";
}

void print_json(const verification& found) {
    const nlohmann::ordered_json all{{"project", platform::to_utf8(found.project)},
                                     {"outcome", outcome_of(found)},
                                     {"references", found.references},
                                     {"astray", json_of(found.astray)}};
    std::cout << all.dump(2) << '\n';
}

void print_text(const verification& found) {
    for (const std::string& line : lines_of(found)) std::cout << line << '\n';
    std::cout << outcome_of(found) << ": " << one_line(found.project) << ", " << found.references
              << " references, " << found.astray.size() << " astray\n";
}

} // namespace

int verify_project(const std::string& project, const common_options& options) {
    session host(options, {});
    if (!host.load(project)) return wrong_use;
    verification found;
    verify(
        host.context(), files_beside(host.context(), found), [&] { return host.interrupted(); }, found);
    options.json ? print_json(found) : print_text(found);
    if (found.stopped) return stopped;
    return found.astray.empty() ? done : problems;
}

} // namespace vestra::command
