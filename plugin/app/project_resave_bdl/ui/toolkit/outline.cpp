#include "ui/toolkit/outline.h"

namespace vs::project_resave::toolkit {

void outline::refresh() {
    call<&outline_events_impl::reset_rows>(events_.get());
    call<&outline_events_impl::reset_columns>(events_.get());
    call<&outline_events_impl::reset_images>(events_.get());
    assign(refreshes_, refreshes_ + 1);
}

} // namespace vs::project_resave::toolkit
