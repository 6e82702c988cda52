// A window as text, and short names for its elements for use in commands and scripts.
#pragma once

#include <string_view>

#include "reference_host/toolkit/element_view.h"

namespace vestra::toolkit {

// Gives a name to each element that takes an event. The name of a page is its id without the start that all
// ids of its layout share. Any other name is the name of the page, a word for the kind, and a number among
// that kind on the page in the order of the walk: "field1", "prj/check3". Names do not depend on the
// language, and are stable as long as the window is built in the same way.
void name_elements(element_view& root);

// Returns the element with this name. If there is none, returns all named elements with this caption,
// compared without regard to letter case.
std::vector<const element_view*> all_named(const element_view& root, const std::string& name);

// Returns the row of "NAME/ROW/ROW...", where ROW is a row number as printed or, if no row has that number, a
// row text without regard to letter case. A text that contains "/" can only be given by its number. `outline`
// is set to the element that contains it. Returns null if there is no such row, and leaves `outline`
// unchanged.
const row_view* find_row(const element_view& root, const std::string& path, const element_view*& outline);

// Returns the host's word for a kind of element or for a note in brackets, in the current language. `english`
// is the kind's name in the interfaces.
std::string host_word(std::string_view english);

// Returns the rows of a dropdown in one line, such as "None | Tab".
std::string choices_of(const element_view& dropdown);

// Prints one line for each visible element, indented by depth and beginning with its name if it has one,
// followed by the lines of a long text and the rows of an outline. The result is UTF-8 without terminal
// control characters.
std::string described(const element_view& root);

} // namespace vestra::toolkit
