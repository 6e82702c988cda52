// Base of outlines: the connection to the host. A derived class answers for the rows and the columns.
#pragma once

#include "host/toolkit/outline.h"
#include "ui/toolkit/element_base.h"

namespace vs::project_resave::toolkit {

class outline : public element_base<polymorphic<outline_impl>> {
public:
    // Has the host ask for everything again. Rows it was given before are void.
    void refresh();

    void set_events(outline_events events) override { events_.assign(events); }

protected:
    outline() : element_base(outline_impl::element_kind) {}
    ~outline() = default;

private:
    weak_ref<outline_events_impl> events_;
    uint32_t refreshes_ = 0; // a new number is a change that the observer is told of
};

} // namespace vs::project_resave::toolkit
