// The text file that a command is to write.
#pragma once

#include "apps/vestra_resave/session.h"

namespace vestra::command {

// True if both paths lead, or would lead, to one file.
bool is_same_file(const wide_string& one, const wide_string& other);

// Creates the file, or empties one that exists: never the loaded project or one of its files. Tells what is
// wrong otherwise, and answers how the command ends: `done` if it may go on.
int create_text_file(const wide_string& path, vs::project_resave::project_context& context);

// For a run whose text file is removed after a stop in any case: Ctrl-C ends it without a question.
shell::terminal_options stopped_without_question();

} // namespace vestra::command
