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

// Larger files are rejected without being read; the writer refuses to create one.
inline constexpr std::uint64_t largest_file = std::uint64_t{256} << 20;
// The only accepted value of the root element's `version`.
inline constexpr const char* format_version = "1";

// Reads the whole file into memory and closes it. Cannot be copied, because the document points into the
// bytes.
class input {
public:
    // Reads the file through the current system. `root_name` is the expected root element.
    input(const wide_string& path, const char* root_name);
    input(const input&) = delete;
    input& operator=(const input&) = delete;

    // Returns the root element; valid only if `failed` returns false.
    pugi::xml_node root() const { return root_; }
    // Returns the first fault; nothing if there was none.
    const std::optional<file_error>& error() const { return error_; }
    bool failed() const { return error_.has_value(); }
    // Records a fault at this element, unless there is one already.
    void refuse(pugi::xml_node at, wide_string reason);
    // Returns the line, from 1, in which the element begins. Logarithmic in the number of lines.
    std::size_t line_of(pugi::xml_node node) const;

    // Values of attributes; a missing attribute gives `absent`. A text with its escapes decoded, and one
    // whose characters are bytes (xml_text.h).
    wide_string text(pugi::xml_node node, const char* name, wide_view absent = {});
    std::string narrow(pugi::xml_node node, const char* name, std::string_view absent = {});
    // "yes" or "no".
    bool flag(pugi::xml_node node, const char* name, bool absent);
    // "yes", "no" or "mixed"; yes if the attribute is missing.
    three_state state(pugi::xml_node node, const char* name);
    // A uuid without value if the attribute is missing or empty.
    uuid id(pugi::xml_node node, const char* name);
    // Numbers as std::from_chars reads them. They are required: a missing one is rejected like a wrong one.
    std::int32_t whole(pugi::xml_node node, const char* name);
    std::uint32_t count(pugi::xml_node node, const char* name);
    double real(pugi::xml_node node, const char* name);
    // Rejects the value of an attribute; `wanted` describes a valid one.
    void refuse_value(pugi::xml_node node, const char* name, wide_view wanted);

private:
    // The steps of the constructor. Each returns false after a fault, and then the next ones must not run.
    bool read(const wide_string& path);
    // Valid UTF-8 without control characters, other than tabs and line ends.
    bool check_text();
    bool parse();
    // One root element with this name and the known version, and nothing around it.
    bool check_root(const char* root_name);
    // As `refuse`, at a line; 0 for the whole file.
    void refuse_line(std::size_t line, wide_string reason);
    // Returns the line of a byte of the file.
    std::size_t line_at(std::size_t offset) const;
    template <class T>
    T number(pugi::xml_node node, const char* name, wide_view wanted);

    wide_string path_;
    std::string bytes_; // the document points into them
    // Offsets of the line feeds, collected before the parser changes the bytes.
    std::vector<std::size_t> line_ends_;
    pugi::xml_document document_;
    pugi::xml_node root_;
    std::optional<file_error> error_;
};

} // namespace vestra::files
