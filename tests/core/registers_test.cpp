#include <gtest/gtest.h>

#include "operations/run/registers.h"
#include "tests/support/temporary_folder.h"

namespace vs::project_resave {
namespace {

// A file of two layers leaves the total with the last of them; one layer in two scenes has one uuid and goes
// at once.
TEST(registers, a_shared_file_is_counted_once_and_as_long_as_somebody_needs_it) {
    const temporary_folder folder;
    size_register sizes;
    selection_register selection(&sizes);
    const auto enter = [&](const wide_string& scene, const wide_string& layer, const wide_string& path) {
        EXPECT_TRUE(sizes.push_parent(scene) && sizes.push_parent(layer));
        sizes.add_file(path);
        sizes.pop_parent();
        sizes.pop_parent();
    };
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

} // namespace
} // namespace vs::project_resave
