// The pictures of a bundle as icons.
#pragma once

#include <QIcon>
#include <functional>

#include "host/interfaces/masked_bitmap.h"

namespace vestra::qt {

// Returns the picture that `tells` passes to the visitor, in its own size and, pixel by pixel, in the sizes
// that screens of a higher density show it in. Null for a picture of width 0 and for none.
QIcon icon_told(const std::function<void(vs::project_resave::masked_bitmap_visitor visitor)>& tells);

} // namespace vestra::qt
