// All texts that the bundle shows or logs, looked up by number (see text_rows.h for names) in the host's
// current language. Main thread only.
//
// A number above 0 is a row of the bundle; 0 and below is the row with the absolute number in the host's
// library vsk_basic. A missing row leaves the output unchanged: it is never an error.
#pragma once

#include <cstdint>

#include "framework/border/visitors.h"
#include "framework/resources/text_rows.h"
#include "host/interfaces/localizer.h"
#include "platform/resources.h"

namespace vs::project_resave {

// A row of a library, by its number in the base language; the look-up adds the language's offset.
struct string_key {
    platform::module_handle module;
    uint32_t id = 0;
};

// Assigns the text to `out`, or leaves `out` unchanged if the row is missing: set it to a default before.
void load_string(int32_t id, wide_string& out);
// Returns the text; empty if the row is missing. Looked up anew each time, so it follows a change of the
// language.
wide_string load_string(int32_t id);

// Passes the text, zero-terminated, to the visitor, once or not at all: from the localizer if there is one,
// whose answer is final; else the row of the current language; else the row of the base language. The text is
// borrowed for the call.
void localized_text(const string_key& key, const string_visitor& visitor);

// Show a message box of the host with a text by number, and wait for the user, whose other events may arrive
// meanwhile. `ask_yes_no` returns true for yes.
void show_error(int32_t id);
void show_message(int32_t id);
bool ask_yes_no(int32_t id);

// The current localizer; null if there is none. Set by the bundle's client of the localizer service, and held
// weakly, so it becomes null if it is a referent that ends.
localizer current_localizer();
void set_current_localizer(const localizer& found);

} // namespace vs::project_resave
