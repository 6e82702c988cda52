// vestra-resave panel: the bundle's window, as any host opens it, led by commands from the standard input.
#pragma once

#include <string>

#include "apps/vestra_resave/terminal_host.h"

namespace vestra::command {

struct panel_wish {
    std::string project;      // loaded by way of the source field; may be empty
    std::string open_project; // open in the host meanwhile; may be empty
};

int lead_panel(const panel_wish& wish, const common_options& options);

} // namespace vestra::command
