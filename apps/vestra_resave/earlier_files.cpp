// Reads and writes the journal of a run, which records every file that the run makes.
#include "apps/vestra_resave/earlier_files.h"

#include <charconv>
#include <unordered_map>

#include "apps/vestra_resave/file_content.h"
#include "platform/path_text.h"
#include "platform/system.h"
#include "platform/text.h"

namespace vestra::command {

using namespace vs::project_resave;

namespace {

// A name can contain each of these, and "%" would make the others ambiguous.
constexpr std::string_view hidden_characters = "%\t\n\r";

wide_string path_of(std::string_view word, const wide_string& folder) {
    std::string text;
    for (size_t at = 0; at < word.size(); ++at) {
        unsigned code = 0;
        const bool is_code = word[at] == '%' && at + 2 < word.size() &&
                             std::from_chars(&word[at + 1], &word[at + 1] + 2, code, 16).ec == std::errc();
        text += is_code ? static_cast<char>(code) : word[at];
        if (is_code) at += 2;
    }
    return path_join(folder, platform::from_utf8(text));
}

template <class number>
bool read_number(std::string_view word, number& value) {
    const auto end = word.data() + word.size();
    const auto read = std::from_chars(word.data(), end, value);
    return read.ec == std::errc() && read.ptr == end;
}

// Returns the words of a line without the last one, which marks the line as complete; no words for a line
// that a kill or a full disk has cut off.
std::vector<std::string_view> words_of(std::string_view line) {
    std::vector<std::string_view> words;
    for (size_t at = 0; at <= line.size();) {
        const size_t end = std::min(line.find('\t', at), line.size());
        words.push_back(line.substr(at, end - at));
        at = end + 1;
    }
    if (words.back() == ";")
        words.pop_back();
    else
        words.clear();
    return words;
}

// Processes a journal line by line. A record that it does not understand is ignored, so that one damaged line
// does not make the others useless.
class journal_reader {
public:
    journal_reader(wide_string folder, earlier_run& found) : folder_(std::move(folder)), found_(found) {}

    void read(const std::vector<std::string_view>& words) {
        const std::string_view kind = words.front();
        const bool has_path = words.size() > 1;
        if (kind == "run" && has_path) {
            found_.request = words[1];
        } else if (kind == "boot" && has_path) {
            is_losing_ = false; // refers to the run before
            // An unknown identity counts as another one: then nothing that was not flushed is trusted.
            is_same_boot_ = !words[1].empty() && words[1] == platform::boot_identity();
        } else if (kind == "folder" && has_path) {
            row(words[1], made_state::folder);
        } else if (kind == "copy" && words.size() == 3) {
            copying_ = words[1], source_ = path_of(words[2], folder_);
            // The copy keeps this state if the run was killed before it recorded the end.
            files_[row(copying_, made_state::begun)].source = source_;
        } else if (kind == "replace" && (words.size() == 5 || words.size() == 6)) {
            keep_older(words[1]);
            // The copy can have either name; it is this file.
            if (const auto fresh = rows_.find(path_key(path_of(copying_, folder_))); fresh != rows_.end())
                finish(files_[fresh->second], made_state::begun, words, 3);
            earlier_file& file = files_[row(words[1], made_state::begun)];
            file.source = path_of(words[2], folder_);
            finish(file, made_state::copied, words, 3);
        } else if (kind == "done" && (words.size() == 3 || words.size() == 4) && !copying_.empty()) {
            earlier_file& file = files_[row(copying_, made_state::begun)];
            file.source = source_;
            finish(file, made_state::copied, words, 1);
            copying_ = {};
        } else if (kind == "write" && has_path) {
            row(words[1], made_state::writing);
        } else if (kind == "written" && words.size() == 4) {
            keep_older(words[1]);
            finish(files_[row(words[1], made_state::writing)], made_state::written, words, 2);
        } else if (kind == "gone" && has_path) {
            is_gone_[row(words[1], made_state::writing)] = true;
        } else if (kind == "lost") {
            for (earlier_file& file : files_) file.is_lost = true;
            is_losing_ = true;
        } else if (kind == "safe") {
            // Without repeating earlier ones, because a long run records this every few seconds.
            for (; safe_ < files_.size(); ++safe_) files_[safe_].is_safe = true;
            for (const size_t index : again_) files_[index].is_safe = true;
            again_.clear();
        }
    }

