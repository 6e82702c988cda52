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

} // namespace vs::project_resave
