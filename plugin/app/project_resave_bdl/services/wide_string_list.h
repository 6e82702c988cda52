// A list of texts of the host, for the life of one question to a service.
#pragma once

#include <vector>

#include "framework/border/visitors.h"
#include "host/vsk_basic.h"

namespace vs::project_resave {

class wide_string_list {
public:
    wide_string_list() : handle(vs_wstrings_create()) {}
    ~wide_string_list() { vs_wstrings_destroy(handle); }
    wide_string_list(const wide_string_list&) = delete;
    wide_string_list& operator=(const wide_string_list&) = delete;
    operator vs_wstrings*() const { return handle; }

    std::vector<wide_string> texts() const {
        std::vector<wide_string> all;
        const uint32_t count = vs_wstrings_get_size(handle);
        all.reserve(count);
        for (uint32_t index = 0; index < count; ++index)
            all.push_back(text_or_empty(vs_wstrings_get_str(handle, index)));
        return all;
    }

private:
    vs_wstrings* handle;
};

} // namespace vs::project_resave
