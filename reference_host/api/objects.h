// The host objects that are no part of a project: whoever creates one through the C functions owns it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/types.h"
#include "reference_host/model/counted.h"
#include "reference_host/shell/front_end.h"

namespace vestra::api {

struct string_adapter : counted {
    vs_string_assign assign;
    vs_string_text text;
    void* context;
};

struct wide_string_list : counted {
    std::vector<wide_string> texts;
};

// Rows from the top, three bytes to a pixel, without gaps.
struct picture : counted {
    std::uint32_t width;
    std::uint32_t height;
    std::vector<std::uint8_t> bits;
};

// The fields of a DBF table, those of the tables joined to it behind its own.
struct field_list : counted {
    struct field {
        std::string name;
        bool is_joined;
    };
    std::vector<field> fields;
};

struct open_tos_file : counted {
    std::vector<wide_string> properties;
};

// Shown by the front end for as long as the object lives.
class progress_window : counted {
public:
    explicit progress_window(bool stoppable) { shell::current_front_end().progress_opened(stoppable); }
    ~progress_window();
    progress_window(const progress_window&) = delete;
    progress_window& operator=(const progress_window&) = delete;
};

class wait_window : counted {
public:
    explicit wait_window(wide_view text) { shell::current_front_end().wait_opened(text); }
    ~wait_window();
    wait_window(const wait_window&) = delete;
    wait_window& operator=(const wait_window&) = delete;
};

// Reader and writer of files. It keeps nothing between two calls.
struct xml_session : counted {};

} // namespace vestra::api
