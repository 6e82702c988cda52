#include "platform/library.h"

#include <windows.h>

#include "platform/volumes.h"

namespace vs::project_resave::platform {

namespace {

wide_string last_error() {
    wchar_t text[512];
    const DWORD length =
        ::FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                         ::GetLastError(), 0, text, static_cast<DWORD>(std::size(text)), nullptr);
    wide_string reason(text, text + length);
    while (!reason.empty() && reason.back() <= u' ') reason.pop_back();
    return reason;
}

} // namespace

std::unique_ptr<library> library::open(const wide_string& path, wide_string& reason) {
    const std::wstring native = native_path(path).wstring();
    const HMODULE handle =
        native.empty() ? nullptr : ::LoadLibraryExW(native.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
    if (handle == nullptr) {
        reason = native.empty() ? wide_string(u"no such file") : last_error();
        return nullptr;
    }
    return std::unique_ptr<library>(new library(handle));
}

library::~library() { ::FreeLibrary(static_cast<HMODULE>(handle_)); }

void* library::symbol(const char* name) const {
    return reinterpret_cast<void*>(::GetProcAddress(static_cast<HMODULE>(handle_), name));
}

} // namespace vs::project_resave::platform
