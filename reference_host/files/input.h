// A file of the host while it is read: its elements, checked against the grammar, and the values of their
// attributes. The first fault is kept with its line. A rejected value is read as empty or zero, so a reader
// can run to its end and check once. Check `failed` after the construction; only then is there a root.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <pugixml.hpp>

#include "reference_host/files/file_error.h"
#include "reference_host/model/entity.h"

namespace vestra::files {

inline constexpr std::uint64_t largest_file = std::uint64_t{256} << 20;
inline constexpr const char* format_version = "1";

class input {
public:
    // Reads the file through the current system. `root_name` is the expected root element.
    input(const wide_string& path, const char* root_name);
    input(const input&) = delete;
    input& operator=(const input&) = delete;

    // Returns the root element; valid only if `failed` returns false.
    pugi::xml_node root() const { return root_; }
    const std::optional<file_error>& error() const { return error_; }
    bool failed() const { return error_.has_value(); }
    // Records an error at this element, unless there is one already.
    void refuse(pugi::xml_node at, wide_string reason);
    // Returns the line, from 1, in which the element begins.
    std::size_t line_of(pugi::xml_node node) const;

    // Values of attributes; a missing attribute gives `absent`.
    wide_string text(pugi::xml_node node, const char* name, wide_view absent = {});
    std::string narrow(pugi::xml_node node, const char* name, std::string_view absent = {});
    bool flag(pugi::xml_node node, const char* name, bool absent);
    three_state state(pugi::xml_node node, const char* name);
    uuid id(pugi::xml_node node, const char* name);
    std::int32_t whole(pugi::xml_node node, const char* name);
    std::uint32_t count(pugi::xml_node node, const char* name);
    double real(pugi::xml_node node, const char* name);
    // Rejects the value of an attribute; `wanted` describes a valid one.
    void refuse_value(pugi::xml_node node, const char* name, wide_view wanted);

private:
    bool read(const wide_string& path);
    bool check_text();
    bool parse();
    bool check_root(const char* root_name);
    void refuse_line(std::size_t line, wide_string reason);
    std::size_t line_at(std::size_t offset) const;
    template <class T>
    T number(pugi::xml_node node, const char* name, wide_view wanted);

    wide_string path_;
    std::string bytes_; // the document points into them
    std::vector<std::size_t> line_ends_;
    pugi::xml_document document_;
    pugi::xml_node root_;
    std::optional<file_error> error_;
};

} // namespace vestra::files
