// Reads an XML file of the host into memory and converts the values of its attributes.
#include "reference_host/files/input.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "platform/system.h"
#include "platform/text.h"
#include "reference_host/files/grammar.h"
#include "reference_host/files/xml_text.h"

namespace vestra::files {
namespace {

using namespace vs::project_resave;
using platform::from_utf8;

// Returns a text of the file in quotes for a message: on one line, and shortened.
wide_string quoted(std::string_view value) {
    wide_string text = from_utf8(value.substr(0, 240));
    if (text.size() > 60) text = text.substr(0, 60) + u"...";
    for (char16_t& c : text)
        if (c < u' ') c = u' ';
    return u"\"" + text + u"\"";
}

bool is_control(char c) {
    return static_cast<unsigned char>(c) < 0x20 && c != '\t' && c != '\n' && c != '\r';
}

} // namespace

input::input(const wide_string& path, const char* root_name) : path_(path) {
    // In this order: each step relies on those before it. Only the first fault is kept.
    if (!read(path) || !check_text() || !parse() || !check_root(root_name)) return;
    if (const auto found = first_fault(root_)) refuse(found->at, found->reason);
}

bool input::read(const wide_string& path) {
    platform::system& system = platform::current_system();
    std::unique_ptr<platform::file> file;
    platform::outcome result =
        system.open(path, platform::access::read, platform::disposition::open_existing, file);
    if (!result) {
        // The operating systems give different reasons for a folder, on Windows a denied access.
        const bool is_folder = system.kind_of(path) == platform::entry_kind::folder;
        refuse_line(0, result.is(platform::failure::missing) ? u"there is no such file"
                       : is_folder                           ? u"is a folder"
                                                             : result.text());
        return false;
    }
    const std::uint64_t size = file->size();
    if (size > largest_file) {
        refuse_line(0, u"the file is larger than 256 MiB");
        return false;
    }
    bytes_.resize(static_cast<std::size_t>(size));
    result = file->read_whole(bytes_.data(), bytes_.size());
    if (result) return true;
    refuse_line(0, result.text());
    return false;
}

bool input::check_text() {
    // Before parsing, which changes the bytes in place.
    for (std::size_t place = 0; place < bytes_.size(); ++place)
        if (bytes_[place] == '\n') line_ends_.push_back(place);
    const auto control = std::ranges::find_if(bytes_, is_control) - bytes_.begin();
    // Control characters are no valid XML, but the parser accepts them.
    const std::size_t good = std::min(platform::valid_utf8_length(bytes_), static_cast<std::size_t>(control));
    if (good == bytes_.size()) return true;
    refuse_line(line_at(good), u"the file is not valid UTF-8");
    return false;
}

bool input::parse() {
    // Entities are left to text_of_xml, which is strict about them. Text around the root element is kept so
    // that it is found.
    constexpr unsigned options =
        (pugi::parse_default & ~pugi::parse_escapes) | pugi::parse_fragment | pugi::parse_trim_pcdata;
    const pugi::xml_parse_result result =
        // In place, without a second copy of a file that may have 256 MiB.
        document_.load_buffer_inplace(bytes_.data(), bytes_.size(), options, pugi::encoding_utf8);
    if (result) return true;
    refuse_line(line_at(static_cast<std::size_t>(result.offset)),
                u"bad XML: " + from_utf8(result.description()));
    return false;
}

bool input::check_root(const char* root_name) {
    const wide_string wanted = u"<" + from_utf8(root_name) + u">";
    for (const pugi::xml_node node : document_.children()) {
        if (node.type() != pugi::node_element || root_) {
            refuse(node, u"expected exactly one root element, " + wanted);
        } else {
            root_ = node;
            if (std::string_view(node.name()) != root_name)
                refuse(node, u"the root element is <" + from_utf8(node.name()) + u">, not " + wanted);
        }
    }
    if (!root_) refuse_line(1, u"there is no root element " + wanted);
    if (failed()) return false;
    const pugi::xml_attribute version = root_.attribute("version");
    // A missing version is reported with the other attributes, by the grammar.
    if (version && std::string_view(version.value()) != format_version)
        refuse(root_, u"unsupported version " + quoted(version.value()) + u"; only \"1\" is supported");
    return !failed();
}

void input::refuse(pugi::xml_node at, wide_string reason) { refuse_line(line_of(at), std::move(reason)); }

void input::refuse_line(std::size_t line, wide_string reason) {
    if (!error_) error_ = file_error{path_, line, std::move(reason)};
}

void input::refuse_value(pugi::xml_node node, const char* name, wide_view wanted) {
    refuse(node, u"attribute \"" + from_utf8(name) + u"\" of element <" + from_utf8(node.name()) + u"> is " +
                     quoted(node.attribute(name).value()) + u", not " + wide_string(wanted));
}

std::size_t input::line_of(pugi::xml_node node) const {
    // The offset is -1 for a node without a place in the file.
    return line_at(static_cast<std::size_t>(std::max<std::ptrdiff_t>(node.offset_debug(), 0)));
}

std::size_t input::line_at(std::size_t offset) const {
    const auto ends = std::lower_bound(line_ends_.begin(), line_ends_.end(), offset);
    return static_cast<std::size_t>(ends - line_ends_.begin()) + 1;
}

wide_string input::text(pugi::xml_node node, const char* name, wide_view absent) {
    const pugi::xml_attribute attribute = node.attribute(name);
    if (!attribute) return wide_string(absent);
    // The value still has its entities: the parser leaves them alone.
    auto value = text_of_xml(attribute.value());
    if (value) return *std::move(value);
    refuse_value(node, name, u"a text with references that XML knows");
    return {};
}

std::string input::narrow(pugi::xml_node node, const char* name, std::string_view absent) {
    auto value = narrowed(text(node, name, widened(absent)));
    if (value) return *std::move(value);
    refuse_value(node, name, u"a narrow text");
    return {};
}

bool input::flag(pugi::xml_node node, const char* name, bool absent) {
    const pugi::xml_attribute attribute = node.attribute(name);
    if (!attribute) return absent;
    const std::string_view value = attribute.value();
    if (value != "yes" && value != "no") refuse_value(node, name, u"\"yes\" or \"no\"");
    return value == "yes";
}

three_state input::state(pugi::xml_node node, const char* name) {
    const pugi::xml_attribute attribute = node.attribute(name);
    const std::string_view value = attribute ? attribute.value() : "yes";
    if (value == "yes") return three_state::yes;
    if (value == "no") return three_state::no;
    if (value != "mixed") refuse_value(node, name, u"\"yes\", \"no\" or \"mixed\"");
    return three_state::mixed;
}

uuid input::id(pugi::xml_node node, const char* name) {
    const std::string_view value = node.attribute(name).value();
    // An element without identity has the attribute, but no value.
    if (value.empty()) return {};
    const auto found = uuid::parse(from_utf8(value));
    if (!found) refuse_value(node, name, u"a uuid");
    return found.value_or(uuid());
}

template <class T>
T input::number(pugi::xml_node node, const char* name, wide_view wanted) {
    const std::string_view digits = node.attribute(name).value();
    T value{};
    // Independent of the locale, and strict: no blanks and no plus sign.
    const auto [last, fault] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (fault == std::errc() && last == digits.data() + digits.size()) return value;
    refuse_value(node, name, wanted);
    return {};
}

std::int32_t input::whole(pugi::xml_node node, const char* name) {
    return number<std::int32_t>(node, name, u"a whole number of 32 bits");
}

std::uint32_t input::count(pugi::xml_node node, const char* name) {
    return number<std::uint32_t>(node, name, u"a number from 0 on");
}

double input::real(pugi::xml_node node, const char* name) { return number<double>(node, name, u"a number"); }

} // namespace vestra::files
