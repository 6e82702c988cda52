// Composes the final message of a resave from the facts of its report. A long one is shown in a dialog, since
// a box would not fit on the screen.

#include "ui/host_questions.h"

#include <algorithm>

#include "framework/resources/strings.h"
#include "host/vsk_msgs.h"
#include "operations/run/run_report.h"
#include "ui/dialogs.h"

namespace vs::project_resave {

namespace {

// Answers of the host's box with three buttons.
enum box_answer : int32_t { answer_cancel = 2, answer_no = 7 };

constexpr ptrdiff_t most_lines_of_a_box = 25; // a longer text is shown in a dialog that scrolls

// Returns the text of the message, in which every line ends with a line feed; empty if there was no problem.
wide_string composed(const run_report& report) {
    wide_string text;
    const std::set<wide_string> types = report.unprocessed_types();
    const std::vector<run_report::problem> problems = report.problems();
    // The order is fixed: references, types that nothing resaves, then the problems of each list.
    if (report.depth_exceeded()) text += load_string(text::references_not_settled) + u"\n\n";
    if (!types.empty()) {
        text += load_string(text::unprocessed_layers) + u"\n";
        for (const wide_string& type : types) text += type + u"\n";
        if (!problems.empty()) text += u"\n";
    }
    for (size_t row = 0; row < problems.size(); ++row) {
        if (row != 0) text += u"\n";
        text += problems[row].title + u":\n" + problems[row].text;
    }
    return text;
}

} // namespace

bool host_questions::add_referenced() { return ask_yes_no(text::add_referenced_elements); }

stop_answer host_questions::on_stop() {
    // Kept as users know it: a box closed without an answer removes the created files.
    switch (vs_yesnocancel_wmessage(load_string(text::erase_created_files).c_str())) {
    case answer_cancel:
        return stop_answer::go_on;
    case answer_no:
        return stop_answer::keep_created;
    default: // yes, or the operating system closed the box
        return stop_answer::erase_created;
    }
}

unique_name_answer host_questions::new_name(const wide_string& source, const wide_string& proposed) {
    return show_unique_name_dialog(source, proposed);
}

bool host_questions::reopen_source() { return ask_yes_no(text::reopen_source_project); }

void host_questions::show_message(int32_t text) { project_resave::show_message(text); }

void host_questions::show_error(int32_t text, const wide_string& path) {
    if (path.empty()) return project_resave::show_error(text);
    vs_show_werror((load_string(text) + u"\n" + path).c_str());
}

void host_questions::show_report(const run_report& report) {
    // The first rule that applies decides: a stopped run does not report its problems.
    if (report.stopped) return show_message(text::interrupted_by_user);
    if (!report.saved) return show_error(text::project_not_saved);
    const wide_string text = composed(report);
    if (text.empty()) return show_message(text::project_saved);
    if (std::ranges::count(text, u'\n') > most_lines_of_a_box)
        show_extended_message_dialog(text);
    else
        vs_show_wwarning((load_string(text::resave_errors) + u"\n\n" + text).c_str());
}

} // namespace vs::project_resave
