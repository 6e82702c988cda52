// The command line as a process of its own, on the drives of the test.
#pragma once

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>

#include "tests/support/host_fixture.h"
#include "tests/support/project_builder.h"
#include "tests/support/tree_state.h"

namespace vs::project_resave {

class command_run : public host_fixture {
protected:
    // Runs the command through a shell; the exit code. What it printed is in `out` and `err`.
    int command(const std::string& arguments) {
        const int status = std::system((line(arguments) + " 2> " + file_of("err")).c_str());
        err = text("err");
        out = text("out");
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    // The same, with Ctrl-C once this text is on the error output. The pipe holds one line at a time, so the
    // command is two lines ahead at most.
    int interrupted(const std::string& arguments, const std::string& at) {
        int ends[2];
        EXPECT_EQ(0, ::pipe2(ends, O_DIRECT | O_CLOEXEC));
        EXPECT_LT(0, ::fcntl(ends[1], F_SETPIPE_SZ, 1));
        const std::string shell_line = line(arguments);
        const pid_t child = ::fork();
        if (child == 0) {
            ::dup2(ends[1], STDERR_FILENO);
            ::execl("/bin/sh", "sh", "-c", shell_line.c_str(), nullptr);
            ::_exit(127);
        }
        ::close(ends[1]);
        err.clear();
        bool is_pressed = false;
        char part[4096];
        for (ssize_t length; (length = ::read(ends[0], part, sizeof part)) > 0;) {
            err.append(part, static_cast<size_t>(length));
            if (is_pressed || !is_told(at)) continue;
            is_pressed = true;
            ::kill(child, SIGINT);
        }
        ::close(ends[0]);
        int status = 0;
        ::waitpid(child, &status, 0);
        out = text("out");
        EXPECT_TRUE(is_pressed) << err;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    bool is_told(const std::string& text) const { return err.find(text) != std::string::npos; }
    size_t times_told(const std::string& text) const {
        size_t count = 0;
        for (size_t at = 0; (at = err.find(text, at)) != std::string::npos; at += text.size()) ++count;
        return count;
    }
    // Files and folders of the new folder, each behind a blank, in order.
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

    std::string out, err;

private:
    std::string line(const std::string& arguments) const {
        std::string all = "exec env LC_ALL=C " VS_COMMAND " " + arguments;
        for (const char* drive : {"C", "D", "N"})
            all += std::string(" --drive ") + drive + "=" + native(drive).string();
        return all + " < /dev/null > " + file_of("out");
    }
    // Beside the drives.
    std::string file_of(const char* stream) const { return (native("c").parent_path() / stream).string(); }
    std::string text(const char* stream) const {
        std::ifstream file(file_of(stream), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
};

} // namespace vs::project_resave
