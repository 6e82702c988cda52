// Settings of the run that writes the 2D scenes of a project to files of their own.
#pragma once

#include <cstdint>

namespace vs::project_resave {

// Filled by the front end when the user starts; lives for the call.
struct scene_file_settings {
    // Not owned. The front end sees that it is not empty; the run never reads it.
    const char16_t* folder = nullptr;
    uint32_t on_exists = 0; // a scene file that exists: 0 rewrite it, 1 find a new name
};

} // namespace vs::project_resave
