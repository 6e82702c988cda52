// Pages of which one is shown, each with a tab and a title. Indexes count from 0.
//
// Who implements: the bundle. Who calls: the host. The object is an element too: host/toolkit/element.h says
// how long it lives and how it reports a change. Main thread only.
#pragma once

#include <cstdint>

#include "host/toolkit/docker.h"

namespace vs::project_resave {

class tab_layout_impl : public interface_of<tab_layout_impl> {
public:
    static constexpr const char* name = "vs_tab_layout_interface_1";
    static constexpr const char16_t* element_kind = u"tab_layout";
    // Returns the number of pages, which never changes, like their ids, titles and content.
    virtual uint32_t page_count() = 0;
    // Passes the page's name, the same in every session and language; does not call the visitor for an index
    // past the last.
    virtual void page_id(uint32_t index, string_visitor visitor) = 0;
    // Passes the title on the tab; does not call the visitor for an index past the last.
    virtual void page_title(uint32_t index, string_visitor visitor) = 0;
    // Returns the page; null for an index past the last.
    virtual docker page(uint32_t index) = 0;
    // False if the user cannot choose the page, and for an index past the last. The page that is shown can
    // become disabled too; it stays shown.
    virtual bool page_enabled(uint32_t index) = 0;
    // Returns the index of the page that is shown.
    virtual uint32_t active_page() = 0;
    // The user chose this page, which is shown from now on. Nothing changes if the page is already shown or
    // is not enabled, or for an index past the last.
    virtual void page_chosen(uint32_t index) = 0;
    using operations =
        operation_list<&tab_layout_impl::page_count, &tab_layout_impl::page_id, &tab_layout_impl::page_title,
                       &tab_layout_impl::page, &tab_layout_impl::page_enabled, &tab_layout_impl::active_page,
                       &tab_layout_impl::page_chosen>;

protected:
    ~tab_layout_impl() = default;
};

} // namespace vs::project_resave
