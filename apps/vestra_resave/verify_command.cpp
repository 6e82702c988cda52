// The command `verify`: loads a project, checks it and prints the findings.
#include "apps/vestra_resave/commands.h"

#include <algorithm>
#include <iostream>
#include <nlohmann/json.hpp>
#include <unordered_map>

#include "apps/vestra_resave/archive/archive_view.h"
#include "apps/vestra_resave/earlier_files.h"
#include "apps/vestra_resave/file_content.h"
#include "apps/vestra_resave/manifest.h"
#include "apps/vestra_resave/remembered_disk.h"
#include "apps/vestra_resave/report/page_facts.h"
#include "apps/vestra_resave/report/page_file.h"
#include "apps/vestra_resave/resave_report.h"
#include "apps/vestra_resave/session.h"
#include "apps/vestra_resave/verification.h"
#include "apps/vestra_resave/words.h"
#include "operations/project_context.h"
#include "operations/run/path_files.h"
#include "platform/path_text.h"
#include "platform/text.h"
#include "platform/volumes.h"

namespace vestra::command {

using namespace vs::project_resave;

namespace {

// Returns the problems of the load that the verification did not also find.
std::vector<problem> further(const std::vector<problem>& of_load, const verification& found) {
    std::vector<problem> all;
    for (const problem& each : of_load)
        if (each.kind != own_kind::unreadable ||
            std::ranges::none_of(found.astray,
                                 [&](const problem& other) { return path_same(other.path, each.path); }))
            all.push_back(each);
    return all;
}

// Adds the files of the manifest, and adds the sources to those already listed.
void add_manifest(const wide_string& project, std::vector<ended_verify::file>& files) {
    std::vector<earlier_file> entries;
    if (read_manifest(project, entries)) return; // reported when the files were compared
    std::unordered_map<wide_string, size_t> rows;
    for (size_t index = 0; index < files.size(); ++index) rows.emplace(path_key(files[index].path), index);
    for (earlier_file& each : entries) {
        const auto [row, is_new] = rows.emplace(path_key(each.path), files.size());
        if (is_new && path_exists(each.path)) files.push_back({each.path, {}, {}});
        if (row->second < files.size()) files[row->second].source = std::move(each.source);
    }
}

} // namespace

ended_verify verify_in(session& host, const verify_request& request, const archive_view* archive) {
    // Nothing is written here, and many references lead to the same files and folders.
    remembered_disk asked_once;
    const platform::system_override in_force(asked_once);
    ended_verify ended;
    if ((ended.early = host.load(request.project))) return ended;
    if (!request.report.empty())
        if ((ended.early = refuse_page(request.report, host.context(), {}))) return ended;
    const std::function<bool()> is_stopped = [&] { return host.interrupted(); };
    verification& found = ended.found;
    if (request.manifest) {
        std::optional<shown_transfer> shown;
        const auto begins = [&](uint64_t bytes) {
            // The digests of an archive were computed while it was read, with its own progress.
            if (!archive) shown.emplace(host.screen(), bytes, summing_caption());
        };
        const auto read = [&](const wide_string& path, file_digest& digest) {
            return archive ? archive->digest_of(path, digest) : read_digest(path, is_stopped, digest);
        };
        const wide_string& project = host.context().placement.source_project_path;
        if ((ended.early = compare_with_manifest(project, begins, read, is_stopped, found))) return ended;
    }
    verify_settings settings{request.elsewhere};
    if (!request.report.empty()) {
        settings.on_data_set = [&](const element_name& element, const wide_string& path,
                                   const std::vector<wide_string>& files) {
            ended.files.push_back({path, {}, element});
            for (const wide_string& each : files) ended.files.push_back({each, {}, element});
        };
    }
    verify(host.context(), files_beside(host.context(), found), settings, is_stopped, found);
    if (!request.report.empty() && request.manifest) add_manifest(found.project, ended.files);
    // After the check, because it reads further files, and the host keeps why they could not be read.
    ended.problems = further(host.reading_problems(), found);
    if (archive)
        ended.problems.insert(ended.problems.end(), archive->problems().begin(), archive->problems().end());
    // A problem like others, because an incomplete check has not found everything.
    if (found.stopped) ended.problems.push_back({own_kind::interrupted, {}, {}, {}});
    const bool is_whole = ended.problems.empty() && found.astray.empty() && found.differing.empty();
    ended.outcome = found.stopped ? "stopped" : is_whole ? "stands alone" : "does not stand alone";
    return ended;
}

std::string outcome_text(const ended_verify& ended) {
    if (ended.found.stopped) return say("stopped");
    return std::string_view(ended.outcome) == "stands alone" ? say("self-contained")
                                                             : say("not self-contained");
}

std::string closing_line(const ended_verify& ended) {
    const verification& found = ended.found;
    return say("%1: %2, %3 references, %4 broken",
               {outcome_text(ended), printed(found.project), std::to_string(found.references),
                std::to_string(found.astray.size())});
}

int verify_project(const verify_request& asked, const common_options& options) {
    session host(options, {});
    verify_request request = asked;
    read_archive_scope archive;
    if (const auto early = archive.begin(host, request.project, true)) return end_with(*early, options);
    // An archive always has a manifest if this program wrote it, and reading all bytes has cost the time
    // already.
    if (archive.view()) request.manifest |= path_exists(manifest_path(platform::drive_path(request.project)));
    ended_verify ended = verify_in(host, request, archive.view());
    if (ended.early) return end_with(*ended.early, options);
    bool has_page = true;
    if (!request.report.empty())
        for (problem& each : write_page(request.report, facts_of(ended, request))) {
            // Reported like the findings, but it says nothing about the project, so the outcome stays.
            ended.problems.push_back(std::move(each));
            has_page = false;
        }
    const verification& found = ended.found;
    print(ended.problems);
    if (options.json) {
        std::vector<problem> all = ended.problems;
        for (const auto* each : {&found.astray, &found.differing})
            all.insert(all.end(), each->begin(), each->end());
        nlohmann::ordered_json shown{{"project", platform::to_utf8(found.project)},
                                     {"native_project", native_form(found.project)},
                                     {"outcome", ended.outcome},
                                     {"references", found.references},
                                     {"problems", json_of(all)},
                                     {"astray", json_of(found.astray)}};
        // Without a comparison an empty list would look like a result.
        if (request.manifest) shown["differing"] = json_of(found.differing);
        std::cout << shown.dump(2) << '\n';
    } else {
        for (const std::string& line : lines_of(found)) std::cout << line << '\n';
        std::string line = closing_line(ended);
        if (request.manifest)
            line = say("%1, %2 different from the manifest", {line, std::to_string(found.differing.size())});
        std::cout << line << '\n';
    }
    if (found.stopped) return stopped;
    return std::string_view(ended.outcome) == "stands alone" && has_page ? done : problems;
}

} // namespace vestra::command
