// The resave log and the load log. Main thread only.
//
// Each line opens the file, appends and closes it, so the line is in the file when the call returns. A log
// that cannot be written stops nothing. Lines end with CR LF and are in UTF-8 without a byte order mark; a
// text ends at its first zero character.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <vector>

#include "platform/outcome.h"
#include "platform/wide_string.h"

namespace vs::project_resave {

// Writer of the resave log, of the structure text and of the case report.
//
// Callers never check whether logging is on. Before the first open(), lines go nowhere; after that, later
// runs without a log keep appending to the old file.
class log_file {
public:
    // `indent_unit` is read for each indented line; it must outlive this object.
    explicit log_file(const wide_string* indent_unit) : indent_unit_(indent_unit) {}
    log_file(const log_file&) = delete;
    log_file& operator=(const log_file&) = delete;
    virtual ~log_file() = default;

    // Creates or empties the file and writes to it from now on. Returns true even if the file could not be
    // created. Without `enable`, does nothing and returns false.
    virtual bool open(const wide_string& name, bool enable);
    // Ends a run's log. Lines can still follow.
    virtual void close();
    // Writes no more lines until the log is opened again.
    void forget() { file_name_.clear(); }
    // Returns the first failure since the file was opened that kept a line out of it; success if there was
    // none.
    const platform::outcome& failure() const { return failure_; }
    // Returns the path of the file; empty until the log is opened for the first time.
    const wide_string& path() const { return file_name_; }
    // Write one line: the text with this number, a narrow text of the host, a wide text. Always return false.
    virtual bool write(int32_t row);
    virtual bool write(const char* text);
    virtual bool write(const wide_string& text);

    // Messages, each written as a block of lines.
    virtual void copy_failed(const wide_string& path);
    virtual void new_name_failed(const wide_string& path);
    virtual void file_missing(const wide_string& path);
    virtual void file_renamed(const wide_string& old_path, const wide_string& new_path);
    virtual void layer_3d_removed();
    virtual void scene_not_loaded(const wide_string& name);
    virtual void service_begin(const wide_string& name);
    virtual void service_end(const wide_string& name);
    virtual void service_file_removed(const wide_string& name);
    // Kept for other bundles; nothing here calls the next seven.
    virtual void layer_2d_not_saved(const char* name);
    virtual void layer_2d_not_saved(const wide_string& name);
    virtual void layer_3d_not_saved(const char* name);
    virtual void layer_3d_not_saved(const wide_string& name);
    virtual void layer_2d_removed();
    virtual void dbf_table_removed();
    virtual void tos_table_removed();

    // Increases the depth of the indented lines.
    virtual void indent();
    // Decreases the depth, but not below 0. Returns the new depth.
    virtual uint32_t unindent();
    // Writes a line indented to `at_depth`. Always returns false.
    virtual bool write_at(const wide_string& text, uint32_t at_depth);
    // Write a line at the current depth. Only these lines are indented.
    virtual void write_indented(int32_t row);
    virtual void write_indented(const wide_string& text);

    // A list of layer types that nothing resaves, kept until it is written: `dump_unprocessed_types` writes
    // it under a heading, and nothing if it is empty.
    virtual void clear_unprocessed_types();
    virtual void add_unprocessed_type(const char* text);
    virtual void dump_unprocessed_types();

protected:
    uint32_t depth = 0;

private:
    // Writes each text as a line, followed by the end of the block.
    void write_block(std::initializer_list<wide_string> lines);

    const wide_string* const indent_unit_;
    wide_string file_name_;
    platform::outcome failure_;
    std::vector<wide_string> unprocessed_types_;
};

// The log of a project's load, next to the source project. It never holds more than one line, the last step
// that the load reached, because each step empties the file first. If a load breaks off, the log names the
// unit that was being loaded.
class open_log_file : public log_file {
public:
    using log_file::log_file;

    // The log is written only if `enabled`; `path` is its file.
    bool enabled = false;
    wide_string path;

    // Sets both members. The log has the project's name: that of a.b._vp is a.b_last_resave_open_log.txt.
    void set_open_log_path(const wide_string& project_path, bool enable);

    // Write the lines before and after the project is read. These and the steps do nothing while the log is
    // not enabled.
    void write_load_begin();
    void write_load_end();
    // Write a step into a unit and out of it; steps in between are one level deeper.
    void enter(const wide_string& text);
    void leave(const wide_string& text);

private:
    // Empties the file and writes the line at the current depth.
    void write_only_line(const wide_string& text);
};

} // namespace vs::project_resave
