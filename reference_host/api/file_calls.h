// Helpers for the C functions that read and write files: they return success as a number and keep the reason
// of a failure in the settings.
#pragma once

#include <cstdint>
#include <exception>
#include <optional>
#include <utility>

#include "platform/text.h"
#include "reference_host/api/calls.h"
#include "reference_host/files/files.h"
#include "reference_host/shell/front_end.h"

namespace vestra::api {

// Passes the object to a reader or writer of files. Returns 1 on success and 0 for a null handle or on
// failure; the reason of a failure goes to `refused`. An exception counts as a failure with the exception's
// message.
//
// `session` is only compared with null, since the object behind it has no state. Readers change the object
// only on success.
template <class Session, class Handle, class Model, class Refused>
std::uint32_t with_file(const Session* session, const char16_t* path, Handle* object,
                        std::optional<files::file_error> (*function)(const wide_string&, Model&),
                        Refused refused) noexcept {
    if (!session || !object) return 0;
    return guarded([&] {
        const wide_string file(text_of(path));
        std::optional<files::file_error> error;
        try {
            error = function(file, *to_model(object));
        } catch (const std::exception& failure) {
            vs::project_resave::record_caught("reading or writing a file");
            error = {file, 0, vs::project_resave::platform::from_utf8(failure.what())};
        }
        if (error) refused(*error);
        return std::uint32_t{!error};
    });
}

// As above, with a reader. Afterwards `read_error` of the settings is about this call: empty on success and
// for a null handle. The reason is also added to `refused_reads`.
template <class Session, class Handle, class Model>
std::uint32_t from_file(const Session* session, const char16_t* path, Handle* object,
                        std::optional<files::file_error> (*reader)(const wide_string&, Model&)) noexcept {
    shell::settings().read_error.reset();
    return with_file(session, path, object, reader, [](files::file_error& error) {
        shell::settings().refused_reads.add(error);
        shell::settings().read_error = std::move(error);
    });
}

// As above, with a writer. The reason is added to `refused_writes`; `read_error` does not change.
template <class Session, class Handle, class Model>
std::uint32_t to_file(const Session* session, const char16_t* path, Handle* object,
                      std::optional<files::file_error> (*writer)(const wide_string&, Model&)) noexcept {
    return with_file(session, path, object, writer, [](files::file_error& error) {
        shell::settings().refused_writes.add(std::move(error));
    });
}

} // namespace vestra::api
