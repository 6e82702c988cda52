// Elements that show or take a value: figures, drop-down lists, paths, rows. Main thread only.
#pragma once

#include <functional>
#include <vector>

#include "host/toolkit/dropdownex.h"
#include "host/toolkit/file_input.h"
#include "host/toolkit/label_ex.h"
#include "host/toolkit/outline.h"
#include "ui/toolkit/element_base.h"

namespace vs::project_resave::toolkit {

// A figure with a caption and a unit. All three are texts: the caller formats the number.
class label_ex final : public element_base<polymorphic<label_ex_impl>> {
public:
    // The caption never changes.
    label_ex(wide_string caption, wide_string value, wide_string unit)
        : element_base(label_ex_impl::element_kind), caption_(std::move(caption)), value_(std::move(value)),
          unit_(std::move(unit)) {}

    // Change what is shown after the caption. The unit follows the value directly, so a space belongs to one
    // of them.
    void set_value(const wide_string& value) { assign(value_, value); }
    void set_unit(const wide_string& unit) { assign(unit_, unit); }

    void caption(string_visitor visitor) override { tell(visitor, caption_); }
    void value(string_visitor visitor) override { tell(visitor, value_); }
    void unit(string_visitor visitor) override { tell(visitor, unit_); }

private:
    const wide_string caption_;
    wide_string value_;
    wide_string unit_;
};

// A drop-down list with a label. Each row also has a value for the bundle, which does not depend on the
// language.
class dropdownex final : public element_base<polymorphic<dropdownex_impl>> {
public:
    // What the user reads, and what the bundle gets.
    struct row {
        wide_string text;
        wide_string value;
    };
    // No row is current at first.
    dropdownex(wide_string label, std::vector<row> rows)
        : element_base(dropdownex_impl::element_kind), label_(std::move(label)), rows_(std::move(rows)) {}

    // Makes a row the current one, or none with `no_row`. Any other index past the last changes nothing.
    void set_current(uint32_t index) {
        if (index < rows_.size() || index == no_row) assign(current_, index);
    }
    // Returns the value of the current row; empty if there is none. Not the words that the user reads.
    wide_string value() const { return current_ < rows_.size() ? rows_[current_].value : wide_string(); }

    void label(string_visitor visitor) override { tell(visitor, label_); }
    uint32_t row_count() override { return static_cast<uint32_t>(rows_.size()); }
    void row_text(uint32_t index, string_visitor visitor) override {
        if (index < rows_.size()) tell(visitor, rows_[index].text);
    }
    uint32_t current_row() override { return current_; }
    // By the user; `no_row` makes no row current, other indexes past the last are ignored.
    void row_chosen(uint32_t index) override { set_current(index); }

private:
    const wide_string label_;
    const std::vector<row> rows_;
    uint32_t current_ = no_row;
};

// A field for a path. The owner's validator checks each text that the user enters, but not a text set by
// code.
class file_input final : public element_base<polymorphic<file_input_impl>> {
public:
    // Returns true if the entered text is accepted. It may set another text before it refuses one. While it
    // runs, the field still has the old text.
    using validator = std::function<bool(const wide_string& entered)>;

    // `filter` is "words|pattern", empty for all files; without a caption the button has the host's own.
    explicit file_input(file_input_mode mode, wide_string filter = {}, wide_string button_caption = {});

    // Without a validator every text is accepted. The validator may run an operation of the window, with its
    // boxes, before it answers.
    void set_validator(validator decides) { validator_ = std::move(decides); }
    // Sets the text without asking the validator.
    void set_text(const wide_string& text) { assign(text_, text); }
    // Returns the current text, valid until it changes.
    const wide_string& text() const { return text_; }

    file_input_mode mode() override { return mode_; }
    void filter(string_visitor visitor) override { tell(visitor, filter_); }
    void button_caption(string_visitor visitor) override { tell(visitor, button_caption_); }
    void text(string_visitor visitor) override { tell(visitor, text_); }
    // Asks the validator and takes over the text if it agrees. Returns false otherwise; then the host shows
    // the text of the field again, which the validator may have changed.
    bool text_entered(const char16_t* entered) override;

private:
    const file_input_mode mode_;
    const wide_string filter_;
    const wide_string button_caption_;
    // Unchanged until the validator has accepted the new text.
    wide_string text_;
    validator validator_;
};

// Base of outlines: the connection to the host. A derived class provides rows and columns.
class outline : public element_base<polymorphic<outline_impl>> {
public:
    // Makes the host ask for everything again. Rows passed before become invalid. A host without
    // outline_events is notified through its observer.
    void refresh();

    // Replaces the connection; null removes it.
    void set_events(outline_events events) override { events_.assign(events); }

protected:
    outline() : element_base(outline_impl::element_kind) {}
    ~outline() = default;

private:
    weak_ref<outline_events_impl> events_;
    // The only state of an outline that changes here; the rows are the derived class's.
    uint32_t refreshes_ = 0; // a new number is a change that the observer is notified of
};

} // namespace vs::project_resave::toolkit
