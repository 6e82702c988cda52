#include "reference_host/model/counted.h"

namespace vestra {

// Defined here, so that all libraries of the process share one count.
std::size_t counted::living = 0;

std::size_t living_objects() { return counted::living; }

} // namespace vestra
