// Where exceptions are recorded that must not cross the border to the host.
#pragma once

#include <exception>

namespace vs::project_resave {

// Keeps what was caught. One is current in each library at most.
class exception_record {
public:
    // `where` names the operation or interface, `what` the exception. Both end with the call.
    virtual void record(const char* where, const char* what) noexcept = 0;

protected:
    ~exception_record() = default;
};

// The current record, null for none; whoever sets it takes it out before it ends.
inline exception_record*& current_exception_record() {
    static exception_record* current = nullptr;
    return current;
}

// Enters the exception being handled in the current record; to be called in a handler only.
inline void record_caught(const char* where) noexcept {
    exception_record* const to = current_exception_record();
    if (to == nullptr) return;
    try {
        throw;
    } catch (const std::exception& failure) {
        to->record(where, failure.what());
    } catch (...) {
        to->record(where, "an exception of an unknown type");
    }
}

} // namespace vs::project_resave
