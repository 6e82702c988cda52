// Containers of entities. A container is an entity itself and owns its members.
#pragma once

#include <utility>
#include <vector>

#include "reference_host/model/entity.h"

namespace vestra {

// A container as its members' common class sees it, for code that does not know their type.
class entity_list : public entity {
public:
    using entity::entity;
    entity_list& operator=(entity_list&&) noexcept = default;

    virtual std::uint32_t count() const = 0;
    // Returns null for an index at or beyond the count.
    virtual entity* at(std::uint32_t index) const = 0;
    // Destroys all members.
    virtual void clear() = 0;
};

// A container of T, which owns its members through pointers, so their addresses stay valid until they are
// removed, even if the container is moved.
template <class T>
class owned_list : public entity_list {
public:
    using entity_list::entity_list;
    owned_list& operator=(owned_list&&) noexcept = default;

    std::uint32_t count() const override { return static_cast<std::uint32_t>(members().size()); }
    T* at(std::uint32_t index) const override {
        return index < members().size() ? members()[index].get() : nullptr;
    }
    void clear() override {
        members_.clear();
        first_gap_ = none;
    }

    // Appends a member, which must not be null, and returns it.
    T& add(std::unique_ptr<T> member) {
        close_gaps();
        return *members_.emplace_back(std::move(member));
    }
    // Creates a member in place from the arguments of its constructor.
    template <class... Arguments>
    T& make(Arguments&&... arguments) {
        return add(std::make_unique<T>(std::forward<Arguments>(arguments)...));
    }
    // Destroys the member; later members move down by one. An index at or beyond the count is ignored.
    // Removing members from the last to the first takes constant time for each, as long as nothing else is
    // asked in between; otherwise a removal is linear in the count.
    void remove(std::uint32_t index) {
        if (index >= first_gap_) close_gaps();
        if (index >= members_.size()) return;
        members_[index].reset();
        first_gap_ = index;
    }
    // Returns the members in order, without null pointers. Valid until the next change. Not a pure read: it
    // may close gaps first.
    const std::vector<std::unique_ptr<T>>& members() const {
        close_gaps();
        return members_;
    }

private:
    static constexpr std::size_t none = ~std::size_t{0};

    // Gaps are closed only on the next access, so that removing n members from the last to the first stays
    // linear.
    void close_gaps() const {
        if (first_gap_ == none) return;
        std::erase(members_, nullptr);
        first_gap_ = none;
    }

    // Mutable, because closing the gaps does not change what a caller sees.
    mutable std::vector<std::unique_ptr<T>> members_; // null where a member was removed
    // The index removed last; `none` without a gap. Smaller indexes are still right.
    mutable std::size_t first_gap_ = none;
};

} // namespace vestra
