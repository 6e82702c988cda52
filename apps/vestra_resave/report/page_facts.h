// What the page about a resave or a verification shows, taken from what the command found out.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "apps/vestra_resave/commands.h"
#include "apps/vestra_resave/resave_plan.h"
#include "apps/vestra_resave/words.h"

namespace vestra::command {

// A file with what became of it.
struct page_file {
    wide_string source;            // empty for one that was not copied from anything
    wide_string target;            // empty for one that is not in the new project
    std::optional<uint64_t> bytes; // nothing where it is unknown
    sentence state;
    vs::project_resave::element_name element = {}; // all empty where it belongs to none
    std::string note = {};                         // why it is a problem; empty if it is none
};

struct page_figure {
    std::string value, label;
    std::string group = {}; // of the problems that it counts, if it counts problems
};

enum class page_tone { good, warning, bad };

struct page_facts {
    sentence title; // what was done
    std::string outcome;
    page_tone tone = page_tone::good;
    wide_string project, new_project; // the latter is empty for a verification
    std::vector<page_figure> figures;
    std::vector<problem> problems;                            // notices among them
    std::vector<page_file> files;                             // each once
    std::vector<std::pair<std::string, std::string>> choices; // options with their values
};

page_facts facts_of(const ended_resave& ended, const resave_request& request);
page_facts facts_of(const ended_verify& ended, const verify_request& request);

// The group in which a problem is shown: the key of its count in the summary, or of its kind.
std::string group_of(const problem& found);

} // namespace vestra::command
