// Linux only: a file that is being read can be changed there.
// Runs whose disk or source is not as it should be.
#include <atomic>
#include <thread>

#include "core/paths.h"
#include "framework/strings.h"
#include "tests/support/faulty_system.h"
#include "tests/support/tree_state.h"
#include "tests/torture/generated_area.h"
#include "tests/torture/torture.h"

namespace vs::project_resave {
namespace {

namespace fs = std::filesystem;

class disturbed_runs : public host_fixture {
protected:
    disturbed_runs() { torture::write_generated_area(source, 100, write); }
    bool is_told(wide_view what) const {
        for (const run_report::problem& problem : context->report.problems)
            if (problem.text.find(what) != wide_string::npos) return true;
        return false;
    }
};

// Does something to the source of each copy right before it is made.
struct meddler final : forwarding_system {
    using deed = std::function<void(const wide_string&)>;
    explicit meddler(deed what) : before_copy(std::move(what)) {}
    bool copy_file(const wide_string& from, const wide_string& to, bool replace) override {
        before_copy(from);
        return forwarding_system::copy_file(from, to, replace);
    }
    deed before_copy;
};

TEST_F(disturbed_runs, nothing_can_be_written_to_the_target_and_that_is_told) {
    const tree_state before = state_of(native("c"));
    load();
    faulty_system::kinds all = faulty_system::disk_full;
    all.insert({faulty_system::call::rename, faulty_system::call::delete_file});
    faulty_system read_only(all, 1, SIZE_MAX, u"N:");
    const platform::system_override in_force(read_only);
    resave();
    EXPECT_EQ((std::vector<wide_string>{load_string(509)}), errors());
    EXPECT_TRUE(fs::is_empty(native("n") / "out"));
    EXPECT_EQ("", difference(before, state_of(native("c"))));
}

TEST_F(disturbed_runs, sources_that_vanish_one_by_one_are_each_named) {
    load();
    std::vector<wide_string> gone;
    size_t count = 0;
    meddler thief([&](const wide_string& from) {
        if (++count % 3 != 0) return;
        gone.push_back(from);
        fs::remove(platform::native_path(from));
    });
    const platform::system_override in_force(thief);
    resave();
    EXPECT_TRUE(context->report.saved);
    EXPECT_LT(10U, gone.size());
    for (const wide_string& path : gone)
        EXPECT_TRUE(is_told(path_file_name(path)) || path.find(u"\\w\\") != wide_string::npos)
            << platform::to_utf8(path);
}

TEST_F(disturbed_runs, sources_that_grow_or_shrink_meanwhile_are_copied_as_they_were_at_once_or_named) {
    for (const bool grows : {true, false}) {
        const wide_string path = u"C:\\data\\a\\a.shp";
        const fs::path file = platform::native_path(path);
        write(path, std::string(8 << 20, 'x'));
        fs::remove_all(native("n") / "out");
        fs::create_directories(native("n") / "out");
        load();
        std::atomic<bool> is_over = false;
        std::thread other([&] {
            for (size_t size = 8 << 20; !is_over && size > 4096 && size < 64 << 20;)
                fs::resize_file(file, size += grows ? 4096 : -4096);
        });
        resave();
        is_over = true;
        other.join();
        const std::string copy = read(context->placement.lookup_placed(path));
        EXPECT_EQ(copy.empty(), is_told(u"a.shp"));
        EXPECT_EQ(0U, copy.size() % 4096);
        EXPECT_TRUE(context->report.saved);
    }
}

TEST_F(disturbed_runs, a_file_where_a_folder_is_wanted_is_told_and_stays) {
    write(u"N:\\out\\shp", "mine");
    load_and_resave();
    EXPECT_TRUE(context->report.saved && is_told(u"a.shp"));
    EXPECT_EQ("mine", read(u"N:\\out\\shp"));
    EXPECT_TRUE(path_exists(u"N:\\out\\tif\\r.tif") || path_exists(u"N:\\out\\rtr\\r.tif"));

    output = u"N:\\out\\shp\\new._vp";
    load_and_resave();
    EXPECT_EQ((std::vector<wide_string>{load_string(509)}), errors());
    EXPECT_EQ("mine", read(u"N:\\out\\shp"));
}

TEST_F(disturbed_runs, a_folder_that_links_to_itself_ends_the_walk) {
    std::error_code failed;
    fs::create_directory_symlink(".", native("c") / "data" / "a" / "w" / "again", failed);
    if (failed) GTEST_SKIP() << "no links here";
    load_and_resave();
    EXPECT_TRUE(context->report.saved);
    EXPECT_EQ(read(u"C:\\data\\a\\w\\1\\core.txt"), read(u"N:\\out\\well\\w_(2)\\1\\core.txt"));
}

} // namespace
} // namespace vs::project_resave
