// A copy of the published tables of services/; see framework/border/pinned.h.
#include "framework/border/pinned.h"
#include "services/resave_entity_service.h"
#include "services/resave_service.h"

namespace vs::project_resave::pinned {

// One slot per line.
// clang-format off

template struct table<resave_service_impl, "vs_resave_service_interface_5",
    slot<void(vs_prj*), &resave_service_impl::set_project>,
    slot<void(to<string_visitor_impl>), &resave_service_impl::caption>,
    slot<void(to<string_visitor_impl>), &resave_service_impl::progress_caption>,
    slot<bool(), &resave_service_impl::shows_in_selection>,
    slot<bool(), &resave_service_impl::has_own_heading>,
    slot<void(to<string_visitor_impl>), &resave_service_impl::tree_caption>,
    slot<vs_uuid*(uint32_t), &resave_service_impl::item_uuid>,
    slot<void(uint32_t, to<string_visitor_impl>), &resave_service_impl::item_caption>,
    slot<void(uint32_t, vs_wstrings*), &resave_service_impl::item_files>,
    slot<void(to<string_visitor_impl>), &resave_service_impl::default_folder>,
    slot<void(uint32_t, to<string_visitor_impl>), &resave_service_impl::item_source>,
    slot<void(uint32_t, const char16_t*), &resave_service_impl::set_item_source>,
    slot<uint32_t(), &resave_service_impl::item_count>,
    slot<void(uint32_t), &resave_service_impl::remove_item>>;

template struct table<resave_service_visitor_impl, "vs_resave_service_visitor_interface_5",
    slot<void(to<resave_service_impl>), &resave_service_visitor_impl::visit>>;

template struct table<resave_entity_service_impl, "vs_resave_entity_service_interface_1",
    slot<uint32_t(), &resave_entity_service_impl::meta_id_count>,
    slot<void(uint32_t, to<string_visitor_impl>), &resave_entity_service_impl::meta_id>,
    slot<int32_t(), &resave_entity_service_impl::priority>,
    slot<bool(vs_entity*), &resave_entity_service_impl::accepts>,
    slot<uint32_t(vs_entity*), &resave_entity_service_impl::reference_count>,
    slot<void(vs_entity*, uint32_t, vs_uuid*), &resave_entity_service_impl::reference_uuid>,
    slot<uint32_t(vs_entity*), &resave_entity_service_impl::file_count>,
    slot<void(vs_entity*, uint32_t, to<string_visitor_impl>, to<string_visitor_impl>),
         &resave_entity_service_impl::file_info>,
    slot<void(vs_entity*, uint32_t, const char16_t*), &resave_entity_service_impl::set_file>,
    slot<bool(vs_entity*, uint32_t, const char16_t*, const char16_t*, vs_wstrings*, vs_wstrings*),
         &resave_entity_service_impl::copy_files>,
    slot<bool(vs_entity*, vs_wstrings*), &resave_entity_service_impl::all_files>>;

template struct table<resave_entity_service_visitor_impl, "vs_resave_entity_service_visitor_interface_1",
    slot<void(to<resave_entity_service_impl>), &resave_entity_service_visitor_impl::visit>>;

// clang-format on

} // namespace vs::project_resave::pinned
