// A copy of the published tables of framework/; see framework/border/pinned.h.
#include "framework/border/pinned.h"
#include "framework/border/referent.h"
#include "framework/border/visitors.h"
#include "framework/bundle_entry.h"

namespace vs::project_resave::pinned {

// "vs_identity_interface_0", the table with one entry through which every object is asked for its interfaces,
// and entry 0 of all other tables, which returns it.
static_assert(std::is_same_v<decltype(border::identity_table),
                             void (*const[1])(const void* table, void* instance, const char* name,
                                              const void** found_table, void** found_instance)>);
static_assert(std::is_same_v<border::identity_of_entry,
                             void (*)(interface_pointer* out, const void* table, void* instance)>);

// One slot per line.
// clang-format off

template struct rooted_table<referrer_impl, "vs_referrer_interface_1",
    slot<void(), &referrer_impl::on_referent_closed>,
    slot<bool(), &referrer_impl::keeps_alive>>;

template struct rooted_table<referent_impl, "vs_referent_interface_1",
    slot<uint32_t(to<referrer_impl>), &referent_impl::add_referrer>,
    slot<void(to<referrer_impl>), &referent_impl::remove_referrer>>;

template struct table<string_visitor_impl, "vs_string_visitor_interface_0",
    slot<void(const char16_t*), &string_visitor_impl::visit>>;

template struct table<bytes_visitor_impl, "vs_bytes_visitor_interface_0",
    slot<void(const uint8_t*, int32_t, uint32_t, uint32_t), &bytes_visitor_impl::visit>>;

template struct table<thrice_interleaved_bytes_visitor_impl,
        "vs_thrice_interleaved_bytes_visitor_interface_0",
    slot<void(const uint8_t*, int32_t, uint32_t, uint32_t), &thrice_interleaved_bytes_visitor_impl::visit>>;

template struct rooted_table<bundle_impl, "vs_bundle_interface_1",
    slot<void(to<bundle_context_impl>), &bundle_impl::start>,
    slot<void(), &bundle_impl::reserved_2>,
    slot<void(), &bundle_impl::reserved_3>,
    slot<void(), &bundle_impl::reserved_4>,
    slot<void(), &bundle_impl::reserved_5>>;

// clang-format on

} // namespace vs::project_resave::pinned
