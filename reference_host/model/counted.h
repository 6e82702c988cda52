// Counts the living objects of the host, so that whoever creates one can be held to destroying it.
#pragma once

#include <cstddef>

namespace vestra {

// Base of everything a handle can point to. Copies and moved-from objects count, for they live too.
class counted {
public:
    counted() noexcept { ++living; }
    counted(const counted&) noexcept { ++living; }
    counted& operator=(const counted&) noexcept = default;
    ~counted() { --living; }

private:
    static std::size_t living;
    friend std::size_t living_objects();
};

// Zero when every host object was destroyed. Asked on the user-interface thread, as all of the host.
std::size_t living_objects();

} // namespace vestra
