// The table of all elements with their attributes and children, and the check of a document against it.
#include "reference_host/files/grammar.h"

#include <cstdint>
#include <sstream>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/text.h"

namespace vestra::files {
namespace {

struct element_text {
    const char* name;
    const char* attributes; // "!" after a name: required
    const char* children;   // "!" after a name: exactly one; "+": any number; otherwise at most one
};

constexpr const char* container = "uuid caption valid meta parent";
constexpr const char* scene = "uuid! caption! valid meta parent source";
constexpr const char* layer = "type! uuid! caption! file source visible valid meta parent";
constexpr const char* layer_content = "attributes extras style styles members legend frame";
constexpr const char* table = "uuid! caption! file! valid meta parent";

// An element has at most 32 attributes and 32 kinds of children; a checklist has a bit for each. Every child
// has a row, too, so the look-up below cannot fail.
constexpr element_text elements[] = {
    {"project", "version!", "folders scenes2d scenes3d tables tos_tables layouts plugin_scenes+ map_legends"},
    {"scene_file", "version! kind!", "scene!"},
    {"layer_file", "version! kind!", "layer!"},

    {"folders", container, "folder+"},
    {"folder", "uuid! caption! valid meta parent", ""},
    {"scenes2d", container, "scene+"},
    {"scenes3d", container, "scene+"},
    {"layouts", container, "scene+"},
    {"plugin_scenes", "meta! uuid! caption! valid parent", "scene+"},
    {"map_legends", container, "map_legend+"},
    {"map_legend", "uuid! caption! valid meta parent", ""},

    {"tables", container, "table+"},
    {"table", table, "join+"},
    {"tos_tables", container, "tos_table+"},
    {"tos_table", table, ""},
    {"join", "source! base_field! other_field!", ""},

    {"scene", scene, "layers groups page"},
    {"legend", scene, "layers groups page"},
    {"layers", "", "layer+"},
    {"layer", layer, layer_content},
    {"page", layer, layer_content},
    {"groups", "caption", "group+ leaf+"},
    {"group", "caption!", "group+ leaf+"},
    {"leaf", "layer!", ""},

    {"attributes", "file!", "join+"},
    {"extras", "", "extra+"},
    {"extra", "key! type! value size", "item+"},
    {"item", "index! type! value size", "item+"},
    {"style", "type!", "value+"},
    {"styles", "type!", "style+"},
    {"value", "name! text", "value+"},
    {"members", "", "member+"},
    {"member", "uuid!", ""},
    {"frame", "scene!", ""},
};

struct rule {
    std::string name;
    bool required = false;
    bool repeated = false;
};

struct element_rules {
    std::vector<rule> attributes;
    std::vector<rule> children;
};

std::vector<rule> parsed(const char* text) {
    std::vector<rule> rules;
    std::istringstream words(text);
    for (std::string word; words >> word;) {
        rule next{word};
        next.required = word.back() == '!';
        next.repeated = word.back() == '+';
        if (next.required || next.repeated) next.name.pop_back();
        rules.push_back(next);
    }
    return rules;
}

const element_rules& rules_of(std::string_view name) {
    // Taken apart once: a large file has many elements.
    static const auto all = [] {
        std::unordered_map<std::string_view, element_rules> table_of_rules;
        for (const element_text& element : elements)
            table_of_rules[element.name] = {parsed(element.attributes), parsed(element.children)};
        return table_of_rules;
    }();
    return all.at(name);
}

wide_string tag(std::string_view name) { return u"<" + vs::project_resave::platform::from_utf8(name) + u">"; }

wide_string quoted(std::string_view name) {
    return u"\"" + vs::project_resave::platform::from_utf8(name) + u"\"";
}

// Records which names of a list of rules have occurred.
class checklist {
public:
    explicit checklist(const std::vector<rule>& rules) : rules_(rules) {}

    enum class verdict { fine, unknown, doubled };
    verdict meet(std::string_view name) {
        for (std::size_t index = 0; index < rules_.size(); ++index) {
            if (rules_[index].name != name) continue;
            const std::uint32_t bit = std::uint32_t{1} << index;
            const bool again = (met_ & bit) != 0 && !rules_[index].repeated;
            met_ |= bit;
            return again ? verdict::doubled : verdict::fine;
        }
        return verdict::unknown;
    }
    // Null if all that is required was met.
    const rule* lacking() const {
        for (std::size_t index = 0; index < rules_.size(); ++index)
            if (rules_[index].required && !(met_ >> index & 1)) return &rules_[index];
        return nullptr;
    }

private:
    const std::vector<rule>& rules_;
    std::uint32_t met_ = 0;
};

using verdict = checklist::verdict;

std::optional<fault> attribute_fault(pugi::xml_node element, const std::vector<rule>& rules) {
    checklist seen(rules);
    const auto refused = [&](const wide_string& what, std::string_view name, const wide_string& rest) {
        return fault{element, u"element " + tag(element.name()) + what + quoted(name) + rest};
    };
    for (const pugi::xml_attribute attribute : element.attributes()) {
        const verdict found = seen.meet(attribute.name());
        if (found == verdict::unknown) return refused(u" has the unknown attribute ", attribute.name(), u"");
        if (found == verdict::doubled) return refused(u" has attribute ", attribute.name(), u" twice");
    }
    if (const rule* missing = seen.lacking()) return refused(u" lacks attribute ", missing->name, u"");
    return std::nullopt;
}

std::optional<fault> element_fault(pugi::xml_node element, int depth) {
    // Before anything else, so that a hostile file cannot exhaust the stack.
    if (depth > deepest_element) return fault{element, u"elements are nested more than 64 deep"};
    const element_rules& rules = rules_of(element.name());
    if (auto found = attribute_fault(element, rules.attributes)) return found;
    checklist seen(rules.children);
    for (const pugi::xml_node child : element.children()) {
        // Comments and blanks between elements are dropped by the parser.
        if (child.type() != pugi::node_element)
            return fault{child, u"text inside element " + tag(element.name())};
        const verdict found = seen.meet(child.name());
        if (found == verdict::unknown)
            return fault{child, u"unknown element " + tag(child.name()) + u" in " + tag(element.name())};
        if (found == verdict::doubled)
            return fault{child, u"a second element " + tag(child.name()) + u" in " + tag(element.name())};
        // Before what this element lacks, so faults are found in the order of the file.
        if (auto below = element_fault(child, depth + 1)) return below;
    }
    if (const rule* missing = seen.lacking())
        return fault{element, u"element " + tag(element.name()) + u" lacks an element " + tag(missing->name)};
    return std::nullopt;
}

} // namespace

std::optional<fault> first_fault(pugi::xml_node root) { return element_fault(root, 1); }

} // namespace vestra::files
