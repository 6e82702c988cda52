// A data set that the host has opened. Who implements: the host; what vs_datasource_open gives speaks it.
// A referent: whoever opened it holds a ref, and the last one closes it.
#pragma once

#include "framework/border/visitors.h"

namespace vs::project_resave {

class stat_source_impl : public interface_of<stat_source_impl> {
public:
    static constexpr const char* name = "vs_stat_source_interface_9";
    // Tells each file of the data set as a full path, the main file among them; a file told need not exist.
    virtual void files(string_visitor visitor) = 0;
    // Index of the field of exactly this name, or -1; also -1 where the data set has no records.
    virtual int32_t find_field(const char16_t* field_name) = 0;
    // Goes to the first and to the next record; false if there is none.
    virtual bool first() = 0;
    virtual bool next() = 0;
    // Text of a field of the present record.
    virtual void field_text(int32_t field, string_visitor visitor) = 0;
    using operations =
        operation_list<&stat_source_impl::files, &stat_source_impl::find_field, &stat_source_impl::first,
                       &stat_source_impl::next, &stat_source_impl::field_text>;

protected:
    ~stat_source_impl() = default;
};
using stat_source = interface_to<stat_source_impl>;

} // namespace vs::project_resave
