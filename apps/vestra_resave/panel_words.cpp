// Splits command lines into words, and finds the lines of a window that changed.
#include "apps/vestra_resave/panel_words.h"

#include <algorithm>
#include <unordered_map>
#include <utility>
#include <vector>

namespace vestra::command {

namespace {

std::vector<std::string> lines_of(const std::string& text) {
    std::vector<std::string> lines;
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        lines.push_back(text.substr(begin, end - begin));
        begin = end + 1;
    }
    return lines;
}

} // namespace

std::string take_word(std::string& line) {
    line.erase(0, line.find_first_not_of(' '));
    // A quote that is not closed extends to the end of the line.
    const bool is_quoted = line.starts_with('"');
    const std::size_t end = std::min(line.find(is_quoted ? '"' : ' ', 1), line.size());
    std::string word = line.substr(is_quoted ? 1 : 0, is_quoted ? end - 1 : end);
    line.erase(0, end + (is_quoted ? 1 : 0));
    line.erase(0, line.find_first_not_of(' '));
    return word;
}

std::string unquoted(const std::string& words) {
    const bool is_quoted = words.size() > 1 && words.starts_with('"') && words.ends_with('"');
    return is_quoted ? words.substr(1, words.size() - 2) : words;
}

bool take_switch(std::string& words) {
    for (const auto& [word, on] : {std::pair(" on", true), {" off", false}}) {
        if (!words.ends_with(word)) continue;
        words.erase(words.rfind(' '));
        return on;
    }
    return true;
}

std::string new_lines(const std::string& before, const std::string& now) {
    // Lines are counted and not compared in order, so a line that only moved is not new.
    std::unordered_map<std::string, int> known;
    for (const std::string& line : lines_of(before)) ++known[line];
    std::string fresh;
    for (const std::string& line : lines_of(now))
        if (--known[line] < 0)
            fresh += "  " + line.substr(std::min(line.find_first_not_of(' '), line.size())) + '\n';
    return fresh;
}

} // namespace vestra::command
