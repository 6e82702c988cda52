// What a resave was asked for, as its journal keeps it: one that broke off is resumed by the same request
// only.
#pragma once

#include <string>

#include "platform/wide_string.h"

namespace vestra::command {

using vs::project_resave::wide_string;
struct resave_request;

// The request as one line of JSON, as far as the result depends on it: the project with the SHA-256 of its
// content, the name of the new project, whether it is an update, the options. `language` is that of the
// texts in the new project, "en" or "ru".
std::string text_of_request(const resave_request& request, const wide_string& source,
                            const wide_string& target, const std::string& language);

// Whether such a text can be read.
bool is_request(const std::string& text);
// Whether it is of an update.
bool is_update(const std::string& text);

// Says what differs in the request `now` from the one `before`; empty if nothing does. Both can be read.
std::string difference_of(const std::string& before, const std::string& now);

} // namespace vestra::command
