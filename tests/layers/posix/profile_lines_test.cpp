// Linux only: the records of a table are read by GDAL, which is not built for Windows.
#include "tests/layers/layer_run.h"

namespace vs::project_resave {

using profile_lines = layer_run;

// Sheet > frame > shown > compound profile > solid > link > linked > lines > drawn.
TEST_F(profile_lines, are_followed_through_every_kind_of_reference_or_through_none) {
    for (const answer given : {answer::yes, answer::no}) {
        clear();
        const wide_string drawn = left_out(u"drawn").id.text();
        write(src(u"lines.csv"), "NAME,UUID\na,\nb,unknown\nc," + platform::to_utf8(drawn) + "\n");
        left_out(u"nobody's");
        vestra::scene& linked = left_out(u"linked");
        add(linked, "prf_lines_lr2d", u"").source = src(u"lines.csv");
        vestra::scene& solid = scene_3d();
        deselected.push_back(solid.id.text());
        add(solid, "map_lr3d", u"*" + linked.id.text() + u"*");
        vestra::scene& shown = left_out(u"shown");
        add(shown, "prf_compound_lr2d", u"").members = names{u"unknown", solid.id.text()};
        add(named(project->layouts.make_scene()), "layout_scene_frame", u"").frame.emplace(shown.id);
        const wide_string frame = shown.id.text();
        script.answers = {given};
        run();
        EXPECT_EQ(scenes(), given == answer::yes ? (names{u"drawn", u"linked", u"shown"}) : names{});
        EXPECT_EQ(copy->scenes_3d.count(), given == answer::yes ? 1U : 0U);
        EXPECT_EQ(copy->layouts.at(0)->at(0)->frame->id.text(), frame) << "also when the scene stays behind";
        EXPECT_EQ(questions(), 1U);
    }
}

} // namespace vs::project_resave
