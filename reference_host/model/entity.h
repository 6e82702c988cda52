// What every element of a project has: identity, caption, meta identifier, parent, validity.
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

// A pointer to an entity that another owns; it turns null when the entity is destroyed.
class entity_link {
public:
    entity_link() = default;
    entity_link(entity* target);
    entity* get() const { return anchor_ ? *anchor_ : nullptr; }
    explicit operator bool() const { return get() != nullptr; }

private:
    std::shared_ptr<entity*> anchor_;
};

// Base of all that has a uuid. Classes derive from it singly and first, so a handle to a derived object and
// one to its entity are the same address. An entity is never copied. Assigning by move takes over all that
// the other is, links to it included; links to what stood here before turn null.
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

    std::shared_ptr<entity*> anchor_; // made for the first link, shared by all links to this entity
};

} // namespace vestra
