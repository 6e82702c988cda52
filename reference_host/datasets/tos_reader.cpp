// A strict parser of TOS files, which reads line by line.
#include "reference_host/datasets/tos_reader.h"

#include <algorithm>
#include <array>
#include <memory>
#include <string_view>
#include <unordered_set>
#include <utility>

#include "platform/path_text.h"
#include "platform/system.h"
#include "platform/text.h"

namespace vestra::datasets {

using namespace vs::project_resave;

namespace {

// Returns the lines of a file without their line ends, LF or CR LF.
class line_reader {
public:
    explicit line_reader(platform::file& file) : file_(file) {}

    bool next(std::string& line) {
        line.clear();
        while (place_ < filled_ || fill()) {
            const std::string_view rest(buffer_.data() + place_, filled_ - place_);
            const std::size_t end = rest.find('\n');
            line += rest.substr(0, end);
            place_ += std::min(end, rest.size());
            // The line continues in the next piece of the file.
            if (end == std::string_view::npos) continue;
            ++place_;
            // Only before a line feed is a carriage return part of the line end.
            if (line.ends_with('\r')) line.pop_back();
            return true;
        }
        return result_ && !line.empty(); // the last line may have no line end
    }

    // Fails if the file could not be read.
    platform::outcome result() const { return result_; }

private:
    bool fill() {
        place_ = 0;
        result_ = file_.read(buffer_.data(), buffer_.size(), filled_);
        if (!result_) filled_ = 0;
        return filled_ > 0;
    }

    platform::file& file_;
    std::array<char, 16384> buffer_{};
    std::size_t place_ = 0;
    std::size_t filled_ = 0;
    platform::outcome result_;
};

std::size_t skip_digits(std::string_view text, std::size_t& place) {
    const std::size_t begin = place;
    while (place < text.size() && text[place] >= '0' && text[place] <= '9') ++place;
    return place - begin;
}

void skip_sign(std::string_view text, std::size_t& place) {
    if (place < text.size() && (text[place] == '+' || text[place] == '-')) ++place;
}

bool is_value(std::string_view text) {
    if (text == "-") return true; // the record has no value
    std::size_t place = 0;
    skip_sign(text, place);
    std::size_t digits = skip_digits(text, place);
    if (place < text.size() && text[place] == '.') digits += skip_digits(text, ++place);
    if (digits == 0) return false;
    if (place < text.size() && (text[place] == 'e' || text[place] == 'E')) {
        skip_sign(text, ++place);
        if (skip_digits(text, place) == 0) return false;
    }
    return place == text.size();
}

bool is_utf8(std::string_view bytes) { return platform::valid_utf8_length(bytes) == bytes.size(); }

// Returns the stem without the number that is appended when a name is taken: "model" for "model_(1)".
wide_string without_number(const wide_string& stem) {
    const std::size_t open = stem.rfind(u"_(");
    if (open == wide_string::npos || open == 0 || !stem.ends_with(u')')) return stem;
    const wide_view number = wide_view(stem).substr(open + 2, stem.size() - open - 3);
    const bool is_number = !number.empty() && number.find_first_not_of(u"0123456789") == wide_view::npos;
    return is_number ? stem.substr(0, open) : stem;
}

// Takes the lines in order. Each function returns the rule that the line breaks, or an empty text.
class parser {
public:
    explicit parser(const wide_string& path) : head_(path_head(path)), stem_(path_stem(path)) {
        // So that the file cannot be its own member.
        names_.insert(platform::folded(path_file_name(path)));
    }

