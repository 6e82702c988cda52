// Linux only: the command is killed by a signal, and runs many times at once.
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <thread>

#include "tests/support/command_process.h"
#include "tests/torture/generated_area.h"

namespace vs::project_resave {
namespace {

namespace fs = std::filesystem;
using clock_type = std::chrono::steady_clock;

class processes : public torture::runs {
protected:
    processes() { torture::write_generated_area(source, 300'000, write); }

    // Starts a resave into N:\out; its output goes to a file in N:\told.
    pid_t start(const std::string& project, const std::string& structure,
                const std::string& more = {}) const {
        fs::create_directories(native("n") / "told");
        const std::string goes_on = more.empty() && has_journal() ? " --resume" : more;
        const std::string line =
            command_line("resave 'C:\\prj\\area._vp' 'N:\\out\\" + project +
                             "' --overwrite --quiet --files --log --scene-files --layer-files --structure " +
                             structure + goes_on,
                         {{}, told_of(project), {}});
        const pid_t child = ::fork();
        if (child != 0) return child;
        ::execl("/bin/sh", "sh", "-c", line.c_str(), nullptr);
        ::_exit(127);
    }
    bool has_journal() const { return fs::exists(native("n") / "out" / "new.resave-journal"); }
    // Returns names and bytes in the new folder.
    std::map<std::string, std::string> result() const {
        std::map<std::string, std::string> all;
        for (const auto& [path, state] : state_of(native("n") / "out"))
            if (path != "new.manifest.json") all.emplace(path, state.bytes); // it holds times
        return all;
    }
    void expect_result(const std::map<std::string, std::string>& expected) const {
        const auto now = result();
        for (const auto& [path, bytes] : expected)
            EXPECT_TRUE(now.contains(path) && now.at(path) == bytes) << path;
        for (const auto& [path, bytes] : now) EXPECT_TRUE(expected.contains(path)) << path;
    }
    fs::path told_of(const std::string& project) const { return native("n") / "told" / project; }
    static int ended(pid_t child) {
        int status = 0;
        ::waitpid(child, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    }

    // Waits until the run has begun its log or has ended.
    clock_type::time_point first_file(pid_t child) const {
        siginfo_t state{};
        while (log_time() == log_before_ && state.si_pid == 0)
            ::waitid(P_PID, static_cast<id_t>(child), &state, WEXITED | WNOHANG | WNOWAIT);
        return clock_type::now();
    }
    fs::file_time_type log_time() const {
        std::error_code absent;
        return fs::last_write_time(native("n") / "out" / "new_log.txt", absent);
    }
    // Prepares an empty folder, or one with the project and all files of an earlier run.
    void prepare(bool has_older) {
        clear();
        const fs::path out = native("n") / "out";
        if (has_older) fs::copy(native("n") / "older", out, fs::copy_options::recursive);
        older_ = state_of(out);
        log_before_ = log_time();
    }
    void make_older(const std::string& more = {}) {
        prepare(false);
        EXPECT_EQ(0, ended(start("new._vp", "by-type", more)));
        fs::rename(native("n") / "out", native("n") / "older");
    }
    // Checks all files except those that a run writes again under the same name.
    void expect_older_stays() const {
        const tree_state now = state_of(native("n") / "out");
        for (const auto& [path, state] : older_) {
            if (path.find("._") != std::string::npos || path == "new_log.txt") continue;
            const auto found = now.find(path);
            EXPECT_TRUE(found != now.end() && found->second.bytes == state.bytes) << path;
        }
    }
    // Checks that the project is the new one with everything it refers to, or the older one byte for byte, or
    // missing only if there was none. Returns true if it is the new one.
    bool has_new_project() const {
        const auto older = older_.find("new._vp");
        const bool is_older = older != older_.end() && read(output) == older->second.bytes;
        if (is_older || (older == older_.end() && !path_exists(output))) return false;
        expect_references("new._vp");
        return true;
    }
    // Returns the time of a whole run, from its first file on.
    clock_type::duration run_time(const std::string& structure) {
        prepare(false);
        const pid_t child = start("new._vp", structure);
        const auto begun = first_file(child);
        EXPECT_EQ(0, ended(child));
        const auto taken = clock_type::now() - begun;
        whole_ = copies_of("new._vp");
        EXPECT_EQ(47U, whole_.size());
        return taken;
    }

    // Returns the copies that the run reports, by source; checks that each equals its source.
    std::multimap<wide_string, wide_string> copies_of(const std::string& project) const {
        std::multimap<wide_string, wide_string> copies;
        std::ifstream told(told_of(project));
        for (std::string line; std::getline(told, line);) {
            const size_t arrow = line.find(" -> ");
            if (arrow == std::string::npos) continue;
            const wide_string from = platform::drive_path(line.substr(0, arrow));
            const wide_string to = platform::drive_path(line.substr(arrow + 4));
            EXPECT_TRUE(path_extension(to) == u"._vp" || read(from) == read(to)) << line;
            EXPECT_EQ("",
                      difference(state_of(platform::native_path(from)), state_of(platform::native_path(to))));
            copies.emplace(from, to);
        }
        return copies;
    }
    std::vector<reference> expect_references(const std::string& project) const {
        vestra::project made;
        read_back(u"N:\\out\\" + platform::from_utf8(project), made);
        std::vector<reference> all = references_of(made);
        EXPECT_EQ(22U, all.size());
        for (const reference& each : all)
            EXPECT_TRUE(each.path.starts_with(u"N:\\out\\") && path_exists(each.path))
                << platform::to_utf8(each.path);
        return all;
    }
    // Checks that the project refers to copies of its own run, one of each source, and that what is missing
    // was reported.
    void expect_whole(const std::string& project, const wide_string& told = {}) const {
        std::set<wide_string> own;
        const auto copies = copies_of(project);
        for (const auto& [from, to] : copies) own.insert(to);
        for (const reference& each : expect_references(project))
            EXPECT_TRUE(own.contains(each.path) || names_original(told, each.path))
                << "refers to " << platform::to_utf8(each.path);
        for (const auto& [from, to] : whole_)
            EXPECT_TRUE(copies.contains(from) || names_family(told, from))
                << "not copied and nothing told: " << platform::to_utf8(from);
    }
    // Returns the number of incomplete copies, found by the names of all source files.
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

    tree_state older_;                              // the content of N:\out before the run
    fs::file_time_type log_before_;                 // of its log
    std::multimap<wide_string, wide_string> whole_; // the copies of a run that nothing disturbs
};

TEST_F(processes, a_killed_run_leaves_the_source_whole_and_the_next_succeeds) {
    std::mt19937_64 random = torture::seeded("kills");
    const size_t wanted = torture::number_of("TORTURE_KILLS", 5);
    const tree_state before = state_of(native("c"));
    const char* const structures[] = {"by-type", "from-common-top", "project-tree-else-type"};
    make_older();
    auto whole = run_time(structures[0]);
    std::map<std::string, size_t> met;
    size_t& killed = met["kills survived"];
    for (size_t turn = 0; killed < wanted && turn < 4 * wanted + 10; ++turn) {
        SCOPED_TRACE("turn " + std::to_string(turn));
        const char* const structure = structures[turn % 3];
        const bool has_older = turn % 2 == 1;
        prepare(has_older);
        const pid_t child = start("new._vp", structure);
        const bool is_early = turn % 9 == 8; // else some time after the first file
        const auto begun = is_early ? clock_type::now() : first_file(child);
        std::this_thread::sleep_until(begun + whole * (random() % 1024) / 1024);
        ::kill(child, SIGKILL);
        const bool is_killed = ended(child) == -SIGKILL;
        killed += is_killed;
        met["kills while an older project stood there"] += is_killed && has_older;
        if (!is_killed) whole = whole * 7 / 8;
        expect_older_stays();
        met["kills that left a whole project"] += has_new_project() && is_killed;
        met["kills that left something"] += is_killed && state_of(native("n") / "out").size() > older_.size();
        met["kills in the middle of a copy"] += half_files();

        ASSERT_EQ(0, ended(start("new._vp", structure)));
        EXPECT_TRUE(has_new_project());
        expect_whole("new._vp");
        expect_older_stays();
        ASSERT_EQ("", difference(before, state_of(native("c"))));
    }
    EXPECT_EQ(wanted, killed);
    for (const auto& [what, number] : met) torture::count(what.c_str(), number);
}

TEST_F(processes, a_killed_run_resumes_to_what_one_whole_run_makes) {
    std::mt19937_64 random = torture::seeded("resumed kills");
    const size_t wanted = torture::number_of("TORTURE_KILLS", 5);
    const tree_state before = state_of(native("c"));
    const char* const structures[] = {"by-type", "from-common-top", "folder-per-scene"};
    make_older();
    std::map<std::pair<const char*, bool>, std::map<std::string, std::string>> whole_results;
    for (const char* structure : structures)
        for (const bool has_older : {false, true}) {
            prepare(has_older);
            ended(start("new._vp", structure));
            whole_results[{structure, has_older}] = result();
        }
    auto whole = run_time(structures[0]);
    std::map<std::string, size_t> met;
    size_t& killed = met["kills resumed"];
    for (size_t turn = 0; killed < wanted && turn < 4 * wanted + 10; ++turn) {
        const char* const structure = structures[random() % 3];
        const bool has_older = random() % 2 == 0;
        SCOPED_TRACE(structure + (" turn " + std::to_string(turn)));
        prepare(has_older);
        const auto& expected = whole_results.at({structure, has_older});
        for (bool is_killed = true; is_killed;) {
            const pid_t child = start("new._vp", structure);
            std::this_thread::sleep_until(first_file(child) + whole * (random() % 1024) / 1024);
            if (random() % 3 != 0) ::kill(child, SIGKILL); // else it runs to its end
            const int code = ended(child);
            is_killed = code == -SIGKILL;
            killed += is_killed;
            if (is_killed && !has_journal() && result() == expected)
                is_killed = false; // it had already ended
            ASSERT_TRUE(is_killed || code == 0 || code == 1 || code == -SIGKILL) << code;
        }
        expect_result(expected);
        ASSERT_EQ("", difference(before, state_of(native("c"))));
    }
    EXPECT_LE(wanted, killed);
    for (const auto& [what, number] : met) torture::count(what.c_str(), number);
}

// Unchanged files stay, a changed file is the old or the new one, and the next update makes the rest.
TEST_F(processes, an_update_killed_anywhere_is_finished_by_the_next_one) {
    std::mt19937_64 random = torture::seeded("killed updates");
    const size_t wanted = torture::number_of("TORTURE_KILLS", 5);
    make_older(" --manifest");
    for (const wide_view name : {u"a\\a.shp", u"b\\r.tif", u"c\\t.dbf", u"c\\w\\log.txt"})
        write(u"C:\\data\\" + wide_string(name), "changed since");
    const tree_state before = state_of(native("c"));
    prepare(true);
    ASSERT_EQ(0, ended(start("new._vp", "by-type", " --update")));
    const auto expected = result();
    auto whole = run_time("by-type");
    size_t killed = 0;
    for (size_t turn = 0; killed < wanted && turn < 4 * wanted + 10; ++turn) {
        SCOPED_TRACE("turn " + std::to_string(turn));
        prepare(true);
        const pid_t child = start("new._vp", "by-type", " --update");
        std::this_thread::sleep_until(first_file(child) + whole * (random() % 1024) / 1024);
        ::kill(child, SIGKILL);
        killed += ended(child) == -SIGKILL;
        for (const auto& [path, bytes] : result()) {
            const auto old = older_.find(path);
            const bool is_new = expected.contains(path) && expected.at(path) == bytes;
            const bool is_old = old != older_.end() && old->second.bytes == bytes;
            const bool is_written =
                path == "new_log.txt" || path.find("._") != std::string::npos; // more than once
            EXPECT_TRUE(is_old || is_new || old == older_.end() || is_written) << path;
        }
        ASSERT_EQ(0, ended(start("new._vp", "by-type", " --update")));
        expect_result(expected);
        ASSERT_EQ("", difference(before, state_of(native("c"))));
    }
    EXPECT_LE(wanted, killed);
    torture::count("kills of an update", killed);
}

// Runs that start while another one is active are refused, and repeated afterwards.
TEST_F(processes, twenty_runs_at_once_into_one_folder_make_whole_projects) {
    const tree_state before = state_of(native("c"));
    run_time("by-type");
    for (const char* structure : {"by-type", "from-project-folder", "project-tree-else-type"}) {
        clear();
        std::map<std::string, pid_t> children;
        for (int i = 0; i < 20; ++i) {
            const std::string project = "new" + std::to_string(i) + "._vp";
            children[project] = start(project, structure);
        }
        std::map<std::string, int> codes;
        for (const auto& [project, child] : children) codes[project] = ended(child);
        for (auto& [project, code] : codes) {
            if (code != 2) continue;
            EXPECT_FALSE(path_exists(u"N:\\out\\" + platform::from_utf8(project))) << project;
            code = ended(start(project, structure));
        }
        for (const auto& [project, code] : codes) {
            SCOPED_TRACE(structure + (" " + project));
            std::ifstream file(told_of(project));
            wide_string told;
            for (std::string line; std::getline(file, line);)
                if (const size_t end = line.find(": could not be "); end != std::string::npos)
                    told += u' ' + path_file_name(platform::drive_path(line.substr(0, end))) + u'\n';
            EXPECT_EQ(told.empty() ? 0 : 1, code);
            expect_whole(project, told);
        }
        EXPECT_EQ("", difference(before, state_of(native("c"))));
    }
    torture::count("runs at once", 60);
}

} // namespace
} // namespace vs::project_resave
