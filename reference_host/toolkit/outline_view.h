// Outlines, tool bars and tools as the walker sees them: what they add to an element's view, and the user's
// events on them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/toolkit/outline.h"
#include "reference_host/model/counted.h"

namespace vestra::toolkit {

struct element_view;

enum class mark { none, off, on, mixed };

// One row of an outline with what stands below it, whether that is expanded or not.
struct row_view {
    wide_string text;
    mark check = mark::none;
    bool valid = true;
    bool highlighted = false;
    bool expanded = true;
    std::int32_t image = -1;                              // index of its picture; -1 without one
    vs::project_resave::outline_row* reference = nullptr; // for events; good until the outline changes
    std::vector<row_view> rows;
};

// Each adds to the view what one interface has to say, and nothing if the element does not speak it.
void add_outline(element_view& view); // caption, rows
void add_toolbar(element_view& view); // its tools, as children
void add_tool(element_view& view);    // id, caption, text (the hint)

// One line for each row, indented by depth, led by its number below its parent, behind `path` and the
// parent's
// ("list1/1", "list1/1/2"), with its mark: "[x]", "[ ]", or "[-]" for mixed; in UTF-8.
void describe_rows(std::string& out, const std::vector<row_view>& rows, const std::string& indent,
                   const std::string& path = {});

// The user's events; false where there is no such thing or the element is not enabled. A highlighted row is
// the current one, too.
bool check_row(const element_view& outline, const row_view& row, bool on);
bool highlight_row(const element_view& outline, const row_view& row, bool on);
bool click_tool(const element_view& tool);

} // namespace vestra::toolkit