    wide_view take(std::string_view line) {
        if (!is_begun_) {
            is_begun_ = true;
            return line == "TOS 1" ? u"" : u"the first line is not \"TOS 1\"";
        }
        const std::size_t blank = line.find(' ');
        const std::string_view word = line.substr(0, blank);
        const std::string_view text = blank == std::string_view::npos ? "" : line.substr(blank + 1);
        const auto* const place = std::ranges::find(words, word);
        if (place == words.end()) return u"the line does not begin with property, member or data";
        if (text.empty() || text.front() == ' ' || text.back() == ' ')
            return u"expected one space and then a value without leading or trailing spaces";
        if (!is_utf8(text)) return u"the text is not UTF-8";
        // The words are searched in their order, so an earlier position is a step back.
        if (place < last_word_) return u"properties come first, then members, then data";
        last_word_ = place;
        if (word == "property") return take_property(text);
        return word == "member" ? take_member(text) : take_data(text);
    }

    bool is_begun() const { return is_begun_; }
    tos_file content;

private:
    static constexpr std::array<std::string_view, 3> words{"property", "member", "data"};

    wide_view take_property(std::string_view text) {
        content.properties.push_back(platform::from_utf8(text));
        return {};
    }

    wide_view take_member(std::string_view text) {
        const wide_string path = written_out(platform::from_utf8(text));
        if (path_separators.find(path.front()) != wide_view::npos || path.find(u':') != wide_string::npos)
            return u"the path of the member is not relative";
        wide_string key = platform::folded(path);
        std::ranges::replace(key, u'/', u'\\');
        if (key.find(u"\\\\") != wide_string::npos || key.back() == u'\\')
            return u"a part of the member's path is empty";
        // Only for the comparison; the member keeps the spelling of the file.
        while (key.starts_with(u".\\")) key.erase(0, 2);
        if (!names_.insert(key).second) return u"the member is listed twice or is the file itself";
        content.members.push_back(path);
        return {};
    }

    // A member name that is only an extension is appended to the stem of the file, so a renamed set refers to
    // its own members. A member with the full stem is also recognised if the file got a number and a member
    // with that number is next to it.
    wide_string written_out(wide_string path) const {
        if (path.find_first_of(path_separators) != wide_string::npos || path == u"." || path == u"..")
            return path;
        if (path.front() == u'.') return stem_ + path;
        wide_string older = without_number(stem_);
        for (wide_string newer = stem_; older != newer; newer = std::exchange(older, without_number(older))) {
            if (!platform::folded(path).starts_with(platform::folded(older) + u'.')) continue;
            wide_string own = stem_ + path.substr(older.size());
            return platform::current_system().kind_of(head_ + own) == platform::entry_kind::file ? own : path;
        }
        return path;
    }

    wide_view take_data(std::string_view text) const {
        std::size_t count = 0;
        for (std::size_t begin = 0, end = 0; end != std::string_view::npos; begin = end + 1, ++count) {
            end = text.find(' ', begin);
            if (!is_value(text.substr(begin, end == std::string_view::npos ? end : end - begin)))
                return u"a value is neither a decimal number nor \"-\"";
        }
        return count == content.properties.size() ? u""
                                                  : u"the record does not have one value for each property";
    }

    bool is_begun_ = false;
    const std::string_view* last_word_ = words.begin();
    const wide_string head_, stem_;
    std::unordered_set<wide_string> names_; // folded
};

} // namespace

std::optional<tos_file> read_tos(const wide_string& path, files::file_error* error) {
    const auto refuse = [&](std::size_t line, wide_view reason) {
        if (error) *error = {path, line, wide_string(reason)};
        return std::nullopt;
    };
    std::unique_ptr<platform::file> file;
    const auto opened = platform::current_system().open(path, platform::access::read,
                                                        platform::disposition::open_existing, file);
    if (!opened) return refuse(0, opened.text());

    line_reader lines(*file);
    parser rules(path);
    std::string line;
    for (std::size_t number = 1; lines.next(line); ++number) {
        const wide_view broken_rule = rules.take(line);
        if (!broken_rule.empty()) return refuse(number, broken_rule);
    }
    // A file that cannot be read to its end looks like a shorter one.
    if (!lines.result()) return refuse(0, lines.result().text());
    if (!rules.is_begun()) return refuse(1, u"the file is empty");
    return std::move(rules.content);
}

} // namespace vestra::datasets
