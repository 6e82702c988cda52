// Row of buttons at the foot of a window.
#pragma once

#include <functional>
#include <vector>

#include "host/toolkit/button_box.h"
#include "ui/toolkit/element_base.h"

namespace vs::project_resave::toolkit {

// What a click on a button does, by the button's code.
enum button_code : int32_t { ok_code = 1, run_code = 2, close_code = 8 };

class button_box final : public element_base<polymorphic<button_box_impl>> {
public:
    struct entry {
        wide_string text;
        int32_t code;
    };
    // `run` is the handler of the buttons that do the work, and answers whether the window closes.
    button_box(std::vector<entry> entries, std::function<bool()> run);

    uint32_t entry_count() override { return static_cast<uint32_t>(entries_.size()); }
    void entry_text(uint32_t index, string_visitor visitor) override;
    int32_t entry_code(uint32_t index) override;
    bool click(int32_t code) override;

private:
    const std::vector<entry> entries_;
    const std::function<bool()> run_;
};

} // namespace vs::project_resave::toolkit
