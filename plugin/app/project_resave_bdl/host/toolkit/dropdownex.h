// A label with a list that drops down, of which one row is shown. Who implements: the bundle. Who calls: the
// host.
#pragma once

#include <cstdint>

#include "framework/border/visitors.h"

namespace vs::project_resave {

class dropdownex_impl : public interface_of<dropdownex_impl> {
public:
    static constexpr const char* name = "vs_dropdownex_interface_1";
    static constexpr const char16_t* element_kind = u"dropdownex";
    static constexpr uint32_t no_row = UINT32_MAX;
    virtual void label(string_visitor visitor) = 0;
    virtual uint32_t row_count() = 0;
    // What the user reads in a row; none is told for an index past the last.
    virtual void row_text(uint32_t index, string_visitor visitor) = 0;
    // The row that is shown; `no_row` if none is.
    virtual uint32_t current_row() = 0;
    // The user chose this row; `no_row` takes the choice away, and an index past the last changes nothing.
    virtual void row_chosen(uint32_t index) = 0;
    using operations =
        operation_list<&dropdownex_impl::label, &dropdownex_impl::row_count, &dropdownex_impl::row_text,
                       &dropdownex_impl::current_row, &dropdownex_impl::row_chosen>;

protected:
    ~dropdownex_impl() = default;
};

} // namespace vs::project_resave
