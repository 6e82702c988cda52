// What a bundle's elements answer, walked and written down: the host's way to a window without a window.
//
// The walk asks only through the interface tables. What a view holds is what was answered when it was asked;
// after an event it is walked anew. The elements themselves stay the bundle's and must outlive the view.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "host/toolkit/docker.h"
#include "host/toolkit/file_input.h"
#include "reference_host/model/counted.h"
#include "reference_host/toolkit/outline_view.h"

namespace vestra::toolkit {

struct button_view {
    wide_string text;
    std::int32_t code;
};

// What a kind of element does not have stays empty.
struct element_view {
    static constexpr std::uint32_t none = UINT32_MAX;

    vs::project_resave::element live;
    wide_string kind;
    wide_string id;   // of a page and of a tool: the same in every language
    std::string name; // short, for commands; see `name_elements`
    bool enabled = true;
    bool visible = true;
    wide_string caption; // of what has words of its own beside its content
    wide_string text;    // the content of a field; a figure with its unit; a hint
    std::optional<vs::project_resave::file_input_mode> mode; // of a field
    wide_string filter;                                      // of a field
    mark check = mark::none;
    std::vector<button_view> buttons;   // of a button box
    std::vector<wide_string> choices;   // of a dropdown
    std::uint32_t current = none;       // the choice, or the page, that is shown
    std::vector<row_view> rows;         // of an outline
    std::vector<element_view> children; // cells row by row; of a docker the main element, then its button box
};

element_view look_at(const vs::project_resave::element& root);

// The first of this kind, parents before children; null if there is none.
const element_view* find(const element_view& root, wide_view kind);

// The user's events; false where the element has no such thing or is not enabled, and for what the bundle
// answers. `enter_text`: whether the text was taken. `press`: whether the window closes.
bool enter_text(const element_view& field, const wide_string& text);
bool press(const element_view& box, std::int32_t code);
bool click(const element_view& button);
// A radio button can only be put on.
bool set_check(const element_view& box, bool on);
// A row of a dropdown, or a page.
bool choose(const element_view& list, std::uint32_t index);

} // namespace vestra::toolkit
