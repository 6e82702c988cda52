// A field for a path, with a button behind it that opens the host's file or folder dialog. Who implements:
// the bundle. Who calls: the host.
#pragma once

#include <cstdint>

#include "framework/border/visitors.h"

namespace vs::project_resave {

// What the button asks the user for.
enum class file_input_mode : uint32_t { source_project = 0, text_file = 1, new_file = 2, folder = 3 };

class file_input_impl : public interface_of<file_input_impl> {
public:
    static constexpr const char* name = "vs_file_input_interface_1";
    static constexpr const char16_t* element_kind = u"file_input";
    virtual file_input_mode mode() = 0;
    // "words|pattern", for the host's dialog; empty for all files.
    virtual void filter(string_visitor visitor) = 0;
    // Empty: the host's own words.
    virtual void button_caption(string_visitor visitor) = 0;
    virtual void text(string_visitor visitor) = 0;
    // The user typed or chose this text; an empty one counts too. False if it was refused: the field's text
    // then is what `text` tells, which the refusal may have changed. May show message boxes before it
    // returns.
    virtual bool text_entered(const char16_t* entered) = 0;
    using operations =
        operation_list<&file_input_impl::mode, &file_input_impl::filter, &file_input_impl::button_caption,
                       &file_input_impl::text, &file_input_impl::text_entered>;

protected:
    ~file_input_impl() = default;
};

} // namespace vs::project_resave
