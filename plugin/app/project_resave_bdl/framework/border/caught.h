// Records exceptions that must not cross the border to the host. Header only, so each library has its own
// current record. Main thread only.
#pragma once

#include <cstdio>
#include <exception>

namespace vs::project_resave {

// Who implements: the object that reports on the work of the library. Who calls: record_caught. Each library
// has at most one current record.
class exception_record {
public:
    // Keeps a caught exception. `where` names the operation or interface, `what` describes the exception;
    // both are narrow texts, borrowed for the call. Must not throw. Can be called in the middle of any
    // operation.
    virtual void record(const char* where, const char* what) noexcept = 0;

protected:
    ~exception_record() = default;
};

// Returns the current record, for reading and setting; null if there is none. Code that sets it must reset it
// before the record is destroyed, and must not reset a record that another object has set meanwhile.
inline exception_record*& current_exception_record() {
    static exception_record* current = nullptr;
    return current;
}

// Passes the exception that is being handled to the current record. Without a record, for example before a
// panel is open, prints it to standard error. Must be called inside a catch handler: outside of one the
// program ends.
inline void record_caught(const char* where) noexcept {
    const auto keep = [&](const char* what) {
        if (exception_record* const to = current_exception_record())
            to->record(where, what);
        else
            std::fprintf(stderr, "Exception in %s: %s\n", where, what);
    };
    try {
        throw;
    } catch (const std::exception& failure) {
        keep(failure.what());
    } catch (...) {
        keep("an exception of an unknown type");
    }
}

} // namespace vs::project_resave
