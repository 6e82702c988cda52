// Collects what happened in a run as facts, and groups them for the final message.

#include "operations/run/run_report.h"

#include <algorithm>

#include "framework/border/encoding.h"
#include "framework/resources/strings.h"
#include "platform/path_text.h"

namespace vs::project_resave {

void run_report::restart(const std::vector<fact>& of_tree) {
    facts_ = of_tree;
    current_unit.clear();
    stopped = saved = incomplete = false;
}

fact& run_report::append(fact_kind kind) {
    fact& fresh = facts_.emplace_back();
    fresh.kind = kind;
    fresh.element = current_;
    fresh.heading = current_unit;
    return fresh;
}

void run_report::add_lost_source(const wide_string& path, const wide_string& subject,
                                 const wide_string& reason) {
    fact& lost = append(fact_kind::source_lost);
    lost.path = path;
    lost.reason = reason;
    lost.subject = subject;
}

void run_report::add_copy_error(const wide_string& path, const wide_string& new_path,
                                const platform::outcome& why, const wide_string& subject) {
    fact& failed = append(fact_kind::copy_failed);
    failed.path = path;
    failed.new_path = new_path;
    failed.reason = why.text();
    failed.subject = path_file_name(subject.empty() ? path : subject);
}

void run_report::add_unprocessed_type(element_name layer, const char* layer_type, const wide_string& path) {
    fact& found = append(fact_kind::type_not_resaved);
    found.element = std::move(layer);
    found.path = path;
    found.subject = host_text(layer_type);
}

void run_report::add(fact_kind kind, const wide_string& path, const wide_string& new_path,
                     const wide_string& reason) {
    fact& fresh = append(kind);
    fresh.path = path;
    fresh.new_path = new_path;
    fresh.reason = reason;
}

void run_report::add_exception(const wide_string& where, const wide_string& what) {
    fact& caught = append(fact_kind::exception_caught);
    caught.subject = where;
    caught.reason = what;
}

bool run_report::has(fact_kind kind) const {
    return std::ranges::find(facts_, kind, &fact::kind) != facts_.end();
}

std::vector<run_report::problem> run_report::problems() const {
    const wide_string lost = load_string(text::lost_files), failed = load_string(text::copy_error);
    std::vector<problem> all;
    for (const fact& each : facts_) {
        const bool is_lost = each.kind == fact_kind::source_lost;
        if (each.heading.empty() || (!is_lost && each.kind != fact_kind::copy_failed)) continue;
        if (all.empty() || all.back().title != each.heading) all.push_back({each.heading, {}});
        all.back().text += (is_lost ? lost : failed) + each.subject + u"\n";
    }
    return all;
}

std::set<wide_string> run_report::unprocessed_types() const {
    std::set<wide_string> types;
    for (const fact& each : facts_)
        if (each.kind == fact_kind::type_not_resaved) types.insert(each.subject);
    return types;
}

} // namespace vs::project_resave
