// Linux only: the command is killed by a signal, and runs many times at once.
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <map>
#include <thread>

#include "core/paths.h"
#include "tests/support/command_process.h"
#include "tests/support/references_of.h"
#include "tests/support/tree_state.h"
#include "tests/torture/generated_area.h"
#include "tests/torture/torture.h"

namespace vs::project_resave {
namespace {

namespace fs = std::filesystem;
using clock_type = std::chrono::steady_clock;

class processes : public torture::runs {
protected:
    processes() { torture::write_generated_area(source, 300'000, write); }

    // A resave into N:\out; what it prints goes into a file in N:\told.
    pid_t start(const std::string& project, const std::string& structure) const {
        fs::create_directories(native("n") / "told");
        const std::string line =
            command_line("resave 'C:\\prj\\area._vp' 'N:\\out\\" + project +
                             "' --quiet --files --log --scene-files --layer-files --structure " + structure,
                         {{}, told_of(project), {}});
        const pid_t child = ::fork();
        if (child != 0) return child;
        ::execl("/bin/sh", "sh", "-c", line.c_str(), nullptr);
        ::_exit(127);
    }
    fs::path told_of(const std::string& project) const { return native("n") / "told" / project; }
    static int ended(pid_t child) {
        int status = 0;
        ::waitpid(child, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    }

    // When something stands in N:\out, or the run has ended.
    clock_type::time_point first_file(pid_t child) const {
        siginfo_t state{};
        while (fs::is_empty(native("n") / "out") && state.si_pid == 0)
            ::waitid(P_PID, static_cast<id_t>(child), &state, WEXITED | WNOHANG | WNOWAIT);
        return clock_type::now();
    }
    // Of a whole run, from its first file on.
    clock_type::duration run_time(const std::string& structure) const {
        clear();
        const pid_t child = start("new._vp", structure);
        const auto begun = first_file(child);
        EXPECT_EQ(0, ended(child));
        return clock_type::now() - begun;
    }

    // Each file that the run tells as copied is as its source, and the project refers to nothing else.
    void expect_whole(const std::string& project) {
        std::set<wide_string> copied;
        std::ifstream told(told_of(project));
        for (std::string line; std::getline(told, line);) {
            const size_t arrow = line.find(" -> ");
            if (arrow == std::string::npos) continue;
            const wide_string from = platform::from_utf8(line.substr(0, arrow));
            const wide_string to = platform::from_utf8(line.substr(arrow + 4));
            EXPECT_TRUE(path_extension(to) == u"._vp" || read(from) == read(to)) << line;
            copied.insert(to);
        }
        EXPECT_EQ(47U, copied.size());
        expect_references(project, copied);
    }
    void expect_references(const std::string& project, const std::set<wide_string>& among) {
        vestra::project made;
        read_back(u"N:\\out\\" + platform::from_utf8(project), made);
        const std::vector<reference> all = references_of(made);
        EXPECT_EQ(22U, all.size());
        for (const reference& each : all)
            EXPECT_TRUE(each.path.starts_with(u"N:\\out\\") && path_exists(each.path) &&
                        (among.empty() || among.contains(each.path)))
                << platform::to_utf8(each.path);
    }
    // Copies that broke off in the middle, by the names of all files of the source.
    size_t half_files() const {
        std::map<std::string, std::set<std::string>> contents;
        for (const auto& [path, state] : state_of(native("c")))
            contents[fs::path(path).filename().string()].insert(state.bytes);
        size_t count = 0;
        for (const auto& [path, state] : state_of(native("n") / "out")) {
            const auto found = contents.find(fs::path(path).filename().string());
            if (!state.is_folder && found != contents.end()) count += !found->second.contains(state.bytes);
        }
        return count;
    }
};

TEST_F(processes, a_run_killed_anywhere_leaves_the_source_whole_and_the_next_run_succeeds) {
    std::mt19937_64 random = torture::seeded("kills");
    const size_t wanted = torture::number_of("TORTURE_KILLS", 3);
    const tree_state before = state_of(native("c"));
    const char* const structures[] = {"by-type", "from-common-top", "project-tree-else-type"};
    auto whole = run_time(structures[0]);
    size_t killed = 0, with_remains = 0, with_project = 0, half = 0;
    for (size_t turn = 0; killed < wanted && turn < 4 * wanted + 10; ++turn) {
        SCOPED_TRACE("turn " + std::to_string(turn));
        const char* const structure = structures[turn % 3];
        clear();
        const pid_t child = start("new._vp", structure);
        const bool is_early = turn % 8 == 7; // else some time behind the first file
        const auto begun = is_early ? clock_type::now() : first_file(child);
        std::this_thread::sleep_until(begun + whole * (random() % 1024) / 1024);
        ::kill(child, SIGKILL);
        const bool is_killed = ended(child) == -SIGKILL;
        killed += is_killed;
        if (!is_killed) whole = whole * 7 / 8;
        ASSERT_EQ("", difference(before, state_of(native("c"))));
        const bool has_project = path_exists(output);
        if (has_project) expect_references("new._vp", {});
        with_project += is_killed && has_project;
        with_remains += is_killed && !fs::is_empty(native("n") / "out");
        half += half_files();

        ASSERT_EQ(0, ended(start("new._vp", structure)));
        expect_whole("new._vp");
        ASSERT_EQ("", difference(before, state_of(native("c"))));
    }
    EXPECT_EQ(wanted, killed);
    torture::count("kills survived", killed);
    torture::count("kills that left something", with_remains);
    torture::count("kills that left a whole project", with_project);
    torture::count("kills in the middle of a copy", half);
}

TEST_F(processes, twenty_runs_at_once_into_one_folder_make_twenty_whole_projects) {
    const tree_state before = state_of(native("c"));
    for (const char* structure : {"by-type", "from-project-folder", "project-tree-else-type"}) {
        clear();
        std::map<std::string, pid_t> children;
        for (int i = 0; i < 20; ++i) {
            const std::string project = "new" + std::to_string(i) + "._vp";
            children[project] = start(project, structure);
        }
        for (const auto& [project, child] : children) {
            SCOPED_TRACE(structure + (" " + project));
            const int code = ended(child);
            std::ifstream told(told_of(project));
            const std::string text{std::istreambuf_iterator<char>(told), {}};
            EXPECT_TRUE(code == 0 || (code == 1 && text.find("not copied: ") != std::string::npos))
                << code << ' ' << text;
            if (code == 0) expect_whole(project);
            vestra::project made;
            read_back(u"N:\\out\\" + platform::from_utf8(project), made);
        }
        EXPECT_EQ("", difference(before, state_of(native("c"))));
    }
    torture::count("runs at once", 60);
}

} // namespace
} // namespace vs::project_resave
