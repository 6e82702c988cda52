// Host objects that do not belong to a project: the caller that creates one through the C functions owns it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/types.h"
#include "reference_host/model/counted.h"
#include "reference_host/shell/front_end.h"

namespace vestra::api {

// A text of the bundle, set and read through two functions of the caller. This host only sets texts, so
// `text` is never called. `assign` can be null; then texts are discarded.
struct string_adapter : counted {
    vs_string_assign assign;
    vs_string_text text;
    void* context;
};

// A list of texts. A text returned to a bundle is valid until the list changes.
struct wide_string_list : counted {
    std::vector<wide_string> texts;
};

// Rows from top to bottom, three bytes for each pixel (blue, green, red), without padding.
struct picture : counted {
    std::uint32_t width;
    std::uint32_t height;
    std::vector<std::uint8_t> bits;
};

// The fields of a DBF table, followed by those of the tables joined to it.
struct field_list : counted {
    struct field {
        std::string name;
        bool is_joined;
    };
    std::vector<field> fields;
};

// The property captions of a TOS file. The file is read as a whole and closed before the object is returned.
struct open_tos_file : counted {
    std::vector<wide_string> properties;
};

// The front end shows the window as long as the object exists. An exception of the front end when it closes
// the window is recorded.
class progress_window : counted {
public:
    explicit progress_window(bool stoppable) { shell::current_front_end().progress_opened(stoppable); }
    ~progress_window();
    progress_window(const progress_window&) = delete;
    progress_window& operator=(const progress_window&) = delete;
};

// The same for a window that only shows a text. Several can be open at once.
class wait_window : counted {
public:
    explicit wait_window(wide_view text) { shell::current_front_end().wait_opened(text); }
    ~wait_window();
    wait_window(const wait_window&) = delete;
    wait_window& operator=(const wait_window&) = delete;
};

// A reader and writer of files. It keeps no state between calls; the handle types of projects, 2D and 3D
// files share it.
struct xml_session : counted {};

} // namespace vestra::api
