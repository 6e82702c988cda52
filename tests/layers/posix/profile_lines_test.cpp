// Linux only: the records of a table are read by GDAL, which is not built for Windows.
#include "tests/support/builder_run.h"

namespace vs::project_resave {

using profile_lines = builder_run;

// Sheet > frame > shown > compound profile > solid > link > linked > lines > drawn.
TEST_F(profile_lines, are_followed_through_every_kind_of_reference_or_through_none) {
    write(src(u"lines.csv"), "NAME,UUID\na,\nb,unknown\nc," + platform::to_utf8(builder.id(u"drawn")) + "\n");
    left_out(u"drawn");
    left_out(u"nobody's");
    left_out(u"linked").layer("prf_lines_lr2d", u"lines");
    builder.last().source = src(u"lines.csv");
    left_out(u"shown").compound(u"profile", {u"unknown", u"solid"});
    builder.scene_3d(u"solid").layer("map_lr3d", u"link", u"*" + builder.id(u"linked") + u"*");
    unticked.push_back(u"solid");
    builder.layout(u"sheet").frame(u"frame", u"shown");
    for (const bool follows : {true, false}) {
        script.answers = {follows ? answer::yes : answer::no};
        run();
        const std::string solid = "solid: link=*" + platform::to_utf8(builder.id(u"linked")) + "*\n";
        EXPECT_EQ((follows ? "drawn:\nlinked: lines\nshown: profile\n" + solid : "") + "sheet: frame\n",
                  outline());
        EXPECT_EQ(builder.id(u"shown"), copy->layouts.at(0)->at(0)->frame->id.text())
            << "also when the scene stays behind";
        EXPECT_EQ(1U, questions());
    }
}

} // namespace vs::project_resave
