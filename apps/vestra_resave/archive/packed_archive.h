// The archive that a resave writes: all of it or nothing. It is written under a temporary name next to its
// place, "copy.zip.vestra-part", brought to the disk, and only then takes its name, in one step. A program
// that is killed leaves at most that file, which the next resave of the archive replaces.
#pragma once

#include <memory>
#include <optional>
#include <unordered_map>

#include "apps/vestra_resave/archive/archive_disk.h"
#include "apps/vestra_resave/archive/archive_place.h"
#include "apps/vestra_resave/earlier_files.h"
#include "apps/vestra_resave/resave_report.h"

namespace vestra::command {

class packed_archive {
public:
    // `place` names the project, too.
    explicit packed_archive(archive_place place);
    ~packed_archive() { discard(); }
    packed_archive(const packed_archive&) = delete;
    packed_archive& operator=(const packed_archive&) = delete;

    // The disk on which the run works, to be put in force for it.
    archive_disk& disk() { return disk_; }
    const wide_string& path() const { return place_.archive; }

    // Creates the temporary file; the folder exists. Returns why it could not be, or that another resave is
    // writing it.
    std::optional<refusal> begin();
    // Writes what the run made and its manifest, each source read once, while the context is that of the
    // run; then gives the archive its name. A failure or a stop is entered into the report, which is of a run
    // that did not save then.
    void write(session& host, continuation& earlier, resave_report& report);
    void put_in_place(resave_report& report);
    // Removes the temporary file, if there is one.
    void discard();

private:
    struct failure;

    failure write_all(session& host, continuation& earlier, resave_report& report);
    void enter(const failure& failed, resave_report& report);
    failure add_tree(const std::function<bool()>& is_stopped);
    failure add_file(const wide_string& path, const std::function<bool()>& is_stopped);
    platform::outcome create();
    std::string name_of_entry(const wide_string& path) const;

    const archive_place place_;
    const wide_string part_; // the temporary file
    platform::system& real_;
    platform::file_identity replaced_; // what has the archive's name, null if nothing
    archive_disk disk_;
    std::unique_ptr<platform::file> file_; // null where there is no temporary file
    std::unique_ptr<archive_writer> writer_;
    std::unordered_map<wide_string, earlier_file> packed_; // by path key
    int64_t written_at_ = 0;                               // of what has no time of its own
};

} // namespace vestra::command
