// The common part of all elements of a project: identity, caption, meta identifier, parent, validity.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "reference_host/model/counted.h"
#include "reference_host/model/uuid.h"

namespace vestra {

// The values are those that the C functions return. Note that yes is 0.
enum class three_state : uint32_t { yes = 0, no = 1, mixed = 2 };

class entity;

// A non-owning pointer to an entity; it becomes null when the entity is destroyed. The first link to an
// entity allocates a small record, which all links to it share.
class entity_link {
public:
    entity_link() = default;
    // Null makes an empty link.
    entity_link(entity* target);
    // Returns null if the entity was destroyed or none was set.
    entity* get() const { return anchor_ ? *anchor_ : nullptr; }
    explicit operator bool() const { return get() != nullptr; }

private:
    std::shared_ptr<entity*> anchor_;
};

// Base of every class with a uuid. Derived classes use single inheritance with entity as their first base, so
// a handle to the object and one to its entity have the same address. Entities cannot be copied. Move
// assignment also takes over the links to `other`; links to the previous content become null.
class entity : public counted {
public:
    explicit entity(std::string meta_identifier) : meta_id(std::move(meta_identifier)) {}
    virtual ~entity();
    entity(const entity&) = delete;
    entity& operator=(const entity&) = delete;
    // Takes over the content and the links; `other` keeps a valid but unspecified content.
    entity& operator=(entity&& other) noexcept;

    // Without a value, nothing can refer to the entity.
    uuid id;
    wide_string caption;
    // Which kind of element it is, as bundles see it; narrow text.
    std::string meta_id;
    // As read from the file. The host does not look at the data to find out.
    three_state validity = three_state::yes;
    // Independent of ownership: any entity can be the parent, such as a folder of the project.
    entity_link parent;

private:
    friend class entity_link;
    void cut_links() noexcept;

    std::shared_ptr<entity*> anchor_; // created for the first link, shared by all links to this entity
};

} // namespace vestra
