// All that the bundle offers to the host: its static factories, in the order in which they are announced.
#include "framework/local_factory.h"
#include "framework/resources/strings.h"
#include "services/maplegs_plugin_service.h"
#include "ui/dialog_factories.h"
#include "ui/project_resave_app.h"

namespace vs::project_resave {

namespace {

// Made before the factories, and so there until the last of them has ended: a panel that is still open when
// the library goes shows words to its end.
[[maybe_unused]] const localizer place_of_localizer = current_localizer();
[[maybe_unused]] const platform::module_handle place_of_texts = platform::own_module();

plain_dialog_factory plain_dialog;
service_factory<project_resave_app>
    application(project_resave_app::id,
                std::make_unique<ref_service_holder<project_resave_app, custom_app_service_impl>>());
unique_name_dialog_factory unique_name;
extended_message_dialog_factory extended_message;
service_factory<maplegs_plugin_service>
    map_legends(u"", std::make_unique<ref_service_holder<maplegs_plugin_service, resave_service_impl>>());
local_factory_impl localizer_client_of_bundle;

} // namespace

} // namespace vs::project_resave
