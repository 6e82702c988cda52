// Pages of which one is shown, each behind a tab with its title. Who implements: the bundle. Who calls: the
// host.
#pragma once

#include <cstdint>

#include "host/toolkit/docker.h"

namespace vs::project_resave {

class tab_layout_impl : public interface_of<tab_layout_impl> {
public:
    static constexpr const char* name = "vs_tab_layout_interface_1";
    static constexpr const char16_t* element_kind = u"tab_layout";
    // The number never changes, nor do ids, titles and pages.
    virtual uint32_t page_count() = 0;
    // The same text in every session and language; none is told for an index past the last.
    virtual void page_id(uint32_t index, string_visitor visitor) = 0;
    virtual void page_title(uint32_t index, string_visitor visitor) = 0;
    // Null for an index past the last.
    virtual docker page(uint32_t index) = 0;
    // A page that is not enabled cannot be chosen; the one that is shown may become so and stay.
    virtual bool page_enabled(uint32_t index) = 0;
    virtual uint32_t active_page() = 0;
    // The user chose this page; nothing for one that is shown already, is not enabled or is not there.
    virtual void page_chosen(uint32_t index) = 0;
    using operations =
        operation_list<&tab_layout_impl::page_count, &tab_layout_impl::page_id, &tab_layout_impl::page_title,
                       &tab_layout_impl::page, &tab_layout_impl::page_enabled, &tab_layout_impl::active_page,
                       &tab_layout_impl::page_chosen>;

protected:
    ~tab_layout_impl() = default;
};

} // namespace vs::project_resave
