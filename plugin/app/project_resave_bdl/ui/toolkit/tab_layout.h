// Pages behind tabs.
#pragma once

#include <functional>
#include <vector>

#include "host/toolkit/tab_layout.h"
#include "ui/toolkit/element_base.h"

namespace vs::project_resave::toolkit {

class tab_layout final : public element_base<polymorphic<tab_layout_impl>> {
public:
    tab_layout() : element_base(tab_layout_impl::element_kind) {}

    // Puts a page behind the others; its content must outlive the layout. The first one is shown at first.
    void add(wide_string id, wide_string title, const docker& content);
    // For an index inside.
    void set_enabled(uint32_t index, bool on) { assign(pages_.at(index).enabled, on); }
    using element_base::set_enabled;
    uint32_t active() const { return active_; }
    // Called after the user has chosen another page.
    void set_on_page_changed(std::function<void()> handler) { page_changed_ = std::move(handler); }

    uint32_t page_count() override { return static_cast<uint32_t>(pages_.size()); }
    void page_id(uint32_t index, string_visitor visitor) override;
    void page_title(uint32_t index, string_visitor visitor) override;
    docker page(uint32_t index) override { return is_inside(index) ? pages_[index].content : docker(); }
    bool page_enabled(uint32_t index) override { return is_inside(index) && pages_[index].enabled; }
    uint32_t active_page() override { return active_; }
    void page_chosen(uint32_t index) override;

private:
    struct page_row {
        wide_string id;
        wide_string title;
        docker content;
        bool enabled = true;
    };
    bool is_inside(uint32_t index) const { return index < pages_.size(); }

    std::vector<page_row> pages_;
    uint32_t active_ = 0;
    std::function<void()> page_changed_;
};

} // namespace vs::project_resave::toolkit
