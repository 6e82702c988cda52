// Opens files on Windows with the sharing that `system::open` promises.

#include <algorithm>
#include <array>

#include "platform/file_parts.h"
#include "platform/windows/paths.h"

namespace vs::project_resave::platform {

namespace {

// One call takes a length of 32 bits.
constexpr size_t largest_piece = 0x40000000;

class open_file final : public file {
public:
    explicit open_file(HANDLE opened) : content_(opened) {}

    outcome read(void* buffer, size_t length, size_t& count) override {
        count = 0;
        while (count < length) {
            DWORD taken = 0;
            const auto piece = static_cast<DWORD>(std::min(length - count, largest_piece));
            if (!ReadFile(content_.get(), static_cast<char*>(buffer) + count, piece, &taken, nullptr))
                return outcome::last();
            if (taken == 0) break;
            count += taken;
        }
        return {};
    }

    outcome write(const void* bytes, size_t length) override {
        size_t done = 0;
        while (done < length) {
            DWORD given = 0;
            const auto piece = static_cast<DWORD>(std::min(length - done, largest_piece));
            if (!WriteFile(content_.get(), static_cast<const char*>(bytes) + done, piece, &given, nullptr))
                return outcome::last();
            if (given == 0) return failure::disk_full;
            done += given;
        }
        return {};
    }

    outcome seek_end() override {
        return outcome::of_call(SetFilePointerEx(content_.get(), {}, nullptr, FILE_END) != FALSE);
    }

    uint64_t size() override {
        LARGE_INTEGER bytes{};
        return GetFileSizeEx(content_.get(), &bytes) ? static_cast<uint64_t>(bytes.QuadPart) : 0;
    }

    outcome flush() override { return outcome::of_call(FlushFileBuffers(content_.get()) != FALSE); }

    outcome close() override { return outcome::of_call(content_.close()); }

private:
    file_handle content_;
};

} // namespace

outcome open_regular_file(const wide_string& path, access wanted, disposition how,
                          std::unique_ptr<file>& result) {
    result.reset();
    const bool writes = wanted == access::read_write;
    const DWORD rights = GENERIC_READ | (writes ? GENERIC_WRITE : 0);
    constexpr std::array<DWORD, 3> creations{OPEN_EXISTING, CREATE_ALWAYS, CREATE_NEW};
    const DWORD creation = creations.at(static_cast<size_t>(how));
    // A reader lets others continue to write; otherwise it could not open what they have open.
    const DWORD shared = writes ? FILE_SHARE_READ : FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const wide_string native = system_path(path);
    const HANDLE opened =
        CreateFileW(wide(native.c_str()), rights, shared, nullptr, creation, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (opened == INVALID_HANDLE_VALUE) return outcome_at(native, false);
    result = std::make_unique<open_file>(opened);
    return {};
}

} // namespace vs::project_resave::platform
