// Elements that show a text: label, output, multi-line output. Main thread only.
#pragma once

#include "host/toolkit/label.h"
#include "host/toolkit/multiline_output.h"
#include "host/toolkit/output.h"
#include "ui/toolkit/element_base.h"

namespace vs::project_resave::toolkit {

// Base of these elements. Impl declares the operation that passes the text.
template <class Impl>
class text_element : public element_base<polymorphic<Impl>> {
public:
    // The initial text; no observer exists yet.
    explicit text_element(wide_string shown = {})
        : element_base<polymorphic<Impl>>(Impl::element_kind), text_(std::move(shown)) {}

    // Changes what is shown; the host is notified if it differs.
    void set_text(const wide_string& shown) { this->assign(text_, shown); }

    void text(string_visitor visitor) override { tell(visitor, text_); }

private:
    wide_string text_;
};

// A line of text next to another element, which hosts may use as its name.
class label final : public text_element<label_impl> {
public:
    using text_element::text_element;
};

// A line of text that the user can copy, such as a path.
class output final : public text_element<output_impl> {
public:
    using text_element::text_element;
};

// Several lines of text that the user can scroll and copy, but not change.
class multiline_output final : public text_element<multiline_output_impl> {
public:
    // Size hints in average characters and in lines; a host may show more or fewer.
    multiline_output(uint32_t width_hint, uint32_t height_hint) : width_(width_hint), height_(height_hint) {}

    // The hints never change.
    uint32_t width() override { return width_; }
    uint32_t height() override { return height_; }

private:
    const uint32_t width_;
    const uint32_t height_;
};

} // namespace vs::project_resave::toolkit
