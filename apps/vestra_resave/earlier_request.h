// A resave request as its journal stores it. An interrupted run can only be resumed by the same request.
#pragma once

#include <string>

#include "platform/wide_string.h"

namespace vestra::command {

using vs::project_resave::wide_string;
struct resave_request;

// Returns the parts of the request that determine the result as one line of JSON: the project with the
// SHA-256 of its content, the name of the new project, whether it is an update, and the options. `language`
// is that of texts in the new project, "en" or "ru". Reads the project file; one that cannot be read is no
// error here, because its load will fail.
std::string text_of_request(const resave_request& request, const wide_string& source,
                            const wide_string& target, const std::string& language);

// True if the text can be parsed as a request.
bool is_request(const std::string& text);
// True if the request is an update.
bool is_update(const std::string& text);

// Returns the project of the request `before` if it differs from that of `now`; otherwise empty.
std::string other_project_in(const std::string& before, const std::string& now);

// Returns a text that describes how the request `now` differs from `before`; empty if they are equal. Both
// must be parseable.
std::string difference_of(const std::string& before, const std::string& now);

} // namespace vestra::command
