// All words the bundle shows or logs, looked up by number (see text_rows.h for names) in the host's present
// language.
//
// A number above 0 is a row of the bundle; 0 and below is the row of that absolute number in the host's
// library vsk_basic. A row that is missing leaves the output as it was: it is never an error.
#pragma once

#include <cstdint>

#include "framework/border/visitors.h"
#include "framework/resources/text_rows.h"
#include "host/interfaces/localizer.h"
#include "platform/resources.h"

namespace vs::project_resave {

// A row of a library, in the base language; the language's offset is added at look-up.
struct string_key {
    platform::module_handle module;
    uint32_t id = 0;
};

// Assigns the text to `out`, or leaves it alone.
void load_string(int32_t id, wide_string& out);
wide_string load_string(int32_t id);

// Tells the visitor the text, null-terminated, once or not at all: from the localizer if there is one, whose
// answer is final; else the row of the present language; else the row of the base language.
void localized_text(const string_key& key, const string_visitor& visitor);

// Message boxes with a text by number, through the host.
void show_error(int32_t id);
void show_message(int32_t id);
bool ask_yes_no(int32_t id);

// The localizer in force, null without one. Set by the bundle's client of the localizer service.
localizer current_localizer();
void set_current_localizer(const localizer& found);

} // namespace vs::project_resave
