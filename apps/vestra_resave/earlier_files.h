// The files that an earlier run made in the folder of the new project, from its journal or its manifest, and
// the format of the journal.
//
// The journal is a text file next to the new project. It exists while a run is active and after an
// interrupted one. Each line is a record of words separated by tabs, ending with ";"; a line without it is
// ignored. Paths below the journal's folder are relative to it. In paths "%", tab and line ends are written
// as %25, %09, %0A, %0D.
//
//     resave-journal 1
//     run JSON           the project, its SHA-256 and the options, as one object
//     boot TEXT          a run begins or continues; TEXT changes when the computer restarts
//     folder PATH        was created
//     copy PATH SOURCE   a copy begins
//     replace PATH SOURCE BYTES TIME [SHA256]  the last complete copy replaces an older file
//     done BYTES TIME [SHA256]  the last copy begun is complete; TIME in nanoseconds since 1970
//     write PATH         a file that the run writes itself begins
//     written PATH BYTES TIME
//     gone PATH          was removed or renamed
//     lost               the disk lost data: all files of this and the earlier runs are copied again
//     safe               all of the above is flushed to the disk and survives a loss of power
//
// New files and folders are recorded before they are made, so a kill leaves none without a record. `done` and
// `gone` follow with the next change: a missing one costs a closer look at the file, nothing else. A copy
// that is not `safe` and was recorded before the last restart is compared with its source, because a file can
// have its full size before its content is on the disk.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/outcome.h"
#include "platform/wide_string.h"

namespace vestra::command {

using vs::project_resave::wide_string;
namespace platform = vs::project_resave::platform;

enum class made_state {
    folder,
    begun,    // a copy, possibly incomplete
    copied,   // a complete copy
    writing,  // a file written by the run itself, possibly incomplete
    written,  // the same, complete
    referred, // only known because an earlier project refers to it
};

// A file or folder that an earlier run made, as last recorded.
struct earlier_file {
    wide_string path;
    made_state state = made_state::copied;
    wide_string source = {}; // of a copy; empty if unknown
    uint64_t bytes = 0;
    int64_t modified = 0;      // nanoseconds since 1970, as in entry_status; 0 if unknown
    std::string sha256 = {};   // empty if unknown
    bool is_safe = true;       // complete even if the computer lost power since
    wide_string data_set = {}; // the folder data set that it belongs to; empty if unknown
    // True if a failing disk has perhaps not stored it, though it can still be read from memory: it is copied
    // again.
    bool is_lost = false;
};

// True for a file that may be incomplete and that no project refers to: a copy that was begun, and the new
// file that is to replace another one. A continued run removes such files, and reports them only if that
// fails.
bool is_only_begun(const earlier_file& file);

// The content of a journal.
struct earlier_run {
    std::string request; // the content of `run`; empty if the journal ends before it
    std::vector<earlier_file> files;
};

// Returns the journal's path: NAME.resave-journal for NAME._vp, in the same folder. Only the first 60
// characters of NAME are used, so two projects in one folder can have the same journal; then the request in
// it decides.
inline constexpr vs::project_resave::wide_view journal_name_end = u".resave-journal";
wide_string journal_path(const wide_string& project);
inline constexpr std::string_view journal_title = "resave-journal\t1\t;\n";

// Returns the words as one record with its end. Words must not contain tabs or line ends; `journal_word`
// makes a path such a word.
std::string journal_record(const std::vector<std::string>& words);
// Returns the path as a word, relative to the journal's folder if it is below it. `folder` ends with its
// separator.
std::string journal_word(const wide_string& path, const wide_string& folder);

// Reads a journal. Fails if the file cannot be read or is not a journal; an empty one is a journal that has
// only begun. `found` has each file as in its last record, preceded, for a file that was to be replaced, by
// its state before. Files that are gone are left out.
platform::outcome read_journal(const wide_string& path, earlier_run& found);

} // namespace vestra::command
