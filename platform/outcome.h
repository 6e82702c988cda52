// The result of a call of the operating system: success, or the reason why it failed.
#pragma once

#include <cstdint>

#include "platform/wide_string.h"

namespace vs::project_resave::platform {

// Failures that callers distinguish or report themselves. Each has a native code on every target.
enum class failure { missing, taken, denied, in_use, disk_full, damaged };

// Two words, passed by value; success costs nothing. May be used from any thread.
class outcome {
public:
    // Success.
    outcome() = default;
    // A failure with its native code on this target.
    outcome(failure kind); // NOLINT(google-explicit-constructor): a call returns the kind itself
    // A failure with a native code: errno on POSIX, the result of GetLastError on Windows. Code 0 is a
    // failure, too, for an unknown reason.
    static outcome native(uint32_t code) { return {code, code == 0 ? u"unknown reason" : nullptr}; }
    // The failure of the last native call on this thread. No other call may be made in between.
    static outcome last();
    // Success if `succeeded`, else `last()`.
    static outcome of_call(bool succeeded) { return succeeded ? outcome() : last(); }
    // A failure that the operating system has no code for. `reason` is a literal: it is not copied.
    static outcome because(const char16_t* reason) { return {0, reason}; }

    // True on success.
    explicit operator bool() const { return code_ == 0 && reason_ == nullptr; }
    // Returns the native code; 0 on success and for a failure without a code.
    uint32_t code() const { return code_; }
    // True for a failure of this kind, whichever native code it has.
    bool is(failure kind) const;
    // Returns the reason, in the operating system's words if it has a native code: "No space left on device".
    // One line without full stop; empty on success.
    wide_string text() const;

private:
    outcome(uint32_t code, const char16_t* reason) : code_(code), reason_(reason) {}

    uint32_t code_ = 0;
    const char16_t* reason_ = nullptr; // used instead of the operating system's words
};

} // namespace vs::project_resave::platform
