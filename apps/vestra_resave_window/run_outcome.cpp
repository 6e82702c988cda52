// Converts the record of a run, a dry run or a verification to rows.
#include "apps/vestra_resave_window/run_outcome.h"

#include <algorithm>

#include "apps/vestra_resave/names_by_file.h"
#include "apps/vestra_resave/session.h"
#include "apps/vestra_resave/shortfalls.h"
#include "apps/vestra_resave/trial_disk.h"
#include "apps/vestra_resave/words.h"
#include "operations/project_context.h"
#include "operations/run/path_files.h"
#include "platform/path_text.h"
#include "platform/text.h"
#include "reference_host/qt/element_widgets.h"

namespace vestra::window {

using namespace vs::project_resave;
using namespace command;
using qt::said;
using qt::shown;

namespace {

QString text(const std::string& utf8) { return QString::fromStdString(utf8); }
// Returns the native path. It is shown without line breaks that a name may contain, and opened with them.
QString native(const wide_string& path) {
    const bool is_plain = std::ranges::none_of(path, [](char16_t each) { return each < u' '; });
    return path.empty() ? QString() : text(is_plain ? printed(path) : native_form(path));
}

QString name_shown(const element_name& name) {
    if (name.caption.empty()) return shown(name.list);
    return name.list.empty() ? shown(name.caption) : shown(name.caption) + " — " + shown(name.list);
}

QString name_shown(const names_by_file& names, const wide_string& file) {
    const element_name* const name = names.find(file);
    return name ? name_shown(*name) : QString();
}

outcome_row row_of(const problem& found, const names_by_file& names) {
    outcome_row row;
    row.element = name_shown(found.element);
    // Problems that the command finds after the run know only a path.
    if (row.element.isEmpty()) row.element = name_shown(names, found.path);
    row.source = native(found.path);
    row.target = native(found.new_path);
    problem named = found; // the path has its own column
    named.new_path = path_file_name(found.new_path);
    row.state = text(what_of(named));
    row.reason = text(say_known(platform::to_utf8(found.reason)));
    row.is_problem = !is_notice(found);
    return row;
}

void add_problems(const std::vector<problem>& all, const names_by_file& names, run_outcome& outcome) {
    for (const problem& each : all) outcome.rows.push_back(row_of(each, names));
}

outcome_row row_of(const wide_string& source, const wide_string& target, uint64_t bytes, const QString& state,
                   const names_by_file& names) {
    return {name_shown(names, source), native(source), native(target), bytes, state, {}, false};
}

QString state_of(const wide_string& source) {
    return source.empty() ? said("written", "записано") : said("copied", "скопировано");
}

QString planned_state_of(const wide_string& source) {
    return source.empty() ? said("to be written", "будет записано")
                          : said("to be copied", "будет скопировано");
}

run_outcome refused_outcome(const QString& title, const refusal& early) {
    run_outcome outcome;
    outcome.title = title;
    add_problems(early.problems, {}, outcome);
    outcome.summary =
        early.problems.empty() ? said("not done", "не выполнено") : text(line_of(early.problems.front()));
    return outcome;
}

// Restores the recorded run in a context that has loaded its source.
run_result enter(const tool_record& record, project_context& context) {
    for (const wide_string& uuid : record.left_out) context.selection.set_selected(uuid, false);
    // In the order of a run: setting the output clears what was placed.
    context.placement.reset();
    context.placement.set_source(record.source);
    context.placement.set_output(record.target);
    for (const tool_record::file& each : record.placed)
        context.placement.register_placed(each.source, each.target);
    for (const tool_record::file& each : record.made)
        each.source.empty() ? context.placement.made.add_written(each.target)
                            : context.placement.made.add_copy(each.source, each.target);
    context.report.stopped = record.end == recorded_end::stopped;
    context.report.saved = record.end == recorded_end::saved;
    return {context.report.stopped ? run_end::stopped : run_end::done, context.report.saved, {}, {}};
}

} // namespace

run_outcome outcome_of_run(const tool_record& record, shell::front_end& person) {
    const QString title = said("What happened", "Что получилось");
    // A separate session, so that the tool keeps its project and its state.
    session guest(person, {});
    if (const auto early = guest.load(record.source, true, false)) {
        run_outcome outcome = refused_outcome(title, *early);
        add_problems(record.problems, {}, outcome);
        return outcome;
    }
    const run_result result = enter(record, guest.context());
    const source_elements source(guest.context());
    const names_by_file names(source);
    resave_report report = report_of(guest.context(), result, record.problems);
    // Elements that the user left out are not reported as missing.
    std::erase_if(report.problems, [&](const problem& each) {
        return each.kind == name_of(fact_kind::type_not_resaved) && source.is_left_out(each.element.uuid);
    });
    const bool is_written = report.exit == done || report.exit == command::problems;
    if (is_written) add_shortfalls(guest, source, request_of(record), report);
    run_outcome outcome{title, text(closing_line(report, as_on_disk(record.target))), {}};
    add_problems(report.problems, names, outcome);
    for (const tool_record::file& each : record.made)
        if (path_exists(each.target)) // it may have been erased after a stop
            outcome.rows.push_back(
                row_of(each.source, each.target, bytes_of(each.target), state_of(each.source), names));
    return outcome;
}

run_outcome tried_out(const tool_record& settings, shell::front_end& person) {
    const QString title = said("What would happen", "Что получилось бы");
    // Asked while the registry of the window is the current one: a guest session has none of its bundles.
    if (const auto early = refuse_trial()) return refused_outcome(title, *early);
    trial_disk disk;
    const platform::system_override in_force(disk);
    session guest(person, {std::nullopt, stop_answer::erase_created});
    if (const auto early = guest.load(settings.source, true, false)) return refused_outcome(title, *early);
    // Collected now, because the run releases the project.
    const names_by_file names{source_elements(guest.context())};
    resave_request request = request_of(settings);
    request.settings.rename_on_conflict =
        true; // a name that a run would ask for is shown as the next free one
    const ended_resave ended = resave_in(guest, request, &disk);
    if (ended.early) return refused_outcome(title, *ended.early);
    run_outcome outcome{title, text(say("would be %1", {closing_line(ended.report, ended.target)})), {}};
    add_problems(ended.report.problems, names, outcome);
    for (const resave_plan::file& each : ended.plan->files)
        outcome.rows.push_back(row_of(each.source, each.target, each.bytes,
                                      each.renamed ? said("under another name", "под другим именем")
                                                   : planned_state_of(each.source),
                                      names));
    return outcome;
}

run_outcome looked_at(const wide_string& project, shell::front_end& person) {
    const QString title = said("Does the project stand alone?", "Самодостаточен ли проект?");
    session guest(person, {});
    verify_request request;
    request.project = platform::to_utf8(project);
    const ended_verify ended = verify_in(guest, request);
    if (ended.early) return refused_outcome(title, *ended.early);
    run_outcome outcome{title, text(closing_line(ended)), {}};
    add_problems(ended.problems, {}, outcome);
    add_problems(ended.found.astray, {}, outcome);
    return outcome;
}

} // namespace vestra::window
