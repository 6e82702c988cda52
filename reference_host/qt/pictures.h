// Converts the pictures of a bundle into icons.
#pragma once

#include <QIcon>
#include <functional>

#include "host/interfaces/masked_bitmap.h"

namespace vestra::qt {

// Returns the picture that `tells` passes to its visitor, in its own size and enlarged pixel by pixel for
// screens with a higher density. Returns a null icon for a picture of width 0 or if no picture is passed.
QIcon icon_told(const std::function<void(vs::project_resave::masked_bitmap_visitor visitor)>& tells);

} // namespace vestra::qt
