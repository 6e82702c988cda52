// The common part of all elements of a project: identity, caption, meta identifier, parent, validity.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "reference_host/model/counted.h"
#include "reference_host/model/uuid.h"

namespace vestra {

// The values are those that the C functions return.
enum class three_state : uint32_t { yes = 0, no = 1, mixed = 2 };

class entity;

// A non-owning pointer to an entity; it becomes null when the entity is destroyed.
class entity_link {
public:
    entity_link() = default;
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
    entity& operator=(entity&& other) noexcept;

    uuid id;
    wide_string caption;
    std::string meta_id;
    three_state validity = three_state::yes;
    entity_link parent;

private:
    friend class entity_link;
    void cut_links() noexcept;

    std::shared_ptr<entity*> anchor_; // created for the first link, shared by all links to this entity
};

} // namespace vestra
