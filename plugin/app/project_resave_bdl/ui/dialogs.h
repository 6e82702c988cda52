// The two dialogs, as the rest of the bundle calls them. Each blocks until the user has closed it. Where the
// host has no runner for it, nothing is shown, and it counts as cancelled.
#pragma once

#include "operations/run/run_questions.h"

namespace vs::project_resave {

// Asks for a new path for a copy of `source`; `proposed` exists. An accepted path is as typed, not
// normalised, and did not exist when the dialog closed; it is empty if the user gave none.
unique_name_answer show_unique_name_dialog(const wide_string& source, const wide_string& proposed);

// Shows the text, whole, in a field that scrolls.
void show_extended_message_dialog(const wide_string& text);

} // namespace vs::project_resave
