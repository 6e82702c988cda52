// Adapters for host functions that assign a text to the caller's string. Code calls host_string; the adapters
// live on the stack for one call of the host. Main thread only.
#pragma once

#include <utility>

#include "framework/border/caught.h"
#include "host/vsk_basic.h"
#include "platform/wide_string.h"

namespace vs::project_resave {

// Holds the host's adapter for the duration of one call. It cannot be copied or moved, since the host has its
// address.
class Tvs_string_adapter_base {
public:
    Tvs_string_adapter_base() : handle_(vs_string_adp_create(&assign_text, &text_of, this)) {}
    Tvs_string_adapter_base(const Tvs_string_adapter_base&) = delete;
    Tvs_string_adapter_base& operator=(const Tvs_string_adapter_base&) = delete;
    // Called by the host with a text, borrowed for the call; null counts as empty.
    virtual void assign(const char16_t* text) = 0;
    // Called by the host to read the string; the result is valid until the string changes. Must not return
    // null.
    virtual const char16_t* text() = 0;
    // Converts to the handle, the last argument of a host function; null if the host could not create it. The
    // handle must not be used after the adapter's end.
    operator vs_string_adp*() const { return handle_; }

protected:
    ~Tvs_string_adapter_base() { vs_string_adp_destroy(handle_); }

private:
    // Called by the host, so no exception may leave. After one, the string stays unchanged, or reads as
    // empty.
    static void assign_text(void* adapter, const char16_t* text) noexcept {
        try {
            static_cast<Tvs_string_adapter_base*>(adapter)->assign(text);
        } catch (...) { // out of memory: the string stays unchanged
            record_caught("string adapter");
        }
    }
    static const char16_t* text_of(void* adapter) noexcept {
        try {
            return static_cast<Tvs_string_adapter_base*>(adapter)->text();
        } catch (...) {
            record_caught("string adapter");
            return u"";
        }
    }

    // Owned; null if the host could not create it, and then texts are lost.
    vs_string_adp* handle_;
};

// Assigns the text to a string of the caller, which must outlive the adapter. If the host assigns several
// times, the last text stays.
class Tvs_std_wstring_adapter final : public Tvs_string_adapter_base {
public:
    explicit Tvs_std_wstring_adapter(wide_string& target) : string_(&target) {}
    void assign(const char16_t* text) override { *string_ = text ? text : u""; }
    const char16_t* text() override { return string_->c_str(); }

private:
    wide_string* string_;
};

// Calls a host function whose last argument is an adapter, and returns the text that the function assigned;
// empty if it assigned none, for a null handle, and if memory runs out.
//
//     const wide_string caption = host_string(&vs_lr_get_wcaption, layer);
template <class Function, class... Args>
wide_string host_string(Function function, Args... args) {
    wide_string text;
    Tvs_std_wstring_adapter adapter(text);
    function(args..., adapter);
    return text;
}

} // namespace vs::project_resave
