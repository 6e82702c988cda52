// The part of an element view for outlines, tool bars and tools, and the events of a user on them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/toolkit/outline.h"
#include "reference_host/model/counted.h"

namespace vestra::toolkit {

// Declared in element_view.h, which includes this header.
struct element_view;

enum class mark { none, off, on, mixed };

// A row of an outline with the rows below it, whether expanded or not.
struct row_view {
    wide_string text;
    mark check = mark::none;
    bool valid = true;
    bool highlighted = false;
    bool expanded = true;
    std::int32_t image = -1;                              // index of its picture; -1 if none
    vs::project_resave::outline_row* reference = nullptr; // for events; valid until the outline changes
    std::vector<row_view> rows;
};

// Each adds the values of one interface; it does nothing if the element does not implement it. An outline is
// read with all rows at any depth, so the cost is linear in their number.
void add_outline(element_view& view); // caption, rows
void add_toolbar(element_view& view); // its tools, as children
void add_tool(element_view& view);    // id, caption, text (the hint)

// Prints one line for each row, indented by depth: the path of its parent, its number below the parent
// ("list1/1", "list1/1/2"), and its mark: "[x]", "[ ]", or "[-]" for mixed. The result is UTF-8.
void describe_rows(std::string& out, const std::vector<row_view>& rows, const std::string& indent,
                   const std::string& path = {});

// Events of the user. They return false if the outline does not support the event or is disabled. The rows
// must come from the last view of the outline. Highlighting a row also makes it the current one.
bool check_row(const element_view& outline, const row_view& row, bool on);
bool highlight_row(const element_view& outline, const row_view& row, bool on);
bool click_tool(const element_view& tool);

} // namespace vestra::toolkit
