// A figure with a caption and a unit.
#pragma once

#include "host/toolkit/label_ex.h"
#include "ui/toolkit/element_base.h"

namespace vs::project_resave::toolkit {

class label_ex final : public element_base<polymorphic<label_ex_impl>> {
public:
    label_ex(wide_string caption, wide_string value, wide_string unit)
        : element_base(label_ex_impl::element_kind), caption_(std::move(caption)), value_(std::move(value)),
          unit_(std::move(unit)) {}

    void set_value(const wide_string& value) { assign(value_, value); }
    void set_unit(const wide_string& unit) { assign(unit_, unit); }

    void caption(string_visitor visitor) override { tell(visitor, caption_); }
    void value(string_visitor visitor) override { tell(visitor, value_); }
    void unit(string_visitor visitor) override { tell(visitor, unit_); }

private:
    const wide_string caption_;
    wide_string value_;
    wide_string unit_;
};

} // namespace vs::project_resave::toolkit
