// A snapshot of the elements of a bundle: lets programs read and use a window without a screen.
//
// The elements are read only through the interface tables. A view is not updated; read it again after an
// event. The elements belong to the bundle and must outlive the view.
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

// One button of a button box: its text and the code that it sends.
struct button_view {
    wide_string text;
    std::int32_t code;
};

// One element with its values and everything inside it. Members that a kind of element does not have stay
// empty or null.
struct element_view {
    static constexpr std::uint32_t none = UINT32_MAX;

    // The element itself, to which events are sent; borrowed from the bundle.
    vs::project_resave::element live;
    wide_string kind;
    wide_string id;   // of pages and tools: the same in every language
    std::string name; // short, for commands; see `name_elements`
    bool enabled = true;
    bool visible = true;
    wide_string caption; // of an element that has a label in addition to its content
    wide_string text;    // content of a field; number with its unit; hint of a tool
    std::optional<vs::project_resave::file_input_mode> mode; // of a field
    wide_string filter;                                      // of a field
    mark check = mark::none;
    std::vector<button_view> buttons;   // of a button box
    std::vector<wide_string> choices;   // of a dropdown
    std::uint32_t current = none;       // index of the current choice or page
    std::vector<row_view> rows;         // of an outline
    std::vector<element_view> children; // cells row by row; docker: main element, button box
};

// Reads the element and everything inside it: all pages and all rows, also those that are not visible.
element_view look_at(const vs::project_resave::element& root);

// Returns the first element of this kind, parents before children; null if there is none.
const element_view* find(const element_view& root, wide_view kind);

// Events of the user. They return false if the element does not support the event, is disabled, or if the
// bundle rejects it. `enter_text` returns true if the text was accepted, `press` if the window closes.
//
// An event can run a whole operation of the bundle with its boxes before it returns, and can change other
// elements.
bool enter_text(const element_view& field, const wide_string& text);
bool press(const element_view& box, std::int32_t code);
bool click(const element_view& button);
// Sets a check box or presses a radio button, which can only be switched on. Returns true if the event was
// sent, even if the element was in this state before.
bool set_check(const element_view& box, bool on);
// Selects a row of a dropdown or a page. Returns true if it is the current one afterwards.
bool choose(const element_view& list, std::uint32_t index);

} // namespace vestra::toolkit
