// The bodies of the C functions that read and write files: the outcome as a number, the reason of a failure
// in the settings.
#pragma once

#include <cstdint>
#include <optional>
#include <utility>

#include "reference_host/api/calls.h"
#include "reference_host/files/files.h"
#include "reference_host/shell/front_end.h"

namespace vestra::api {

// Hands the object to a reader or writer of files. 1 on success; 0 for a null handle and on failure, whose
// reason then stands in `fault`, which is empty otherwise.
template <class Session, class Handle, class Model>
std::uint32_t with_file(const Session* session, const char16_t* path, Handle* object, wide_string& fault,
                        std::optional<files::file_error> (*function)(const wide_string&, Model&)) noexcept {
    fault.clear();
    if (!session || !object) return 0;
    return guarded([&] {
        const auto error = function(wide_string(text_of(path)), *to_model(object));
        if (error) fault = error->text();
        return std::uint32_t{!error};
    });
}

// The same with a reader, whose failure is added to the refused files of the settings, too.
template <class Session, class Handle, class Model>
std::uint32_t from_file(const Session* session, const char16_t* path, Handle* object,
                        std::optional<files::file_error> (*reader)(const wide_string&, Model&)) noexcept {
    const wide_string& fault = shell::settings().read_error;
    const std::uint32_t is_done = with_file(session, path, object, shell::settings().read_error, reader);
    if (is_done != 0 || fault.empty()) return is_done;
    return guarded([&] {
        shell::settings().refused_reads.push_back({wide_string(text_of(path)), fault});
        return std::uint32_t{0};
    });
}

// The same with a writer, whose failure is added to the refused files of the settings.
template <class Session, class Handle, class Model>
std::uint32_t to_file(const Session* session, const char16_t* path, Handle* object,
                      std::optional<files::file_error> (*writer)(const wide_string&, Model&)) noexcept {
    wide_string fault;
    const std::uint32_t is_done = with_file(session, path, object, fault, writer);
    if (is_done != 0 || !session || !object) return is_done;
    return guarded([&] {
        if (fault.empty()) fault = wide_string(text_of(path)) + u": there is too little memory to write it";
        shell::settings().refused_writes.push_back({wide_string(text_of(path)), std::move(fault)});
        return std::uint32_t{0};
    });
}

} // namespace vestra::api
