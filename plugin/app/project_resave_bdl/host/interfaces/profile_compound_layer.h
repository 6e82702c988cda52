// The plug-in of a compound profile layer. Its identity is what vs_lr2d_get_plugin_interface points to.
//
// Who implements: the plug-in that draws the layer. Who calls: the resave, which needs only the members. The
// object belongs to the layer and is destroyed with it. It is not a referent, so do not keep it. Main thread
// only.
#pragma once

#include "framework/border/visitors.h"

namespace vs::project_resave {

// The reserved entries are the plug-in's own operations: never call them.
class profil_cmpnd_lr2d_impl : public interface_of<profil_cmpnd_lr2d_impl> {
public:
    static constexpr const char* name = "vs_profil_cmpnd_lr2d_interface_3";
    virtual void reserved_1() {}
    virtual void reserved_2() {}
    // Returns the number of profiles that the layer is made of.
    virtual int32_t member_count() = 0;
    virtual void reserved_4() {}
    virtual void reserved_5() {}
    // Passes the uuid, as text, of the element that a member represents. Does not call the visitor for an
    // index outside the count.
    virtual void member_uuid(int32_t index, string_visitor visitor) = 0;
    using operations =
        operation_list<&profil_cmpnd_lr2d_impl::reserved_1, &profil_cmpnd_lr2d_impl::reserved_2,
                       &profil_cmpnd_lr2d_impl::member_count, &profil_cmpnd_lr2d_impl::reserved_4,
                       &profil_cmpnd_lr2d_impl::reserved_5, &profil_cmpnd_lr2d_impl::member_uuid>;

protected:
    ~profil_cmpnd_lr2d_impl() = default;
};
using profil_cmpnd_lr2d = interface_to<profil_cmpnd_lr2d_impl>;

} // namespace vs::project_resave
