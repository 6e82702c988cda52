// Runs the command line as a separate process on the drives of the test.
#pragma once

#include "tests/support/builder_run.h"
#include "tests/support/command_process.h"

namespace vs::project_resave {

class command_run : public builder_run {
protected:
    // Runs the command and returns its exit status. Its output is in `out` and `err`.
    int command(const std::string& arguments) { return run(line_of(arguments)); }
    // Returns the shell line of the command, which can be appended to others.
    std::string line_of(const std::string& arguments) const {
        return command_line(arguments, {{}, file_of("out"), file_of("err")});
    }
    int run(const std::string& line) {
        const int code = run_line(line);
        out = text("out");
        err = text("err");
        return code;
    }
    // As above with lines for its input; all its output is in `out`.
    int session(const std::string& arguments, const std::string& lines) {
        streams_.write(u"in", lines);
        const int code = run_line(command_line(arguments, {file_of("in"), file_of("out"), {}}));
        out = text("out");
        return code;
    }
    bool is_told(const std::string& text) const { return err.find(shown(text)) != std::string::npos; }
    bool is_printed(const std::string& text) const { return out.find(shown(text)) != std::string::npos; }
    // Returns the text with its drive paths as the command prints them: in the form of the operating system.
    static std::string shown(const std::string& text) {
        std::string all;
        bool is_native = false; // a path that has no "\" here
        for (size_t at = 0; at < text.size(); ++at) {
            const bool is_drive = std::string("CDNn").find(text[at]) != std::string::npos;
            if (is_drive && text.compare(at + 1, 2, ":\\") == 0) {
                const std::string root = platform::native_text(platform::from_utf8(text.substr(at, 3)));
                is_native = root.starts_with("/");
                all += root + (is_native ? "/" : "");
                at += 2;
                continue;
            }
            is_native = is_native && std::string(":\n\"").find(text[at]) == std::string::npos;
            all += is_native && text[at] == '\\' ? '/' : text[at];
        }
        return all;
    }
    // Returns the files and folders of the new folder, each after a space, in order.
    std::string made() const {
        std::string names;
        for (const auto& [path, state] : state_of(native("n") / "out")) names += " " + path;
        return names;
    }

    tree_state all_drives() const {
        tree_state all = sources();
        for (const auto& [path, state] : state_of(native("n"))) all.emplace("n:/" + path, state);
        return all;
    }

    // Next to the drives.
    std::filesystem::path file_of(const char* stream) const { return streams_.native() / stream; }
    // Returns the content of a stream with the same line ends on every system.
    std::string text(const char* stream) const {
        std::ifstream file(file_of(stream));
        return {std::istreambuf_iterator<char>(file), {}};
    }

    std::string out, err;

private:
    temporary_folder streams_;
};

} // namespace vs::project_resave
