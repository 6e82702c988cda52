// The commands `structure` and `check-case`, which write text files.
#include <algorithm>
#include <functional>
#include <iostream>
#include <nlohmann/json.hpp>

#include "apps/vestra_resave/commands.h"
#include "apps/vestra_resave/file_content.h"
#include "apps/vestra_resave/output_file.h"
#include "apps/vestra_resave/problems.h"
#include "apps/vestra_resave/resave_report.h"
#include "apps/vestra_resave/trial_disk.h"
#include "apps/vestra_resave/words.h"
#include "operations/project_context.h"
#include "operations/run/path_files.h"
#include "platform/path_text.h"
#include "platform/text.h"
#include "platform/volumes.h"

namespace vestra::command {

using namespace vs::project_resave;
using nlohmann::ordered_json;

namespace {

constexpr const char* standard_output = "-";

// The result of writing a text.
struct written_text {
    int exit = done;
    const char* outcome = "written";
    wide_string project;
    wide_string path; // empty for standard output
    std::string text; // the text, if requested
    std::vector<problem> problems;

    bool is_whole() const { return exit == done || exit == command::problems; }
    void end(int code, const char* how) { exit = code, outcome = how; }
};

// The result of a run, or why there was none.
struct ended_text {
    std::optional<refusal> early;
    written_text written;
};

using text_writer = std::function<run_result(project_context&, const wide_string&)>;

void judge(const run_result& result, const wide_string& path, bool wants_text, written_text& made) {
    if (result.end == run_end::stopped) {
        made.end(stopped, "stopped");
        made.problems.insert(made.problems.begin(), {own_kind::interrupted, {}, {}, {}});
        // A stopped run erases its text. A text that still exists could not be erased.
        if (path_exists(path)) made.problems.push_back({name_of(fact_kind::not_erased), {}, {}, path});
        return;
    }
    if (!result.written) return made.end(not_saved, "not written");
    if (!made.problems.empty()) made.end(problems, "written with problems");
    if (!wants_text) return;
    if (const platform::outcome read = read_text(path, made.text); !read) {
        made.problems.push_back({own_kind::unreadable, {}, path, {}, read.text()});
        made.end(not_saved, "not written");
    }
}

// Calls `write` with the path of the text file. A text for standard output goes to a disk in memory, so that
// no temporary file is needed and only a complete text is printed.
ended_text write_text(const std::string& project, const std::string& text_file, const common_options& options,
                      bool wants_text, const text_writer& write) {
    session host(options, {.on_stop = stop_answer::erase_created}); // an incomplete text is never kept
    if (auto early = host.load(project)) return {std::move(early), {}};
    project_context& context = host.context();
    written_text made;
    made.project = context.placement.source_project_path;
    trial_disk memory;
    std::optional<platform::system_override> in_force;
    const bool is_printed = text_file == standard_output;
    wide_string path;
    if (is_printed) {
        in_force.emplace(memory);
        // In the folder of the project, which surely exists. The disk in memory sees the real files, so the
        // name must be one that no disk has.
        path = path_head(made.project) + u"\uFFFE.txt"; // not used by any file
    } else {
        if (auto early = refuse_output(text_file)) return {std::move(early), {}};
        path = made.path = platform::drive_path(text_file);
    }
    // Created before the run, so that a path that cannot be written is an error with its reason and not an
    // empty result.
    if (auto early = create_text_file(path, context)) return {std::move(early), {}};
    const run_result result = write(context, path);
    made.problems = host.reading_problems();
    judge(result, path, wants_text || is_printed, made);
    return {std::nullopt, std::move(made)};
}

// Prints the result. `text` is printed in place of a file.
int finish(const written_text& made, const common_options& options, const std::string& text,
           const ordered_json& further) {
    print(made.problems);
    const bool is_printed = made.path.empty();
    if (options.json) {
        ordered_json all{{"outcome", made.outcome},
                         {"project", platform::to_utf8(made.project)},
                         {"native_project", native_form(made.project)},
                         {"target", platform::to_utf8(made.path)},
                         {"native_target", native_form(made.path)}};
        // The keys of the command come before the problems, which can be long.
        all.update(further);
        all["problems"] = json_of(made.problems);
        std::cout << all.dump(2) << '\n';
    } else if (is_printed && made.is_whole()) {
        std::cout << text;
    } else if (!is_printed && !options.quiet && made.exit != stopped) {
        std::cout << say_known(made.outcome) << ": " << printed(as_on_disk(made.path)) << '\n';
    }
    return made.exit;
}

// A path as stored in the project and as spelled on the disk.
struct case_difference {
    wide_string stored, spelled;
};

// The report has three lines for each difference; the third one is empty.
std::vector<case_difference> differences_in(const std::string& report) {
    std::vector<case_difference> all;
    for (size_t at = 0; at < report.size();) {
        const size_t middle = report.find("\r\n", at), end = report.find("\r\n\r\n", middle);
        if (end == std::string::npos) break;
        all.push_back({platform::from_utf8(report.substr(at, middle - at)),
                       platform::from_utf8(report.substr(middle + 2, end - middle - 2))});
        at = end + 4;
    }
    return all;
}

// Returns the text with "\n" line ends; standard output converts them to those of the operating system.
std::string with_plain_ends(const std::string& text) {
    std::string plain;
    for (size_t at = 0; at < text.size(); ++at)
        if (text.compare(at, 2, "\r\n") != 0) plain += text[at];
    return plain;
}

} // namespace

int write_structure(const structure_request& request, const common_options& options) {
    const ended_text ended = write_text(request.project, request.text_file, options, false,
                                        [&](project_context& context, const wide_string& path) {
                                            structure_settings settings = request.settings;
                                            settings.output_path = path.c_str();
                                            return context.save_structure(settings);
                                        });
    if (ended.early) return end_with(*ended.early, options);
    const written_text& made = ended.written;
    const std::string text = with_plain_ends(made.text);
    ordered_json further = ordered_json::object();
    if (made.path.empty()) further["text"] = made.is_whole() ? ordered_json(text) : ordered_json();
    return finish(made, options, text, further);
}

int check_case(const std::string& project, const std::string& report, const common_options& options) {
    ended_text ended =
        write_text(project, report, options, true, [](project_context& context, const wide_string& path) {
            return context.check_path_case(path);
        });
    if (ended.early) return end_with(*ended.early, options);
    ordered_json all = ordered_json::array();
    std::string lines;
    for (const auto& [stored, spelled] : differences_in(ended.written.text)) {
        // In the form of the operating system both would be the same path, so the stored one is printed as it
        // is.
        lines += one_line(stored) + '\n' + printed(spelled) + "\n\n";
        all.push_back({{"stored", platform::to_utf8(stored)},
                       {"path", platform::to_utf8(spelled)},
                       {"native_path", native_form(spelled)}});
    }
    if (ended.written.exit == done && !all.empty()) ended.written.end(problems, "differences found");
    return finish(ended.written, options, lines, {{"differences", std::move(all)}});
}

} // namespace vestra::command
