// A tool's window as a user has it: events are sent to visible widgets by mouse and key, and the state is
// read back from the widgets.
#pragma once

#include "reference_host/qt/tool_view.h"

namespace vestra::qt {

class mouse_window final : public toolkit::shown_window {
public:
    explicit mouse_window(tool_view& shown) : shown_(shown) {}

    toolkit::element_view look() const override { return shown_.look(); }
    bool enter_text(const toolkit::element_view& field, const wide_string& text) override;
    bool press(const toolkit::element_view& box, std::int32_t code) override;
    bool click(const toolkit::element_view& button) override;
    bool set_check(const toolkit::element_view& box, bool on) override;
    bool choose(const toolkit::element_view& list, std::uint32_t index) override;
    bool check_row(const toolkit::element_view& outline, const toolkit::row_view& row, bool on) override;
    bool highlight_row(const toolkit::element_view& outline, const toolkit::row_view& row, bool on) override;
    bool click_tool(const toolkit::element_view& tool) override { return click(tool); }

    // Returns the widget, or the first one inside it, of a class; null if there is none.
    template <class Widget>
    Widget* widget(const toolkit::element_view& view) const {
        const element_widget* const found = shown_.widgets().find(view.live);
        if (!found) return nullptr;
        auto* const itself = dynamic_cast<Widget*>(found->widget());
        return itself ? itself : found->widget()->findChild<Widget*>();
    }

private:
    tool_view& shown_;
};

} // namespace vestra::qt
