// The factories of the bundle's modal dialogs. All have an empty id. The statics themselves stand with those
// of the other services, for their order counts.
#pragma once

#include "ui/extended_message_dialog.h"
#include "ui/modal_dialog.h"
#include "ui/unique_name_dialog.h"

namespace vs::project_resave {

// The dialog without content of its own, which every bundle offers.
struct plain_dialog_id {
    static constexpr const char16_t* name = u"";
};

using plain_dialog_factory = modal_dialog_service_factory<plain_dialog_id>;
using unique_name_dialog_factory = modal_dialog_service_factory<dialog::unique_name_dialog::id>;
using extended_message_dialog_factory = modal_dialog_service_factory<detail::extended_message_dialog::id>;

} // namespace vs::project_resave
