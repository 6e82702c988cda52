#include "reference_host/toolkit/element_view.h"

#include <algorithm>

#include "host/toolkit/button_box.h"
#include "host/toolkit/file_input.h"
#include "host/toolkit/grid_layout.h"
#include "host/toolkit/groupbox.h"
#include "host/toolkit/label.h"
#include "host/toolkit/multiline_output.h"
#include "host/toolkit/output.h"
#include "platform/text.h"

namespace vestra::toolkit {

namespace border = vs::project_resave;
using border::call;
using border::cast_to;
using border::element;
using border::interface_to;

namespace {

// The text that an operation tells; empty if the element does not speak that interface.
template <auto Operation, class Impl, class... Args>
wide_string told(const interface_to<Impl>& target, Args... args) {
    wide_string text;
    border::stdwstring_visitor visitor(text);
    call<Operation>(target, args..., visitor);
    return text;
}

// Each of these adds what one interface has to say, and nothing if the element does not speak it.

void add_text(element_view& view) {
    if (const auto label = cast_to<border::label_impl>(view.live))
        view.text = told<&border::label_impl::text>(label);
    else if (const auto output = cast_to<border::output_impl>(view.live))
        view.text = told<&border::output_impl::text>(output);
    else if (const auto lines = cast_to<border::multiline_output_impl>(view.live))
        view.text = told<&border::multiline_output_impl::text>(lines);
}

void add_field(element_view& view) {
    const auto field = cast_to<border::file_input_impl>(view.live);
    if (!field) return;
    view.caption = told<&border::file_input_impl::button_caption>(field);
    view.text = told<&border::file_input_impl::text>(field);
}

void add_buttons(element_view& view) {
    const auto box = cast_to<border::button_box_impl>(view.live);
    const std::uint32_t count = call<&border::button_box_impl::entry_count>(box);
    for (std::uint32_t index = 0; index < count; ++index)
        view.buttons.push_back({told<&border::button_box_impl::entry_text>(box, index),
                                call<&border::button_box_impl::entry_code>(box, index)});
}

void add_child(element_view& view, const element& child) {
    if (child) view.children.push_back(look_at(child));
}

void add_cells(element_view& view) {
    const auto grid = cast_to<border::grid_layout_impl>(view.live);
    const std::uint32_t rows = call<&border::grid_layout_impl::rows>(grid);
    const std::uint32_t columns = call<&border::grid_layout_impl::columns>(grid);
    for (std::uint32_t row = 0; row < rows; ++row)
        for (std::uint32_t column = 0; column < columns; ++column)
            add_child(view, call<&border::grid_layout_impl::child>(grid, row, column));
}

void add_frame(element_view& view) {
    if (const auto frame = cast_to<border::groupbox_impl>(view.live))
        view.caption = told<&border::groupbox_impl::caption>(frame);
}

void add_docker(element_view& view) {
    const auto docker = cast_to<border::docker_impl>(view.live);
    if (!docker) return;
    view.caption = told<&border::docker_impl::title>(docker);
    view.text = told<&border::docker_impl::description>(docker);
    add_child(view, call<&border::docker_impl::main_element>(docker));
    add_child(view, call<&border::docker_impl::buttons>(docker));
}

void describe(std::string& out, const element_view& view, const std::string& indent) {
    using border::platform::to_utf8;
    if (!view.visible) return;
    out += indent + to_utf8(view.kind);
    if (!view.caption.empty()) out += " \"" + to_utf8(view.caption) + '"';
    for (const button_view& button : view.buttons)
        out += " [" + std::to_string(button.code) + ' ' + to_utf8(button.text) + ']';
    if (!view.enabled) out += " (disabled)";
    const std::string inner = indent + "  ";
    const std::string before_line = view.text.find(u'\n') == wide_string::npos ? " " : "\n" + inner;
    for (std::size_t begin = 0; begin < view.text.size();) {
        const std::size_t end = std::min(view.text.find(u'\n', begin), view.text.size());
        out += before_line + to_utf8(wide_view(view.text).substr(begin, end - begin));
        begin = end + 1;
    }
    out += '\n';
    for (const element_view& child : view.children) describe(out, child, inner);
}

} // namespace

element_view look_at(const element& root) {
    element_view view;
    view.live = root;
    view.kind = told<&border::element_impl::kind>(root);
    view.enabled = call<&border::element_impl::enabled>(root);
    view.visible = call<&border::element_impl::visible>(root);
    add_text(view);
    add_field(view);
    add_buttons(view);
    add_frame(view);
    add_cells(view);
    add_docker(view);
    return view;
}

const element_view* find(const element_view& root, wide_view kind) {
    if (root.kind == kind) return &root;
    for (const element_view& child : root.children)
        if (const element_view* found = find(child, kind)) return found;
    return nullptr;
}

bool enter_text(const element_view& field, const wide_string& text) {
    return call<&border::element_impl::enabled>(field.live) &&
           call<&border::file_input_impl::text_entered>(cast_to<border::file_input_impl>(field.live),
                                                        text.c_str());
}

bool press(const element_view& box, std::int32_t code) {
    return call<&border::element_impl::enabled>(box.live) &&
           call<&border::button_box_impl::click>(cast_to<border::button_box_impl>(box.live), code);
}

std::string described(const element_view& root) {
    std::string out;
    describe(out, root, "");
    return out;
}

} // namespace vestra::toolkit
