// How the outcome of a resave is told to the user.
#include <algorithm>

#include "framework/resources/strings.h"
#include "host/vsk_msgs.h"
#include "operations/run/run_report.h"
#include "ui/dialogs.h"

namespace vs::project_resave {

namespace {

constexpr size_t most_lines_of_a_box = 25; // a longer text goes into a dialog that scrolls

// A line feed at the very end begins no further line.
size_t line_count(const wide_string& text) {
    const auto feeds = static_cast<size_t>(std::count(text.begin(), text.end(), u'\n'));
    return feeds + (!text.empty() && text.back() != u'\n' ? 1 : 0);
}

wide_string composed(const run_report& report) {
    wide_string text;
    if (report.depth_exceeded) text += load_string(522) + u"\n\n";
    if (!report.unprocessed_types.empty()) {
        text += load_string(518) + u"\n";
        for (const wide_string& type : report.unprocessed_types) text += type + u"\n";
        if (!report.problems.empty()) text += u"\n";
    }
    for (size_t row = 0; row < report.problems.size(); ++row) {
        if (row != 0) text += u"\n";
        text += report.problems[row].title + u":\n" + report.problems[row].text;
    }
    return text;
}

} // namespace

void run_report::show_final_message() const {
    if (stopped) return show_message(513);
    if (!saved) return show_error(509);
    if (problems.empty() && unprocessed_types.empty() && !depth_exceeded) return show_message(502);
    const wide_string text = composed(*this);
    if (line_count(text) > most_lines_of_a_box)
        show_extended_message_dialog(text);
    else
        vs_show_wwarning((load_string(517) + u"\n\n" + text).c_str());
}

} // namespace vs::project_resave
