// A frame around a grid with cells over several columns. The element speaks the groupbox, grid_layout and
// grid_span_layout interfaces; it has nothing to say of its own but that it is there. Who implements: the
// bundle. Who calls: the host.
#pragma once

#include "framework/border/interface.h"

namespace vs::project_resave {

class groupbox_span_impl : public interface_of<groupbox_span_impl> {
public:
    static constexpr const char* name = "vs_groupbox_span_interface_1";
    static constexpr const char16_t* element_kind = u"groupbox_span";
    using operations = operation_list<>;

protected:
    ~groupbox_span_impl() = default;
};

} // namespace vs::project_resave
