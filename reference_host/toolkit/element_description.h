// A window as text, and the short names by which a person or a script speaks of what is in it.
#pragma once

#include <string_view>

#include "reference_host/toolkit/element_view.h"

namespace vestra::toolkit {

// Gives a name to each element that takes an event. A page bears its id without what all ids of its layout
// begin with. Anything else bears a word for its kind and its number among those of the same page, in the
// order of the walk, behind the page's name: "field1", "prj/check3". A name is the same as long as the window
// is built the same.
void name_elements(element_view& root);

// The element of this name, or, where no name fits, those that have a name and whose caption it is, in any
// letter case.
std::vector<const element_view*> all_named(const element_view& root, const std::string& name);

// The row of "NAME/ROW/ROW...", where a ROW is the number that the description shows or, where no row has it,
// a text. `outline` is the element it stands in. Null if there is none.
const row_view* find_row(const element_view& root, const std::string& path, const element_view*& outline);

// What the host calls a kind of element, or what it says in brackets, in the language in force. English is
// what the interfaces are named in, and how it is asked for.
std::string host_word(std::string_view english);

// The rows of a dropdown: "None | Tab".
std::string choices_of(const element_view& dropdown);

// One line for each element, indented by depth, led by its name if it has one, with the lines of a long text
// and the rows of an outline below it; in UTF-8, without signs that steer a terminal. What is not visible is
// left out.
std::string described(const element_view& root);

} // namespace vestra::toolkit
