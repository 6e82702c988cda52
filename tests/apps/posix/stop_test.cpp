// Linux only: the command is stopped by a signal, or its shell limits the size of files.
// What a stop erases, keeps and reports.
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <nlohmann/json.hpp>

#include "tests/apps/command_run.h"

namespace vs::project_resave {
namespace {

using std::string;

class stopped_command : public command_run {
protected:
    stopped_command() {
        builder.scene_2d(u"S");
        for (uint32_t index = 0; index < 40; ++index)
            builder.layer("rtr_lr2d", u"R", write(u"C:\\data\\" + decimal(index) + u".tif"));
        builder.save(source);
    }
    // Runs it and sends a signal, by default that of Ctrl-C, once this text is on the error output; returns
    // the exit status. The pipe holds one line at a time, so the command is at most two lines ahead.
    int interrupted(const string& arguments, const string& at, int signal = SIGINT) {
        int ends[2];
        EXPECT_EQ(0, ::pipe2(ends, O_DIRECT | O_CLOEXEC));
        EXPECT_LT(0, ::fcntl(ends[1], F_SETPIPE_SZ, 1));
        const string line = command_line(arguments, {{}, file_of("out"), "&2"}); // the pipe
        const pid_t child = ::fork();
        if (child == 0) {
            ::dup2(ends[1], STDERR_FILENO);
            ::execl("/bin/sh", "sh", "-c", line.c_str(), nullptr);
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
            ::kill(child, signal);
        }
        ::close(ends[0]);
        int status = 0;
        ::waitpid(child, &status, 0);
        out = text("out");
        EXPECT_TRUE(is_pressed) << err;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
};

TEST_F(stopped_command, a_resave_erases_or_keeps_as_asked_and_reports_the_stop) {
    const tree_state before = sources();
    for (const auto& [choice, signal] : {std::pair<string, int>("", SIGTERM),
                                         {"--on-stop keep", SIGINT},
                                         {"--on-stop ask", SIGHUP},
                                         {"--on-stop erase", SIGTERM},
                                         {"--on-stop  erase", SIGINT}}) {
        SCOPED_TRACE(choice);
        remove_tree(u"N:\\out");
        const string deep = "resave 'C:\\prj\\area._vp' 'N:\\out\\a\\new._vp' --json --log " + choice;
        EXPECT_EQ(128 + signal, interrupted(deep, " 20 % ", signal)) << err;
        const auto told = nlohmann::json::parse(out);
        EXPECT_EQ("stopped", told.at("outcome"));
        EXPECT_EQ("interrupted", told.at("problems").at(0).at("kind"));
        EXPECT_TRUE(is_told("interrupted"));
        const bool keeps = !choice.ends_with("erase");
        EXPECT_EQ(keeps, path_exists(u"N:\\out\\a\\rtr\\39.tif") && path_exists(u"N:\\out\\a\\new_log.txt"))
            << made(); // files are erased from the last to the first
        EXPECT_EQ(keeps, read(u"N:\\out\\a\\new_log.txt").ends_with("operation was interrupted\n\r\n"));
        EXPECT_EQ(keeps, path_exists(u"N:\\out"));
        EXPECT_FALSE(path_exists(u"N:\\out\\a\\new._vp") || path_exists(u"N:\\out\\a\\rtr\\0.tif"));
    }
    EXPECT_EQ("", difference(before, sources()));
}

// The project has been saved by then.
TEST_F(stopped_command, companions_are_erased_or_kept_with_all_other_copies) {
    for (uint32_t index = 0; index < 40; ++index) write(u"C:\\data\\" + decimal(index) + u".tif.msk", "mask");
    const tree_state before = sources();
    for (const string choice : {"keep", "erase"}) {
        const string line = "resave 'C:\\prj\\area._vp' 'N:\\out\\a\\new._vp' --json --on-stop " + choice;
        EXPECT_EQ(130, interrupted(line, " 40 % Copying companions")) << err;
        EXPECT_EQ("stopped", nlohmann::json::parse(out).at("outcome"));
        EXPECT_FALSE(path_exists(u"N:\\out\\a\\rtr\\0.tif.msk"));
        EXPECT_EQ(choice == "keep",
                  path_exists(u"N:\\out\\a\\rtr\\39.tif.msk") && path_exists(u"N:\\out\\a\\new._vp"));
        EXPECT_EQ(choice == "keep", path_exists(u"N:\\out"));
        remove_tree(u"N:\\out");
    }
    EXPECT_EQ("", difference(before, sources()));
}

TEST_F(stopped_command, a_text_is_taken_away) {
    for (const char* name : {"structure --layers", "check-case"}) {
        write(u"N:\\out\\t.txt", "older");
        EXPECT_EQ(130, interrupted(string(name) + " 'C:\\prj\\area._vp' 'N:\\out\\t.txt'", " 10 % ")) << err;
        EXPECT_TRUE(is_told("interrupted")) << err;
        EXPECT_EQ("", made());
    }
}

// The new project cannot be written while an older one with its name exists.
TEST_F(stopped_command, an_existing_older_project_is_not_taken_for_the_new_one) {
    builder.clear();
    for (uint32_t index = 0; index < 40; ++index) builder.scene_2d(u"Scene " + decimal(index));
    builder.save(source);
    ASSERT_EQ(0, command("resave 'C:\\prj\\area._vp' 'N:\\out\\new._vp'")) << err;
    const tree_state before = all_drives();
    const string line = line_of("resave 'C:\\prj\\area._vp' 'N:\\out\\new._vp' --overwrite");
    EXPECT_EQ(3, run("ulimit -f 1; " + line));
    EXPECT_EQ("", difference(before, all_drives()));
}

// A killed run leaves one file, which the next run replaces.
TEST_F(stopped_command, an_archive_stays_as_it_was_until_a_new_one_is_whole) {
    string noise; // that cannot be compressed
    for (uint32_t bits = 1; noise.size() < 2'000'000; bits = bits * 1664525 + 1013904223)
        noise += static_cast<char>(bits >> 24U);
    for (uint32_t index = 0; index < 10; ++index) write(u"C:\\data\\" + decimal(index) + u".tif", noise);
    for (const string name : {"a.zip", "a.tar.zst"}) {
        const string line = "resave 'C:\\prj\\area._vp' 'N:\\out\\" + name + "' --on-stop keep";
        EXPECT_EQ(130, interrupted(line, "Writing the archive")) << err;
        EXPECT_EQ("", made());
        ASSERT_EQ(0, command(line)) << err;
        const tree_state before = all_drives();
        EXPECT_EQ(130, interrupted(line + " --overwrite", "Writing the archive")) << err;
        EXPECT_EQ("", difference(before, all_drives()));
        interrupted(line + " --overwrite", "Writing the archive", SIGKILL);
        EXPECT_EQ("new: n:/out/" + name + ".vestra-part\n", difference(before, all_drives()));
        EXPECT_EQ(0, command(line + " --overwrite --quiet")) << err;
        EXPECT_EQ(" " + name, made());
        remove_tree(u"N:\\out\\" + platform::from_utf8(name));
    }
}

} // namespace
} // namespace vs::project_resave
