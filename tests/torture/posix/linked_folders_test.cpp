// Linux only: folders that contain themselves through links, which any user can create there.
#include "operations/run/path_files.h"
#include "tests/support/faulty_system.h"
#include "tests/torture/generated_area.h"

namespace vs::project_resave {
namespace {

namespace fs = std::filesystem;

class linked_folders : public torture::runs {
protected:
    linked_folders() {
        torture::write_generated_area(source, 100, write);
        const fs::path well = native("c") / "data" / "a" / "w";
        fs::create_directory_symlink(well, well / "1" / "self");
        fs::create_directory_symlink(native("c") / "data", well / "1" / "above");
    }
};

TEST_F(linked_folders, are_copied_once_and_the_run_ends) {
    const tree_state before = sources();
    load_and_resave();
    EXPECT_TRUE(context->report.saved && context->report.problems().empty());
    const wide_string copy = context->placement.lookup_placed(u"C:\\data\\a\\w");
    EXPECT_EQ("",
              difference(state_of(native("c") / "data" / "a" / "w"), state_of(platform::native_path(copy))));
    EXPECT_EQ("", difference(before, sources()));
}

// If the operating system does not show that it is one folder, its links are followed until they fail, which
// is reported.
TEST_F(linked_folders, that_are_not_recognised_are_copied_or_reported) {
    fs::remove(native("c") / "data" / "a" / "w" / "1" / "above");
    const tree_state before = sources();
    load();
    faulty_system faults({"same file"}, 1, SIZE_MAX);
    const platform::system_override in_force(faults);
    resave();
    EXPECT_TRUE(!faults.failed.empty() && context->report.saved);
    EXPECT_TRUE(is_told(u"w.wel") || context->placement.is_placed(u"C:\\data\\a\\w"));
    EXPECT_EQ("", difference(before, sources()));
    expect_nothing_left();
}

} // namespace
} // namespace vs::project_resave
