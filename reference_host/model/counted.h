// The text type of the model, and the count of living objects.
#pragma once

#include <cstddef>

#include "platform/wide_string.h"

namespace vestra {

// The model uses the same text type as the C functions: UTF-16.
using vs::project_resave::wide_string;
using vs::project_resave::wide_view;

// Base of every class that a handle can point to. Copies and moved-from objects are counted too, because they
// are alive. The count is not atomic: a model object on another thread breaks it.
class counted {
public:
    counted() noexcept { ++living; }
    counted(const counted&) noexcept { ++living; }
    counted& operator=(const counted&) noexcept = default;
    ~counted() { --living; }

private:
    // One number for the process; see counted.cpp.
    static std::size_t living;
    friend std::size_t living_objects();
};

// Returns zero once every host object is destroyed. User-interface thread only, as everything in the host.
std::size_t living_objects();

} // namespace vestra
