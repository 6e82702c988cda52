#include <gtest/gtest.h>

#include "core/selection_register.h"
#include "core/size_register.h"
#include "tests/support/temporary_folder.h"

namespace vs::project_resave {
namespace {

class registers : public testing::Test {
protected:
    // Enters a path as the layer of a scene would.
    void enter(const wide_string& scene, const wide_string& layer, const wide_string& path) {
        ASSERT_TRUE(sizes.push_parent(scene));
        ASSERT_TRUE(sizes.push_parent(layer));
        sizes.add_file(path);
        sizes.pop_parent();
        sizes.pop_parent();
    }

    temporary_folder folder;
    size_register sizes;
    selection_register selection{&sizes};
};

// A file of two layers leaves the total with the last of them; one layer in two scenes has one uuid and goes
// at once.
TEST_F(registers, a_shared_file_is_counted_once_and_as_long_as_somebody_needs_it) {
    const wide_string shared = folder.write(u"shared.shp", std::string(2048, 'x'));
    const wide_string single = folder.write(u"single.shp", std::string(512, 'x'));
    sizes.add_file(single); // under nobody: always counted
    enter(u"scene 1", u"layer 1", shared);
    enter(u"scene 2", u"layer 2", shared);
    enter(u"scene 2", u"layer 2", folder.path(u"missing.shp"));
    EXPECT_DOUBLE_EQ(2.5, sizes.total_kb());

    const struct {
        wide_string uuid;
        bool on;
        double expected;
    } steps[] = {
        {u"layer 1", false, 2.5}, {u"scene 2", false, 0.5}, {u"layer 2", false, 0.5},
        {u"scene 2", true, 0.5},  {u"layer 2", true, 2.5},  {u"scene 1", false, 2.5},
        {u"scene 2", false, 0.5}, {u"scene 1", true, 0.5},  {u"layer 1", true, 2.5},
    };
    for (const auto& step : steps) {
        selection.set_selected(step.uuid, step.on);
        EXPECT_DOUBLE_EQ(step.expected, sizes.total_kb());
        EXPECT_EQ(step.on, selection.is_selected(step.uuid));
    }
    EXPECT_TRUE(selection.is_selected(u"never heard of"));
    selection.set_selected(u"", false);
    EXPECT_TRUE(selection.is_selected(u""));
}

TEST_F(registers, a_folder_counts_its_files_at_all_depths_and_not_itself) {
    folder.write(u"grid\\a.bin", std::string(1024, 'x'));
    folder.write(u"grid\\deep\\b.bin", std::string(1024, 'x'));
    sizes.add_files({folder.path(u"grid"), folder.path(u"grid")});
    EXPECT_DOUBLE_EQ(2.0, sizes.total_kb());
    sizes.clear();
    EXPECT_DOUBLE_EQ(0.0, sizes.total_kb());
}

TEST_F(registers, the_figure_is_announced_after_every_change_of_a_known_uuid_only) {
    int told = 0;
    sizes.set_on_changed([&] { ++told; });
    enter(u"scene", u"layer", folder.write(u"a.shp", "x"));
    EXPECT_EQ(0, told);
    selection.set_selected(u"layer", false);
    selection.set_selected(u"layer", false);
    selection.set_selected(u"stranger", false);
    EXPECT_EQ(2, told);
}

} // namespace
} // namespace vs::project_resave
