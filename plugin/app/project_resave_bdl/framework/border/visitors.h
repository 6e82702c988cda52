// Visitors: how anything of variable length comes back over the border. The visitor stands on the caller's
// stack; the other side calls it once for a single value, or once for each element, before the call returns.
#pragma once

#include <cstdint>
#include <set>
#include <vector>

#include "framework/border/interface.h"
#include "platform/wide_string.h"

namespace vs::project_resave {

// Told null-terminated wide text; a null pointer counts as the empty text.
class string_visitor_impl : public interface_of<string_visitor_impl> {
public:
    static constexpr const char* name = "vs_string_visitor_interface_0";
    virtual void visit(const char16_t* text) = 0;
    using operations = operation_list<&string_visitor_impl::visit>;

protected:
    ~string_visitor_impl() = default;
};
using string_visitor = interface_to<string_visitor_impl>;

// Tells a visitor a text. Safe for a text that holds zero characters: it ends at the first.
inline void tell(const string_visitor& visitor, const wide_string& text) {
    call<&string_visitor_impl::visit>(visitor, text.c_str());
}

inline wide_string text_or_empty(const char16_t* text) { return text ? wide_string(text) : wide_string(); }

// Keeps the last text told.
class stdwstring_visitor final : public string_visitor_impl {
public:
    explicit stdwstring_visitor(wide_string& target) : text_(target) {}
    void visit(const char16_t* told) override { text_ = text_or_empty(told); }
    operator string_visitor() { return pointer_to<string_visitor_impl>(*this); }

private:
    wide_string& text_;
};

class stdwstring_list_visitor final : public string_visitor_impl {
public:
    explicit stdwstring_list_visitor(std::vector<wide_string>& target) : texts_(target) {}
    void visit(const char16_t* told) override { texts_.push_back(text_or_empty(told)); }
    operator string_visitor() { return pointer_to<string_visitor_impl>(*this); }

private:
    std::vector<wide_string>& texts_;
};

// Kept for other bundles; nothing here calls it.
class stdwstring_set_visitor final : public string_visitor_impl {
public:
    explicit stdwstring_set_visitor(std::set<wide_string>& target) : texts_(target) {}
    void visit(const char16_t* told) override { texts_.insert(text_or_empty(told)); }
    operator string_visitor() { return pointer_to<string_visitor_impl>(*this); }

private:
    std::set<wide_string>& texts_;
};

// Planes of a picture: the pointer stands at the first row to read, `stride` is the step to the next in
// bytes.
class bytes_visitor_impl : public interface_of<bytes_visitor_impl> {
public:
    static constexpr const char* name = "vs_bytes_visitor_interface_0";
    virtual void visit(const uint8_t* row, int32_t stride, uint32_t width, uint32_t height) = 0;
    using operations = operation_list<&bytes_visitor_impl::visit>;

protected:
    ~bytes_visitor_impl() = default;
};
using bytes_visitor = interface_to<bytes_visitor_impl>;

// The same with three bytes to a pixel.
class thrice_interleaved_bytes_visitor_impl : public interface_of<thrice_interleaved_bytes_visitor_impl> {
public:
    static constexpr const char* name = "vs_thrice_interleaved_bytes_visitor_interface_0";
    virtual void visit(const uint8_t* row, int32_t stride, uint32_t width, uint32_t height) = 0;
    using operations = operation_list<&thrice_interleaved_bytes_visitor_impl::visit>;

protected:
    ~thrice_interleaved_bytes_visitor_impl() = default;
};
using thrice_interleaved_bytes_visitor = interface_to<thrice_interleaved_bytes_visitor_impl>;

} // namespace vs::project_resave
