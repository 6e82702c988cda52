// A copy of the published tables of host/interfaces/; see framework/border/pinned.h. If this source does not
// compile, restore the interface: hosts and bundles that are in use have been built with these lists.
#include "framework/border/pinned.h"
#include "host/interfaces/layer_type_service.h"
#include "host/interfaces/layout_legend_layer.h"
#include "host/interfaces/localizer.h"
#include "host/interfaces/masked_bitmap.h"
#include "host/interfaces/profile_compound_layer.h"
#include "host/interfaces/service_factory.h"
#include "host/interfaces/service_visitor.h"
#include "host/interfaces/stat_source.h"

namespace vs::project_resave::pinned {

// One slot per line.
// clang-format off

template struct table<layer_type_service_impl, "vs_layer_type_service_interface_1",
    slot<uint32_t(), &layer_type_service_impl::type_count>,
    slot<const char*(uint32_t), &layer_type_service_impl::type_name>,
    slot<vs_dib*(uint32_t), &layer_type_service_impl::picture>>;

template struct table<layer_type_service_visitor_impl, "vs_layer_type_service_visitor_interface_1",
    slot<void(to<layer_type_service_impl>), &layer_type_service_visitor_impl::visit>>;

template struct table<layout_legend_layer_impl, "vs_layout_legend_layer_interface_1",
    slot<vs_scn_2d*(), &layout_legend_layer_impl::scene>>;

template struct table<localizer_impl, "vs_localizer_interface_1",
    slot<void(const void*, uint32_t, to<string_visitor_impl>), &localizer_impl::text>,
    slot<void(const void*, uint32_t, to<masked_bitmap_visitor_impl>), &localizer_impl::bitmap>>;

template struct table<localizer_client_impl, "vs_localizer_client_interface_0",
    slot<void(to<localizer_impl>), &localizer_client_impl::set_localizer>>;

template struct table<localizer_service_impl, "vs_localizer_service_interface_1",
    slot<void(to<localizer_client_impl>), &localizer_service_impl::connect>,
    slot<void(to<localizer_client_impl>), &localizer_service_impl::disconnect>>;

template struct table<localizer_service_visitor_impl, "vs_localizer_service_visitor_interface_1",
    slot<void(to<localizer_service_impl>), &localizer_service_visitor_impl::visit>>;

template struct table<masked_bitmap_impl, "vs_masked_bitmap_interface_0",
    slot<uint32_t(), &masked_bitmap_impl::width>,
    slot<uint32_t(), &masked_bitmap_impl::height>,
    slot<void(to<thrice_interleaved_bytes_visitor_impl>), &masked_bitmap_impl::visit_pixels>,
    slot<void(to<bytes_visitor_impl>), &masked_bitmap_impl::visit_mask>>;

template struct table<masked_bitmap_visitor_impl, "vs_masked_bitmap_visitor_interface_0",
    slot<void(to<masked_bitmap_impl>), &masked_bitmap_visitor_impl::visit>>;

// The reserved slots keep the positions of the others; nothing calls them.
template struct table<profil_cmpnd_lr2d_impl, "vs_profil_cmpnd_lr2d_interface_3",
    slot<void(), &profil_cmpnd_lr2d_impl::reserved_1>,
    slot<void(), &profil_cmpnd_lr2d_impl::reserved_2>,
    slot<int32_t(), &profil_cmpnd_lr2d_impl::member_count>,
    slot<void(), &profil_cmpnd_lr2d_impl::reserved_4>,
    slot<void(), &profil_cmpnd_lr2d_impl::reserved_5>,
    slot<void(int32_t, to<string_visitor_impl>), &profil_cmpnd_lr2d_impl::member_uuid>>;

// These two have no base interface in entry 1: their operations begin there.
template struct rooted_table<service_factory_impl, "vs_service_factory_interface_1",
    slot<to<interface_impl>(to<bundle_context_impl>), &service_factory_impl::create>>;

template struct rooted_table<bundle_context_impl, "vs_bundle_context_interface_1",
    slot<void(const char16_t*, to<service_factory_impl>), &bundle_context_impl::register_factory>>;

// Without slots: its name alone marks an object as a visitor of services.
template struct table<service_visitor_impl, "vs_service_visitor_interface_0">;

template struct table<stat_source_impl, "vs_stat_source_interface_9",
    slot<void(to<string_visitor_impl>), &stat_source_impl::files>,
    slot<int32_t(const char16_t*), &stat_source_impl::find_field>,
    slot<bool(), &stat_source_impl::first>,
    slot<bool(), &stat_source_impl::next>,
    slot<void(int32_t, to<string_visitor_impl>), &stat_source_impl::field_text>>;

// clang-format on

} // namespace vs::project_resave::pinned
