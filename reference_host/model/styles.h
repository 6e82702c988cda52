// How a layer is drawn. The host keeps it as a tree of named values under a type; assigning copies the tree.
#pragma once

#include <string>
#include <vector>

#include "reference_host/model/counted.h"
#include "reference_host/model/text.h"

namespace vestra {

struct style_value {
    wide_string name;
    wide_string text;
    std::vector<style_value> values;
    friend bool operator==(const style_value&, const style_value&) = default;
};

struct style_manager : counted {
    explicit style_manager(std::string style_type) : type(std::move(style_type)) {}
    std::string type;
    std::vector<style_value> values;
};

struct style_manager_list : counted {
    explicit style_manager_list(std::string list_type) : type(std::move(list_type)) {}
    std::string type;
    std::vector<style_manager> managers;
};

} // namespace vestra
