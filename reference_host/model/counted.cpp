#include "reference_host/model/counted.h"

namespace vestra {

// One number for all libraries of the process, so it stands in one of them.
std::size_t counted::living = 0;

std::size_t living_objects() { return counted::living; }

} // namespace vestra
