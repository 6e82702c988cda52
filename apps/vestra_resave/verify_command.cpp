#include "apps/vestra_resave/commands.h"

#include <algorithm>
#include <iostream>
#include <nlohmann/json.hpp>

#include "apps/vestra_resave/manifest.h"
#include "apps/vestra_resave/resave_report.h"
#include "apps/vestra_resave/session.h"
#include "apps/vestra_resave/verification.h"
#include "apps/vestra_resave/words.h"
#include "operations/project_context.h"
#include "platform/path_text.h"
#include "platform/text.h"

namespace vestra::command {

using namespace vs::project_resave;

namespace {

// What the load found and the verification did not find, too.
std::vector<problem> further(const std::vector<problem>& of_load, const verification& found) {
    std::vector<problem> all;
    for (const problem& each : of_load)
        if (each.kind != own_kind::unreadable ||
            std::ranges::none_of(found.astray,
                                 [&](const problem& other) { return path_same(other.path, each.path); }))
            all.push_back(each);
    return all;
}

const char* outcome_of(const verification& found, const std::vector<problem>& all) {
    if (found.stopped) return "stopped";
    return all.empty() ? "stands alone" : "does not stand alone";
}

} // namespace

int verify_project(const verify_request& request, const common_options& options) {
    session host(options, {});
    if (const auto early = host.load(request.project)) return end_with(*early, options);
    const std::function<bool()> is_stopped = [&] { return host.interrupted(); };
    verification found;
    if (request.manifest) {
        std::optional<shown_transfer> shown;
        const auto begins = [&](uint64_t bytes) { shown.emplace(host.screen(), bytes, summing_caption()); };
        const wide_string& project = host.context().placement.source_project_path;
        if (const auto early = compare_with_manifest(project, begins, is_stopped, found))
            return end_with(*early, options);
    }
    verify(host.context(), files_beside(host.context(), found), {request.elsewhere}, is_stopped, found);
    std::vector<problem> all = further(host.reading_problems(), found);
    if (found.stopped) all.push_back({own_kind::interrupted, {}, {}, {}});
    print(all);
    for (const auto* each : {&found.astray, &found.differing})
        all.insert(all.end(), each->begin(), each->end());
    const char* const outcome = outcome_of(found, all);
    if (options.json) {
        nlohmann::ordered_json shown{{"project", platform::to_utf8(found.project)},
                                     {"native_project", native_form(found.project)},
                                     {"outcome", outcome},
                                     {"references", found.references},
                                     {"problems", json_of(all)},
                                     {"astray", json_of(found.astray)}};
        if (request.manifest) shown["differing"] = json_of(found.differing);
        std::cout << shown.dump(2) << '\n';
    } else {
        for (const std::string& line : lines_of(found)) std::cout << line << '\n';
        std::string line = say("%1: %2, %3 references, %4 astray",
                               {say_known(outcome), printed(found.project), std::to_string(found.references),
                                std::to_string(found.astray.size())});
        if (request.manifest)
            line = say("%1, %2 not as in the manifest", {line, std::to_string(found.differing.size())});
        std::cout << line << '\n';
    }
    if (found.stopped) return stopped;
    return all.empty() ? done : problems;
}

} // namespace vestra::command
