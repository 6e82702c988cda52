// A field for a path, followed by a button that opens the host's file or folder dialog.
//
// Who implements: the bundle. Who calls: the host. The object is an element too: host/toolkit/element.h says
// how long it lives and how it reports a change. Main thread only.
#pragma once

#include <cstdint>

#include "framework/border/visitors.h"

namespace vs::project_resave {

// What the dialog asks for: a project to be read, a text file to be written, a new file, a folder.
enum class file_input_mode : uint32_t { source_project = 0, text_file = 1, new_file = 2, folder = 3 };

class file_input_impl : public interface_of<file_input_impl> {
public:
    static constexpr const char* name = "vs_file_input_interface_1";
    static constexpr const char16_t* element_kind = u"file_input";
    // Returns what the host's dialog asks for. It never changes.
    virtual file_input_mode mode() = 0;
    // Passes the filter of the host's dialog as "words|pattern"; empty for all files.
    virtual void filter(string_visitor visitor) = 0;
    // Passes the caption of the button; empty for the host's own caption.
    virtual void button_caption(string_visitor visitor) = 0;
    // Passes the text in the field: a path, or the empty text.
    virtual void text(string_visitor visitor) = 0;
    // The user typed or chose this text. An empty text counts too, and null counts as empty. Returns false if
    // the bundle refuses it; then the host shows again what `text` passes, which may have changed. Can take
    // long, for example when it loads a project, and can show message boxes.
    virtual bool text_entered(const char16_t* entered) = 0;
    using operations =
        operation_list<&file_input_impl::mode, &file_input_impl::filter, &file_input_impl::button_caption,
                       &file_input_impl::text, &file_input_impl::text_entered>;

protected:
    ~file_input_impl() = default;
};

} // namespace vs::project_resave
