// The row of buttons by which a window is run and closed. Who implements: the bundle. Who calls: the host.
#pragma once

#include <cstdint>

#include "framework/border/visitors.h"

namespace vs::project_resave {

class button_box_impl : public interface_of<button_box_impl> {
public:
    static constexpr const char* name = "vs_button_box_interface_1";
    static constexpr const char16_t* element_kind = u"button_box";
    virtual uint32_t entry_count() = 0;
    // The words on a button; none is told for an index past the last.
    virtual void entry_text(uint32_t index, string_visitor visitor) = 0;
    // The button's number in this box: 1, 2 and 32 do the work of the window, 4, 8 and 64 only close it. 0
    // for an index past the last.
    virtual int32_t entry_code(uint32_t index) = 0;
    // The user pressed the button with this code. True: the window closes. A code that no button has does
    // nothing. May run as long as the work behind the button does, and show message boxes.
    virtual bool click(int32_t code) = 0;
    using operations = operation_list<&button_box_impl::entry_count, &button_box_impl::entry_text,
                                      &button_box_impl::entry_code, &button_box_impl::click>;

protected:
    ~button_box_impl() = default;
};

} // namespace vs::project_resave
