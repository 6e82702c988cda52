// Converts a request to JSON for the journal, and compares two of them.
#include "apps/vestra_resave/earlier_request.h"

#include <nlohmann/json.hpp>

#include "apps/vestra_resave/commands.h"
#include "apps/vestra_resave/file_content.h"
#include "apps/vestra_resave/output_file.h"
#include "apps/vestra_resave/words.h"
#include "platform/path_text.h"
#include "platform/text.h"

namespace vestra::command {

using namespace vs::project_resave;
using nlohmann::ordered_json;

namespace {

// Returns the text for a key; empty if there is none.
std::string text_in(const ordered_json& all, const char* key) {
    const auto found = all.is_object() ? all.find(key) : all.end();
    return found != all.end() && found->is_string() ? found->get<std::string>() : std::string();
}

} // namespace

std::string text_of_request(const resave_request& request, const wide_string& source,
                            const wide_string& target, const std::string& language) {
    ordered_json options;
    for (const auto& [option, value] : request.choices) options[option] = value;
    options["--language"] = language;
    file_digest digest;
    read_digest(
        source, [] { return false; }, digest);
    return ordered_json{{"project", platform::to_utf8(source)},
                        {"new_project", platform::to_utf8(path_file_name(target))},
                        {"sha256", digest.sha256},
                        {"update", request.mode == run_mode::update},
                        {"options", options}}
        // On one line, in ASCII: the journal's records end at line ends.
        .dump(-1, ' ', true, ordered_json::error_handler_t::replace); // options need not be UTF-8
}

bool is_request(const std::string& text) { return ordered_json::parse(text, nullptr, false).is_object(); }

bool is_update(const std::string& text) {
    const ordered_json all = ordered_json::parse(text, nullptr, false);
    return all.is_object() && all.contains("update") && all["update"] == true;
}

std::string other_project_in(const std::string& before_text, const std::string& now_text) {
    const ordered_json before = ordered_json::parse(before_text, nullptr, false);
    const ordered_json now = ordered_json::parse(now_text, nullptr, false);
    // The same project by another path, such as a link, is still the same.
    for (const char* key : {"project", "new_project"})
        if (const wide_string earlier = platform::from_utf8(text_in(before, key));
            !is_same_project(earlier, platform::from_utf8(text_in(now, key))))
            return printed(earlier);
    return {};
}

std::string difference_of(const std::string& before_text, const std::string& now_text) {
    const ordered_json before = ordered_json::parse(before_text, nullptr, false);
    const ordered_json now = ordered_json::parse(now_text, nullptr, false);
    if (const std::string other = other_project_in(before_text, now_text); !other.empty())
        return say("it belongs to another project: %1", {other});
    if (text_in(before, "sha256") != text_in(now, "sha256"))
        return say("the project has changed since; use --update to bring the copy up to date");
    const ordered_json none = ordered_json::object();
    const ordered_json was = before.contains("options") ? before["options"] : none;
    // Only the first difference is reported. An option that the journal lacks, because an older program wrote
    // it, counts as different.
    for (const auto& [option, value] : now["options"].items())
        if (text_in(was, option.c_str()) != value)
            return say("%1 was %2 and is %3",
                       {option, text_in(was, option.c_str()), value.get<std::string>()});
    return {};
}

} // namespace vestra::command
