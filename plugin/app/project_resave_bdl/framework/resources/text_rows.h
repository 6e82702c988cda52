// Names of the texts that the bundle shows or logs: one for each row in texts/. Its value is the row's
// number, which the host's localizer knows, so a row never gets another number.
#pragma once

#include <cstdint>

namespace vs::project_resave::text {

// NOLINTBEGIN(bugprone-macro-parentheses): an enumerator cannot have them
// Only the first two arguments are used here; the texts are compiled into the resources from the same rows.
#define VS_TEXT(id, name, base, translated) name = id,
#define VS_TEXT_BASE_ONLY(id, name, base) name = id,
// NOLINTEND(bugprone-macro-parentheses)

enum row : int32_t {
    // Rows of the host's library, looked up by their negative number.
    host_run = -101,
    host_close = -102,

#include "framework/resources/texts/bundle_texts.inc"
#include "framework/resources/texts/toolkit_texts.inc"
};

#undef VS_TEXT
#undef VS_TEXT_BASE_ONLY

} // namespace vs::project_resave::text
