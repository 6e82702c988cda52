// A data set that the host has opened by vs_datasource_open: its files, and its records if it has some.
//
// Who implements: the host, as a referent. Who calls: the code that opened it and holds a ref; releasing the
// last ref closes the data set. Read only. Main thread only.
#pragma once

#include "framework/border/visitors.h"

namespace vs::project_resave {

class stat_source_impl : public interface_of<stat_source_impl> {
public:
    static constexpr const char* name = "vs_stat_source_interface_9";
    // Passes each file of the data set as a full path, one call for each, including the main file. A file
    // that is passed need not exist.
    virtual void files(string_visitor visitor) = 0;
    // Returns the index of the field with exactly this name; -1 if there is none, if the data set has no
    // records, or if the name is null.
    virtual int32_t find_field(const char16_t* field_name) = 0;
    // Makes the first record the current one. Returns false if there is no record. Before the first call no
    // record is current.
    virtual bool first() = 0;
    // Makes the next record the current one. Returns false at the end; then no record is current.
    virtual bool next() = 0;
    // Passes the text of a field of the current record; the empty text without a current record or for an
    // index that is not a field's.
    virtual void field_text(int32_t field, string_visitor visitor) = 0;
    using operations =
        operation_list<&stat_source_impl::files, &stat_source_impl::find_field, &stat_source_impl::first,
                       &stat_source_impl::next, &stat_source_impl::field_text>;

protected:
    ~stat_source_impl() = default;
};
using stat_source = interface_to<stat_source_impl>;

} // namespace vs::project_resave
