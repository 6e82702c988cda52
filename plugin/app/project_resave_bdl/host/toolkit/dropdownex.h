// A label with a drop-down list. At most one row is current, and it is the one shown.
//
// Who implements: the bundle. Who calls: the host. The object is an element too: host/toolkit/element.h says
// how long it lives and how it reports a change. Main thread only.
#pragma once

#include <cstdint>

#include "framework/border/visitors.h"

namespace vs::project_resave {

class dropdownex_impl : public interface_of<dropdownex_impl> {
public:
    static constexpr const char* name = "vs_dropdownex_interface_1";
    static constexpr const char16_t* element_kind = u"dropdownex";
    static constexpr uint32_t no_row = UINT32_MAX;
    // Passes the words in front of the list. They never change.
    virtual void label(string_visitor visitor) = 0;
    // Returns the number of rows. They never change.
    virtual uint32_t row_count() = 0;
    // Passes what the user reads in a row; does not call the visitor for an index past the last.
    virtual void row_text(uint32_t index, string_visitor visitor) = 0;
    // Returns the current row; `no_row` if there is none.
    virtual uint32_t current_row() = 0;
    // The user chose this row, which becomes the current one; with `no_row`, no row is current. Any other
    // index past the last changes nothing.
    virtual void row_chosen(uint32_t index) = 0;
    using operations =
        operation_list<&dropdownex_impl::label, &dropdownex_impl::row_count, &dropdownex_impl::row_text,
                       &dropdownex_impl::current_row, &dropdownex_impl::row_chosen>;

protected:
    ~dropdownex_impl() = default;
};

} // namespace vs::project_resave
