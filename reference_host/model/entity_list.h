// Containers of entities. A container is an entity itself and owns what is in it.
#pragma once

#include <utility>
#include <vector>

#include "reference_host/model/entity.h"

namespace vestra {

class entity_list : public entity {
public:
    using entity::entity;
    entity_list& operator=(entity_list&&) noexcept = default;

    virtual std::uint32_t count() const = 0;
    // Null at and beyond the count.
    virtual entity* at(std::uint32_t index) const = 0;
    // Destroys all that is in the container.
    virtual void clear() = 0;
};

template <class T>
class owned_list : public entity_list {
public:
    using entity_list::entity_list;
    owned_list& operator=(owned_list&&) noexcept = default;

    std::uint32_t count() const override { return static_cast<std::uint32_t>(members_.size()); }
    T* at(std::uint32_t index) const override {
        return index < members_.size() ? members_[index].get() : nullptr;
    }
    void clear() override { members_.clear(); }

    T& add(std::unique_ptr<T> member) { return *members_.emplace_back(std::move(member)); }
    // Makes the member in place, from the arguments of its constructor.
    template <class... Arguments>
    T& make(Arguments&&... arguments) {
        return add(std::make_unique<T>(std::forward<Arguments>(arguments)...));
    }
    // Destroys the member; those behind it move down. An index at or beyond the count is ignored.
    void remove(std::uint32_t index) {
        if (index < members_.size()) members_.erase(members_.begin() + index);
    }
    const std::vector<std::unique_ptr<T>>& members() const { return members_; }

private:
    std::vector<std::unique_ptr<T>> members_;
};

} // namespace vestra
