// The archive that a resave writes, either completely or not at all. It is written to a temporary file next
// to it, "copy.zip.vestra-part", flushed to the disk, and then renamed in one step. A killed program leaves
// at most the temporary file, which the next resave into this archive replaces. Only the program that has the
// temporary file open for writing may rename or remove it.
#pragma once

#include <memory>
#include <optional>
#include <unordered_map>

#include "apps/vestra_resave/archive/archive_disk.h"
#include "apps/vestra_resave/archive/archive_place.h"
#include "apps/vestra_resave/earlier_files.h"
#include "apps/vestra_resave/resave_report.h"

namespace vestra::command {

// Returns the path of the temporary file of an archive.
wide_string part_of(const wide_string& archive);

// The calls in their order: `begin` before the run, `write` and `put_in_place` after it; or `discard`. Main
// thread only.
class packed_archive {
public:
    // `place` must include the path of the project. The current disk is the one that the archive is written
    // to; it must outlive this object. Nothing is created yet.
    explicit packed_archive(archive_place place);
    ~packed_archive() { discard(); }
    packed_archive(const packed_archive&) = delete;
    packed_archive& operator=(const packed_archive&) = delete;

    // Returns the disk for the run, which the caller makes the current one.
    archive_disk& disk() { return disk_; }
    const wide_string& path() const { return place_.archive; }

    // Creates the temporary file, whose folder must exist, and keeps it open, so that another resave into
    // this archive is refused. A file that a killed run left is replaced. Returns the reason if that fails,
    // or if another resave has ended meanwhile and `overwrites` is false.
    std::optional<refusal> begin(bool overwrites);
    // Writes the files of the run and its manifest into the temporary file, and reads each source once. Call
    // it while the context is still that of the run, and the disk shows its files. After a failure or a stop
    // the report is that of a run that did not save, and the temporary file is gone.
    void write(session& host, continuation& earlier, resave_report& report);
    // Flushes the archive and gives it its final name, replacing the file that had it when `begin` was
    // called, but no other one. A failure is entered into the report. Call it only after a `write` that
    // succeeded.
    void put_in_place(resave_report& report);
    // Removes the temporary file, if there is one. An existing archive is unchanged.
    void discard();

private:
    struct failure;

    failure write_all(session& host, continuation& earlier, resave_report& report);
    void enter(const failure& failed, resave_report& report);
    failure add_tree(const std::function<bool()>& is_stopped);
    failure add_file(const wide_string& path, const std::function<bool()>& is_stopped);
    platform::outcome take_part();
    std::string name_of_entry(const wide_string& path) const;

    const archive_place place_;
    const wide_string part_; // the temporary file
    platform::system& real_;
    platform::file_identity replaced_; // what has the archive's name, null if nothing
    archive_disk disk_;
    std::unique_ptr<platform::file> file_; // null if there is no temporary file
    std::unique_ptr<archive_writer> writer_;
    std::unordered_map<wide_string, earlier_file> packed_; // by path key
    int64_t written_at_ = 0;                               // for entries without a time
};

} // namespace vestra::command
