// The row of buttons that starts the work of a window and closes it.
//
// Who implements: the bundle. Who calls: the host. The object is an element too: host/toolkit/element.h says
// how long it lives and how it reports a change. Main thread only.
#pragma once

#include <cstdint>

#include "framework/border/visitors.h"

namespace vs::project_resave {

class button_box_impl : public interface_of<button_box_impl> {
public:
    static constexpr const char* name = "vs_button_box_interface_1";
    static constexpr const char16_t* element_kind = u"button_box";
    // Returns the number of buttons. They never change.
    virtual uint32_t entry_count() = 0;
    // Passes the words on a button, from left to right; does not call the visitor for an index past the last.
    virtual void entry_text(uint32_t index, string_visitor visitor) = 0;
    // Returns the button's code: 1, 2 and 32 do the work of the window, 4, 8 and 64 only close it. 0 for an
    // index past the last.
    virtual int32_t entry_code(uint32_t index) = 0;
    // The user pressed the button with this code. Returns true if the host must close the window. An unknown
    // code does nothing and returns false. A button that does work finishes it before it returns, which can
    // take long and show message boxes and dialogs.
    virtual bool click(int32_t code) = 0;
    using operations = operation_list<&button_box_impl::entry_count, &button_box_impl::entry_text,
                                      &button_box_impl::entry_code, &button_box_impl::click>;

protected:
    ~button_box_impl() = default;
};

} // namespace vs::project_resave
