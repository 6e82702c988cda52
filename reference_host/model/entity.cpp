// Links to entities. All links to one entity share a record with its address, the anchor, which outlives the
// entity as long as there are links.
#include "reference_host/model/entity.h"

#include <utility>

namespace vestra {

entity_link::entity_link(entity* target) {
    if (!target) return;
    if (!target->anchor_) target->anchor_ = std::make_shared<entity*>(target);
    anchor_ = target->anchor_;
}

entity::~entity() { cut_links(); }

entity& entity::operator=(entity&& other) noexcept {
    if (this == &other) return *this;
    cut_links();
    // Links to the old content become null rather than lead to another element.
    id = other.id;
    caption = std::move(other.caption);
    meta_id = std::move(other.meta_id);
    validity = other.validity;
    parent = std::move(other.parent);
    anchor_ = std::move(other.anchor_);
    // Links to `other` follow its content.
    if (anchor_) *anchor_ = this;
    return *this;
}

void entity::cut_links() noexcept {
    if (anchor_) *anchor_ = nullptr;
}

} // namespace vestra
