// The content of a page about a resave or a verification, collected from the command's results. Texts are not
// escaped yet. Only the status of files is requested; none is read.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "apps/vestra_resave/commands.h"
#include "apps/vestra_resave/resave_plan.h"
#include "apps/vestra_resave/words.h"

namespace vestra::command {

// A file and what became of it.
struct page_file {
    wide_string source;            // empty if it was not copied from another file
    wide_string target;            // empty if it is not in the new project
    std::optional<uint64_t> bytes; // no value if unknown
    sentence state;
    vs::project_resave::element_name element = {}; // all empty if it belongs to no element
    std::string note = {};                         // why it is a problem; empty if it is none
};

// One number of the summary with its label.
struct page_figure {
    std::string value, label;
    std::string group = {}; // of the problems that it counts; empty if it counts something else
};

// `good`: nothing is missing; `warning`: there are problems; `bad`: not saved, or stopped.
enum class page_tone { good, warning, bad };

// Everything that a page shows.
struct page_facts {
    sentence title; // what was done
    std::string outcome;
    page_tone tone = page_tone::good;
    wide_string project, new_project; // new_project is empty for a verification
    std::vector<page_figure> figures;
    std::vector<problem> problems;                            // includes notices
    std::vector<page_file> files;                             // each once
    std::vector<std::pair<std::string, std::string>> choices; // options with their values
};

// Collects the content of a page from the result of a resave or a verification. The request must have asked
// for a report, because otherwise the result of a real run has no list of files. The disk on which the run
// worked must be the current one.
page_facts facts_of(const ended_resave& ended, const resave_request& request);
page_facts facts_of(const ended_verify& ended, const verify_request& request);

// Returns the group that shows a problem: the key of its count in the summary, or of its kind.
std::string group_of(const problem& found);

} // namespace vestra::command
