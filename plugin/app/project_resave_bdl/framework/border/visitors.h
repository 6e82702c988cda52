// Visitors: how a result of variable length is returned across the border.
//
// Who implements: the caller of an operation, with an object on its stack. Who calls: the other side, before
// the operation returns and never later: once for a single value, once for each element of a list, not at all
// if there is no value. What a visitor receives is borrowed for that call. Main thread only.
#pragma once

#include <cstdint>
#include <set>
#include <vector>

#include "framework/border/interface.h"
#include "platform/wide_string.h"

namespace vs::project_resave {

// Receives texts.
class string_visitor_impl : public interface_of<string_visitor_impl> {
public:
    static constexpr const char* name = "vs_string_visitor_interface_0";
    // Receives zero-terminated wide text; a null pointer counts as the empty text.
    virtual void visit(const char16_t* text) = 0;
    using operations = operation_list<&string_visitor_impl::visit>;

protected:
    ~string_visitor_impl() = default;
};
using string_visitor = interface_to<string_visitor_impl>;

// Passes a text to a visitor, up to the first embedded zero, since the border knows only zero-terminated
// text. A null visitor is ignored.
inline void tell(const string_visitor& visitor, const wide_string& text) {
    call<&string_visitor_impl::visit>(visitor, text.c_str());
}

// Returns a copy of the text; empty for null. For every text that comes from the other side, where null is
// allowed.
inline wide_string text_or_empty(const char16_t* text) { return text ? wide_string(text) : wide_string(); }

// Stores the last text that it receives in a string of the caller, which must outlive it. The string is
// unchanged if no text is received, so clear it first if it may hold another text.
class stdwstring_visitor final : public string_visitor_impl {
public:
    explicit stdwstring_visitor(wide_string& target) : text_(target) {}
    void visit(const char16_t* told) override { text_ = text_or_empty(told); }
    operator string_visitor() { return pointer_to<string_visitor_impl>(*this); }

private:
    wide_string& text_;
};

// Appends each text to a list of the caller, which must outlive it, in the order of the calls.
class stdwstring_list_visitor final : public string_visitor_impl {
public:
    explicit stdwstring_list_visitor(std::vector<wide_string>& target) : texts_(target) {}
    void visit(const char16_t* told) override { texts_.push_back(text_or_empty(told)); }
    operator string_visitor() { return pointer_to<string_visitor_impl>(*this); }

private:
    std::vector<wide_string>& texts_;
};

// Inserts each text into a set of the caller, which must outlive it. Kept for other bundles; nothing here
// calls it.
class stdwstring_set_visitor final : public string_visitor_impl {
public:
    explicit stdwstring_set_visitor(std::set<wide_string>& target) : texts_(target) {}
    void visit(const char16_t* told) override { texts_.insert(text_or_empty(told)); }
    operator string_visitor() { return pointer_to<string_visitor_impl>(*this); }

private:
    std::set<wide_string>& texts_;
};

// Receives one plane of a picture, such as its transparency.
class bytes_visitor_impl : public interface_of<bytes_visitor_impl> {
public:
    static constexpr const char* name = "vs_bytes_visitor_interface_0";
    // Receives one byte for each pixel. `row` is the first row to read, `stride` the distance to the next row
    // in bytes, which can be negative; sizes are in pixels.
    virtual void visit(const uint8_t* row, int32_t stride, uint32_t width, uint32_t height) = 0;
    using operations = operation_list<&bytes_visitor_impl::visit>;

protected:
    ~bytes_visitor_impl() = default;
};
using bytes_visitor = interface_to<bytes_visitor_impl>;

// Receives the colours of a picture. The transparency comes separately, as a plane of bytes.
class thrice_interleaved_bytes_visitor_impl : public interface_of<thrice_interleaved_bytes_visitor_impl> {
public:
    static constexpr const char* name = "vs_thrice_interleaved_bytes_visitor_interface_0";
    // Receives three bytes for each pixel: blue, green, red. `row`, `stride` and the sizes are as in
    // vs_bytes_visitor_interface_0.
    virtual void visit(const uint8_t* row, int32_t stride, uint32_t width, uint32_t height) = 0;
    using operations = operation_list<&thrice_interleaved_bytes_visitor_impl::visit>;

protected:
    ~thrice_interleaved_bytes_visitor_impl() = default;
};
using thrice_interleaved_bytes_visitor = interface_to<thrice_interleaved_bytes_visitor_impl>;

} // namespace vs::project_resave
