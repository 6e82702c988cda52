// Walks the elements of a window through the interface tables, and sends them the events of a user.
#include "reference_host/toolkit/element_view.h"

#include "host/toolkit/button.h"
#include "host/toolkit/button_box.h"
#include "host/toolkit/checkbox.h"
#include "host/toolkit/dropdownex.h"
#include "host/toolkit/grid_layout.h"
#include "host/toolkit/groupbox.h"
#include "host/toolkit/label.h"
#include "host/toolkit/label_ex.h"
#include "host/toolkit/multiline_output.h"
#include "host/toolkit/output.h"
#include "host/toolkit/radiobutton.h"
#include "host/toolkit/split_layout.h"
#include "host/toolkit/stack_layout.h"
#include "host/toolkit/tab_layout.h"
#include "reference_host/toolkit/told.h"

namespace vestra::toolkit {

using namespace vs::project_resave;

namespace {

// Each function adds the values of one interface; it does nothing if the element does not implement it.

void add_text(element_view& view) {
    if (const auto label = cast_to<label_impl>(view.live))
        view.text = told<&label_impl::text>(label);
    else if (const auto output = cast_to<output_impl>(view.live))
        view.text = told<&output_impl::text>(output);
    else if (const auto lines = cast_to<multiline_output_impl>(view.live))
        view.text = told<&multiline_output_impl::text>(lines);
}

void add_figure(element_view& view) {
    const auto figure = cast_to<label_ex_impl>(view.live);
    if (!figure) return;
    view.caption = told<&label_ex_impl::caption>(figure);
    view.text = told<&label_ex_impl::value>(figure) + told<&label_ex_impl::unit>(figure);
}

void add_field(element_view& view) {
    const auto field = cast_to<file_input_impl>(view.live);
    if (!field) return;
    view.caption = told<&file_input_impl::button_caption>(field);
    view.text = told<&file_input_impl::text>(field);
    view.mode = call<&file_input_impl::mode>(field);
    view.filter = told<&file_input_impl::filter>(field);
}

void add_button(element_view& view) {
    const auto button = cast_to<button_impl>(view.live);
    if (!button) return;
    view.caption = told<&button_impl::caption>(button);
    view.text = told<&button_impl::hint>(button);
}

void add_check(element_view& view) {
    bool on = false;
    if (const auto box = cast_to<checkbox_impl>(view.live)) {
        view.caption = told<&checkbox_impl::caption>(box);
        on = call<&checkbox_impl::state>(box) == checkbox_state::checked;
    } else if (const auto radio = cast_to<radiobutton_impl>(view.live)) {
        view.caption = told<&radiobutton_impl::caption>(radio);
        on = call<&radiobutton_impl::checked>(radio);
    } else {
        return;
    }
    view.check = on ? mark::on : mark::off;
}

void add_choices(element_view& view) {
    const auto list = cast_to<dropdownex_impl>(view.live);
    if (!list) return;
    view.caption = told<&dropdownex_impl::label>(list);
    const std::uint32_t count = call<&dropdownex_impl::row_count>(list);
    for (std::uint32_t index = 0; index < count; ++index)
        view.choices.push_back(told<&dropdownex_impl::row_text>(list, index));
    view.current = call<&dropdownex_impl::current_row>(list);
}

void add_buttons(element_view& view) {
    const auto box = cast_to<button_box_impl>(view.live);
    const std::uint32_t count = call<&button_box_impl::entry_count>(box);
    for (std::uint32_t index = 0; index < count; ++index)
        view.buttons.push_back(
            {told<&button_box_impl::entry_text>(box, index), call<&button_box_impl::entry_code>(box, index)});
}

void add_child(element_view& view, const element& child) {
    if (child) view.children.push_back(look_at(child));
}

// An element without the interface gives a null pair here, for which every count is 0.
void add_cells(element_view& view) {
    const auto grid = cast_to<grid_layout_impl>(view.live);
    const std::uint32_t rows = call<&grid_layout_impl::rows>(grid);
    const std::uint32_t columns = call<&grid_layout_impl::columns>(grid);
    for (std::uint32_t row = 0; row < rows; ++row)
        for (std::uint32_t column = 0; column < columns; ++column)
            add_child(view, call<&grid_layout_impl::child>(grid, row, column));
}

void add_parts(element_view& view) {
    const auto stack = cast_to<stack_layout_impl>(view.live);
    const std::uint32_t count = call<&stack_layout_impl::child_count>(stack);
    for (std::uint32_t index = 0; index < count; ++index)
        add_child(view, call<&stack_layout_impl::child>(stack, index));
    const auto split = cast_to<split_layout_impl>(view.live);
    add_child(view, call<&split_layout_impl::top>(split));
    add_child(view, call<&split_layout_impl::bottom>(split));
}

void add_frame(element_view& view) {
    if (const auto frame = cast_to<groupbox_impl>(view.live))
        view.caption = told<&groupbox_impl::caption>(frame);
}

void add_docker(element_view& view) {
    const auto docker = cast_to<docker_impl>(view.live);
    if (!docker) return;
    view.caption = told<&docker_impl::title>(docker);
    view.text = told<&docker_impl::description>(docker);
    add_child(view, call<&docker_impl::main_element>(docker));
    add_child(view, call<&docker_impl::buttons>(docker));
}

void add_pages(element_view& view) {
    const auto tabs = cast_to<tab_layout_impl>(view.live);
    if (!tabs) return;
    const std::uint32_t count = call<&tab_layout_impl::page_count>(tabs);
    for (std::uint32_t index = 0; index < count; ++index) {
        const auto content = call<&tab_layout_impl::page>(tabs, index);
        element_view page = look_at(cast_to<element_impl>(content));
        page.id = told<&tab_layout_impl::page_id>(tabs, index);
        page.caption = told<&tab_layout_impl::page_title>(tabs, index);
        // A page is disabled by itself or by its tab.
        page.enabled = page.enabled && call<&tab_layout_impl::page_enabled>(tabs, index);
        view.children.push_back(std::move(page));
    }
    view.current = call<&tab_layout_impl::active_page>(tabs);
}

// Asked at the moment of the event: the view may have been read before a change.
bool is_enabled(const element_view& view) { return call<&element_impl::enabled>(view.live); }

} // namespace

element_view look_at(const element& root) {
    element_view view;
    view.live = root;
    view.kind = told<&element_impl::kind>(root);
    view.enabled = call<&element_impl::enabled>(root);
    view.visible = call<&element_impl::visible>(root);
    // All of them, since an element can implement several interfaces; a frame, for example, is also a grid.
    for (const auto add :
         {&add_text, &add_figure, &add_field, &add_button, &add_check, &add_choices, &add_buttons, &add_frame,
          &add_cells, &add_parts, &add_docker, &add_pages, &add_outline, &add_toolbar, &add_tool})
        add(view);
    return view;
}

const element_view* find(const element_view& root, wide_view kind) {
    if (root.kind == kind) return &root;
    for (const element_view& child : root.children)
        if (const element_view* found = find(child, kind)) return found;
    return nullptr;
}

bool enter_text(const element_view& field, const wide_string& text) {
    return is_enabled(field) &&
           call<&file_input_impl::text_entered>(cast_to<file_input_impl>(field.live), text.c_str());
}

bool press(const element_view& box, std::int32_t code) {
    return is_enabled(box) && call<&button_box_impl::click>(cast_to<button_box_impl>(box.live), code);
}

bool click(const element_view& button) {
    const auto live = cast_to<button_impl>(button.live);
    if (!live || !is_enabled(button)) return false;
    call<&button_impl::click>(live);
    return true;
}

bool set_check(const element_view& box, bool on) {
    if (!is_enabled(box)) return false;
    if (const auto check = cast_to<checkbox_impl>(box.live)) {
        call<&checkbox_impl::state_entered>(check, on ? checkbox_state::checked : checkbox_state::unchecked);
        return true;
    }
    const auto radio = cast_to<radiobutton_impl>(box.live);
    if (!radio || !on) return false;
    call<&radiobutton_impl::pressed>(radio);
    return true;
}

bool choose(const element_view& list, std::uint32_t index) {
    if (!is_enabled(list)) return false;
    if (const auto dropdown = cast_to<dropdownex_impl>(list.live)) {
        call<&dropdownex_impl::row_chosen>(dropdown, index);
        // The event has no result, so whether the row was accepted is read from the element.
        return call<&dropdownex_impl::current_row>(dropdown) == index;
    }
    const auto tabs = cast_to<tab_layout_impl>(list.live);
    // On an element that has no pages both calls do nothing.
    call<&tab_layout_impl::page_chosen>(tabs, index);
    return tabs && call<&tab_layout_impl::active_page>(tabs) == index;
}

} // namespace vestra::toolkit
