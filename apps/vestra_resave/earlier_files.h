// What an earlier run made in the folder of the new project, as its journal or its manifest has it, and the
// form of the journal.
//
// The journal is a text file next to the new project, while a run is at work and after one that broke off.
// Each line is a record: words separated by tabs, a ";" at its end, without which it is ignored. In paths,
// which are relative to the journal's folder where they are below it, "%", tab and line ends are %25, %09,
// %0A, %0D.
//
//     resave-journal 1
//     run JSON           the project, its SHA-256 and the options, as one object
//     boot TEXT          a run begins or goes on; changes when the computer starts anew
//     folder PATH        was created
//     copy PATH SOURCE   begins
//     replace PATH SOURCE BYTES TIME  the whole copy made last takes the place of an older file
//     done BYTES TIME    the copy begun last is whole; TIME in nanoseconds since 1970
//     write PATH         a file that the run writes itself begins
//     written PATH BYTES TIME
//     gone PATH          was removed, or got another name
//     safe               the disk has all of the above, even if the computer is switched off now
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
    begun,    // a copy, perhaps half of one
    copied,   // a whole copy
    writing,  // a file of the run's own, perhaps half of one
    written,  // the same, whole
    referred, // an earlier project refers to it, and nothing else is known
};

struct earlier_file {
    wide_string path;
    made_state state = made_state::copied;
    wide_string source = {}; // of a copy; empty where it is unknown
    uint64_t bytes = 0;
    int64_t modified = 0;      // nanoseconds since 1970, as entry_status has it; 0 where it is unknown
    std::string sha256 = {};   // empty where it is unknown
    bool is_safe = true;       // whole, even if the computer was switched off meanwhile
    wide_string data_set = {}; // the folder that is one, which it is in; empty where that is unknown
    bool is_lost = false;      // a disk that failed may not have it, though it can be read for a while
};

// Perhaps half a file, under a name that none is to keep.
bool is_only_begun(const earlier_file& file);

struct earlier_run {
    std::string request; // what `run` holds; empty for a journal that ends before it
    std::vector<earlier_file> files;
};

// NAME.resave-journal for NAME._vp; of a long name the beginning.
inline constexpr vs::project_resave::wide_view journal_name_end = u".resave-journal";
wide_string journal_path(const wide_string& project);
inline constexpr std::string_view journal_title = "resave-journal\t1\t;\n";

// Words as one record.
std::string journal_record(const std::vector<std::string>& words);
// A path as a word.
std::string journal_word(const wide_string& path, const wide_string& folder);

// Reads a journal; fails if the file cannot be read, or is none. Each file is there as the last record of it
// has it; before it, of one that was to be replaced, as it was until then.
platform::outcome read_journal(const wide_string& path, earlier_run& found);

} // namespace vestra::command
