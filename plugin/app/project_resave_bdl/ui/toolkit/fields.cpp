// Fields for paths and the requests of outlines to their host.
#include "ui/toolkit/fields.h"

namespace vs::project_resave::toolkit {

file_input::file_input(file_input_mode mode, wide_string filter, wide_string button_caption)
    : element_base(file_input_impl::element_kind), mode_(mode), filter_(std::move(filter)),
      button_caption_(std::move(button_caption)) {}

bool file_input::text_entered(const char16_t* entered) {
    const wide_string text = text_or_empty(entered);
    if (validator_ && !validator_(text)) return false;
    set_text(text);
    return true;
}

void outline::refresh() {
    call<&outline_events_impl::reset_rows>(events_.get());
    call<&outline_events_impl::reset_columns>(events_.get());
    call<&outline_events_impl::reset_images>(events_.get());
    // A host without outline_events is notified as well.
    assign(refreshes_, refreshes_ + 1);
}

} // namespace vs::project_resave::toolkit
