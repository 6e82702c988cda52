// Linux only: the records of a table are read by GDAL, which is not built for Windows.
#include "tests/layers/references_run.h"

namespace vs::project_resave {

using profile_lines = references_run;

TEST_F(profile_lines, scenes_named_in_the_records_of_their_table_are_added) {
    const wide_string drawn = left_out(u"drawn").id.text();
    left_out(u"nobody's");
    vestra::scene& scene = scene_2d();
    const std::string uuid = platform::to_utf8(drawn);
    disk.write(u"src\\lines.csv", "NAME,UUID\na,\nb,unknown\nc," + uuid + "\nd," + uuid + "\n");
    add(scene, "prf_lines_lr2d", u"").source = src(u"lines.csv");
    disk.write(u"src\\plain.csv", "NAME\na\n");
    add(scene, "prf_lines_lr2d", u"").source = src(u"plain.csv");
    front_end.answers = {vestra::shell::answer::yes};
    resave();
    EXPECT_EQ(scenes(), (names{u"drawn", u"S"}));
    EXPECT_EQ(questions(), 1U);
    EXPECT_EQ(problems, u"");
}

// Sheet > frame > shown > compound profile > solid > link > linked > lines > drawn.
TEST_F(profile_lines, are_followed_through_every_kind_of_reference_or_through_none) {
    using vestra::shell::answer;
    for (const answer given : {answer::yes, answer::no}) {
        clear();
        const wide_string drawn = left_out(u"drawn").id.text();
        disk.write(u"src\\lines.csv", "NAME,UUID\na," + platform::to_utf8(drawn) + "\n");
        vestra::scene& linked = left_out(u"linked");
        add(linked, "prf_lines_lr2d", u"").source = src(u"lines.csv");
        vestra::scene& solid = scene_3d();
        deselected.push_back(solid.id.text());
        add(solid, "map_lr3d", u"*" + linked.id.text() + u"*");
        vestra::scene& shown = left_out(u"shown");
        add(shown, "prf_compound_lr2d", u"").members = names{solid.id.text()};
        add(named(project->layouts.make_scene()), "layout_scene_frame", u"").frame.emplace(shown.id);
        const wide_string frame = shown.id.text();
        front_end.answers = {given};
        resave();
        EXPECT_EQ(scenes(), given == answer::yes ? (names{u"drawn", u"linked", u"shown"}) : names{});
        EXPECT_EQ(copy->scenes_3d.count(), given == answer::yes ? 1U : 0U);
        EXPECT_EQ(copy->layouts.at(0)->at(0)->frame->id.text(), frame) << "also when the scene stays behind";
        EXPECT_EQ(questions(), 1U);
    }
}

} // namespace vs::project_resave
