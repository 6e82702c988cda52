#pragma once

#include <cstdint>
#include <initializer_list>
#include <vector>

#include "platform/outcome.h"
#include "platform/wide_string.h"

namespace vs::project_resave {

// Writer of the resave log, of the structure text and of the case report.
// Each line opens the file, appends, and closes it, so it stands in the file when the call returns, and a log
// that cannot be written stops nothing. Lines end with CR LF, in UTF-8 without a mark in front; a text ends
// at its first zero character. User-interface thread only.
//
// Nobody tests whether the log is on: while it was never opened there is no file that a line could reach. One
// that was open in an earlier run goes on receiving lines.
class log_file {
public:
    // `indent_unit` is read at each indented line; it must outlive this object.
    explicit log_file(const wide_string* indent_unit) : indent_unit_(indent_unit) {}
    log_file(const log_file&) = delete;
    log_file& operator=(const log_file&) = delete;
    virtual ~log_file() = default;

    // Creates or empties the file and writes there from now on; true even if it could not be created. Without
    // `enable` does nothing and answers false.
    virtual bool open(const wide_string& name, bool enable);
    virtual void close();
    // No line goes anywhere until the log is opened again.
    void forget() { file_name_.clear(); }
    // The first failure since the file was opened, by which lines did not reach it; success if all did.
    const platform::outcome& failure() const { return failure_; }
    // Where the lines go; empty until the log is opened for the first time.
    const wide_string& path() const { return file_name_; }
    // One line: the text of this number, a narrow text of the host, a wide text. The result is always false.
    virtual bool write(int32_t row);
    virtual bool write(const char* text);
    virtual bool write(const wide_string& text);

    // Messages, each a block of lines.
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

    virtual void indent();
    // Stops at 0; the new depth.
    virtual uint32_t unindent();
    virtual bool write_at(const wide_string& text, uint32_t at_depth);
    // At the present depth. Only these lines are indented.
    virtual void write_indented(int32_t row);
    virtual void write_indented(const wide_string& text);

    virtual void clear_unprocessed_types();
    virtual void add_unprocessed_type(const char* text);
    virtual void dump_unprocessed_types();

protected:
    uint32_t depth = 0;

private:
    // Each text as a line, and the end of a block.
    void write_block(std::initializer_list<wide_string> lines);

    const wide_string* const indent_unit_;
    wide_string file_name_;
    platform::outcome failure_;
    std::vector<wide_string> unprocessed_types_;
};

// Log of a project's load, beside the source project. It never holds more than one line, the last step that
// the load reached: each step empties the file first. So a load that breaks off leaves the name of the unit
// in work.
class open_log_file : public log_file {
public:
    using log_file::log_file;

    bool enabled = false;
    wide_string path;

    // Names the log after the project: a.b._vp has a.b_last_resave_open_log.txt beside it.
    void set_open_log_path(const wide_string& project_path, bool enable);

    // Lines round the reading of the project. These and the steps do nothing while the log is not enabled.
    void write_load_begin();
    void write_load_end();
    // A step into a unit and out of it; what lies between is one level deeper.
    void enter(const wide_string& text);
    void leave(const wide_string& text);

private:
    void write_only_line(const wide_string& text);
};

} // namespace vs::project_resave
