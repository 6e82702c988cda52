// Implements a layer's interfaces and its table of extra values. These objects must live as long as the
// layer.
#include "reference_host/api/layer_attachment.h"

#include "reference_host/api/handles.h"

namespace vestra::api {

layer_attachment::layer_attachment(layer& owner)
    : profile_(owner), legend_(owner), profile_identity_(vs::project_resave::identity_of(profile_)),
      legend_identity_(vs::project_resave::identity_of(legend_)) {}

const vs_table_extra* layer_attachment::extras(extra_table& values) {
    // Built anew each time, since values may have been added or moved since the last call.
    rows_.clear();
    for (extra& row : values.rows()) rows_.push_back({row.key.c_str(), to_handle<vs_any>(&row.value)});
    table_ = {static_cast<std::int32_t>(rows_.size()), rows_.data()};
    return &table_;
}

std::int32_t layer_attachment::profile::member_count() {
    return layer_.members ? static_cast<std::int32_t>(layer_.members->size()) : 0;
}

void layer_attachment::profile::member_uuid(std::int32_t index, vs::project_resave::string_visitor visitor) {
    if (index < 0 || index >= member_count()) return;
    vs::project_resave::tell(visitor, (*layer_.members)[static_cast<std::size_t>(index)]);
}

vs_scn_2d* layer_attachment::legend::scene() { return to_handle<vs_scn_2d>(layer_.legend.get()); }

layer_attachment& attachment_of(layer& owner) {
    // The model must not know the C functions, so it keeps the attachment as an untyped pointer.
    if (!owner.attached) owner.attached = std::make_shared<layer_attachment>(owner);
    return *static_cast<layer_attachment*>(owner.attached.get());
}

} // namespace vestra::api