    void end() {
        for (size_t index = 0; index < files_.size(); ++index)
            if (!is_gone_[index]) found_.files.push_back(std::move(files_[index]));
    }

private:
    // Keeps the older record too, because until the next record it is unknown whether the change was made.
    void keep_older(std::string_view word) {
        const auto older = rows_.find(path_key(path_of(word, folder_)));
        if (older != rows_.end() && files_[older->second].modified != 0)
            found_.files.push_back(files_[older->second]);
    }

    const size_t& row(std::string_view word, made_state state) {
        wide_string path = path_of(word, folder_);
        const auto [at, is_new] = rows_.try_emplace(path_key(path), files_.size());
        if (is_new) {
            files_.emplace_back();
            is_gone_.push_back(false);
        } else if (at->second < safe_) {
            again_.push_back(at->second);
        }
        // A path that is used again is described by its last record only.
        is_gone_[at->second] = false;
        files_[at->second] = {
            .path = std::move(path), .state = state, .is_safe = is_same_boot_, .is_lost = is_losing_};
        return at->second;
    }

    // `first` is the index of the size, after which come the time and perhaps the digest.
    static void finish(earlier_file& file, made_state state, const std::vector<std::string_view>& words,
                       size_t first) {
        // Without valid numbers the file stays what it was: possibly incomplete.
        if (!read_number(words[first], file.bytes) || !read_number(words[first + 1], file.modified)) return;
        file.state = state;
        if (words.size() > first + 2) file.sha256 = words[first + 2];
    }

    const wide_string folder_;
    earlier_run& found_;
    std::vector<earlier_file> files_;
    std::vector<bool> is_gone_;
    std::unordered_map<wide_string, size_t> rows_; // by path key
    std::string_view copying_;                     // path word of the last copy begun
    wide_string source_;
    bool is_same_boot_ = false, is_losing_ = false;
    size_t safe_ = 0;           // number of files known to be safe
    std::vector<size_t> again_; // earlier ones that were made again since
};

} // namespace

// Files that are written under another name first are called NAME.new and a number until they are complete.
bool is_only_begun(const earlier_file& file) {
    wide_string name = path_file_name(file.path);
    while (!name.empty() && name.back() >= u'0' && name.back() <= u'9') name.pop_back();
    return file.state == made_state::begun || (file.state == made_state::writing && name.ends_with(u".new"));
}

wide_string journal_path(const wide_string& project) {
    constexpr size_t most_characters = 60; // most disks allow 255 bytes for a name
    return path_head(project) + path_stem(project).substr(0, most_characters) + wide_string(journal_name_end);
}

std::string journal_record(const std::vector<std::string>& words) {
    std::string line;
    for (const std::string& word : words) line.append(word).append(1, '\t');
    return line.append(";\n");
}

std::string journal_word(const wide_string& path, const wide_string& folder) {
    const bool is_below = path.size() > folder.size() && path.starts_with(folder);
    std::string text = platform::to_utf8(is_below ? path.substr(folder.size()) : path);
    if (text.find_first_of(hidden_characters) == std::string::npos) return text;
    std::string word;
    for (const char each : text) {
        if (hidden_characters.find(each) == std::string_view::npos)
            word += each;
        else
            word += '%' + hexadecimal(reinterpret_cast<const unsigned char*>(&each), 1);
    }
    return word;
}

platform::outcome read_journal(const wide_string& path, earlier_run& found) {
    std::string text;
    if (const platform::outcome read = read_text(path, text); !read) return read;
    if (!text.empty() && !text.starts_with(journal_title)) // an empty journal has only begun
        return platform::outcome::because(u"it is not the journal of a resave");
    journal_reader reader(path_head(path), found);
    for (size_t at = 0, end = 0; (end = text.find('\n', at)) != std::string::npos; at = end + 1)
        if (const auto words = words_of(std::string_view(text).substr(at, end - at)); !words.empty())
            reader.read(words);
    reader.end();
    return {};
}

} // namespace vestra::command
