// Text and the count of living objects.
#pragma once

#include <cstddef>

#include "platform/wide_string.h"

namespace vestra {

// The text of the model is the text of the C functions: UTF-16.
using vs::project_resave::wide_string;
using vs::project_resave::wide_view;

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
