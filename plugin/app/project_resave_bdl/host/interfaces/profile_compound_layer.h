// The plug-in behind a compound profile layer, reached through vs_lr2d_get_plugin_interface. It belongs to
// the layer. Only the members are used here; the entries between stand for the plug-in's own operations.
#pragma once

#include "framework/border/visitors.h"

namespace vs::project_resave {

class profil_cmpnd_lr2d_impl : public interface_of<profil_cmpnd_lr2d_impl> {
public:
    static constexpr const char* name = "vs_profil_cmpnd_lr2d_interface_3";
    virtual void reserved_1() {}
    virtual void reserved_2() {}
    virtual int32_t member_count() = 0;
    virtual void reserved_4() {}
    virtual void reserved_5() {}
    // Tells the uuid text of the element that a member stands for.
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
