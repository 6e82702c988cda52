// Runs whose disk or source is not as it should be.
#include <atomic>
#include <thread>

#include "framework/resources/strings.h"
#include "platform/path_text.h"
#include "tests/support/forwarding_system.h"
#include "tests/torture/generated_area.h"
#include "tests/torture/torture.h"

namespace vs::project_resave {
namespace {

namespace fs = std::filesystem;

class disturbed_runs : public torture::runs {
protected:
    disturbed_runs() { torture::write_generated_area(source, 100, write); }
};

// Takes the source of every third copy away right before it is made.
struct thief final : forwarding_system {
    platform::outcome copy_file(const wide_string& from, const wide_string& to, bool replace) override {
        if (++count % 3 == 0) {
            gone.push_back(from);
            fs::remove(platform::native_path(from));
        }
        return forwarding_system::copy_file(from, to, replace);
    }
    size_t count = 0;
    std::vector<wide_string> gone;
};

TEST_F(disturbed_runs, sources_that_vanish_one_by_one_are_each_named) {
    load();
    thief disturber;
    const platform::system_override in_force(disturber);
    resave();
    EXPECT_TRUE(context->report.saved);
    EXPECT_LT(10U, disturber.gone.size());
    for (const wide_string& path : disturber.gone)
        EXPECT_TRUE(is_told(path_file_name(path)) || path.find(u"\\w\\") != wide_string::npos)
            << platform::to_utf8(path);
}

TEST_F(disturbed_runs, sources_that_grow_or_shrink_meanwhile_are_copied_as_they_were_at_once_or_named) {
    for (const bool grows : {true, false}) {
        const wide_string path = u"C:\\data\\a\\a.shp";
        const fs::path file = platform::native_path(path);
        write(path, std::string(8 << 20, 'x'));
        clear();
        load();
        std::atomic<bool> is_over = false;
        std::thread other([&] {
            std::error_code failed; // while it is being read, unless the system lets others write then
            for (size_t size = 8 << 20; !is_over && size > 4096 && size < 64 << 20;
                 size = fs::file_size(file))
                fs::resize_file(file, size + (grows ? 4096 : -4096), failed);
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
    EXPECT_EQ((std::vector<wide_string>{load_string(text::project_not_saved)}), errors());
    EXPECT_EQ("mine", read(u"N:\\out\\shp"));
}

} // namespace
} // namespace vs::project_resave
