// The settings of a complex model that a TOS layer may hold under the key "BumpsSettings": a record of 70
// dynamic values, of which four refer to data files. The others pass untouched.
#pragma once

#include <cstdint>

#include "host/types.h"
#include "platform/wide_string.h"

namespace vs::project_resave {

class complex_model_record {
public:
    // True if the layer's table of extra values names the record.
    static bool is_listed(vs_lr* layer);

    // Finds the record of the layer and mends its form there: what is no tuple becomes one, and the tuple
    // gets its 70 elements.
    explicit complex_model_record(vs_lr* layer);
    explicit operator bool() const { return elements_ != nullptr; }

    // Text of an element. One that holds no text is made an empty text in the layer.
    wide_string text(uint32_t element);
    void set_text(uint32_t element, const wide_string& text);

private:
    vs_tuple* elements_ = nullptr; // the layer's; null if it has no record
};

} // namespace vs::project_resave
