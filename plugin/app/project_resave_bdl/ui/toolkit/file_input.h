// Field for a path. The owner's validator sees each text the user enters, never one set by code.
#pragma once

#include <functional>

#include "host/toolkit/file_input.h"
#include "ui/toolkit/element_base.h"

namespace vs::project_resave::toolkit {

class file_input final : public element_base<polymorphic<file_input_impl>> {
public:
    // Answers whether the entered text is taken; it may set another text before it refuses. The text in the
    // field is still the old one.
    using validator = std::function<bool(const wide_string& entered)>;

    explicit file_input(file_input_mode mode, wide_string filter = {}, wide_string button_caption = {});

    // Without a validator everything is taken.
    void set_validator(validator decides) { validator_ = std::move(decides); }
    void set_text(const wide_string& text) { assign(text_, text); }
    const wide_string& text() const { return text_; }

    file_input_mode mode() override { return mode_; }
    void filter(string_visitor visitor) override { tell(visitor, filter_); }
    void button_caption(string_visitor visitor) override { tell(visitor, button_caption_); }
    void text(string_visitor visitor) override { tell(visitor, text_); }
    bool text_entered(const char16_t* entered) override;

private:
    const file_input_mode mode_;
    const wide_string filter_;
    const wide_string button_caption_;
    wide_string text_;
    validator validator_;
};

} // namespace vs::project_resave::toolkit
