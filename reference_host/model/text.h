// The text of the model is the text of the C functions: UTF-16.
#pragma once

#include "platform/wide_string.h"

namespace vestra {

using vs::project_resave::wide_string;
using vs::project_resave::wide_view;

} // namespace vestra
