// What a bundle's elements answer, walked and written down: the host's way to a window without a window.
//
// The walk asks only through the interface tables. What a view holds is what was answered when it was asked;
// after an event it is walked anew. The elements themselves stay the bundle's and must outlive the view.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/toolkit/docker.h"
#include "reference_host/model/text.h"

namespace vestra::toolkit {

struct button_view {
    wide_string text;
    std::int32_t code;
};

// What a kind of element does not have stays empty.
struct element_view {
    vs::project_resave::element live;
    wide_string kind;
    bool enabled = true;
    bool visible = true;
    wide_string caption; // of a frame, a field's button, a docker
    wide_string text;
    std::vector<button_view> buttons;
    std::vector<element_view> children; // cells row by row; of a docker the main element, then its button box
};

element_view look_at(const vs::project_resave::element& root);

// The first of this kind, parents before children; null if there is none.
const element_view* find(const element_view& root, wide_view kind);

// The user's events; false where the element has no such thing or is not enabled, and for what the bundle
// answers. `enter_text`: whether the text was taken. `press`: whether the window closes.
bool enter_text(const element_view& field, const wide_string& text);
bool press(const element_view& box, std::int32_t code);

// One line for each element, indented by depth, with the lines of a long text below it; in UTF-8. What is not
// visible is left out.
std::string described(const element_view& root);

} // namespace vestra::toolkit
