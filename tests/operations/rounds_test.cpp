// The rounds in which selected elements pull in what they refer to.
#include "tests/support/builder_run.h"

namespace vs::project_resave {
namespace {

class rounds : public builder_run {
protected:
    // Resaves with this answer to the question of what to add; the number of scenes in the new project.
    uint32_t scenes_with(answer given) {
        script.answers = {given, answer::no};
        run();
        return copy->scenes_2d.count();
    }
};

TEST_F(rounds, follow_a_chain_of_references_as_far_as_twelve_rounds_go_if_the_user_wants_so) {
    const struct {
        uint32_t length;
        answer given;
        uint32_t saved;
        bool exceeded;
    } rows[] = {{1, answer::yes, 1, false},   {2, answer::yes, 2, false},  {5, answer::no, 1, false},
                {11, answer::yes, 11, false}, {12, answer::yes, 12, true}, {20, answer::yes, 13, true}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.length);
        builder.clear(); // each scene pulls in the one before it, so that one round adds one scene
        unticked.clear();
        for (uint32_t index = 0; index < row.length; ++index) {
            const wide_string caption = decimal(index);
            builder.scene_2d(caption);
            if (index > 0) builder.compound(u"C" + caption, {unticked.back()});
            unticked.push_back(caption);
        }
        unticked.pop_back(); // the last alone is selected
        EXPECT_EQ(row.saved, scenes_with(row.given));
        EXPECT_EQ(row.length > 1 ? 1U : 0U, questions());
        EXPECT_EQ(row.exceeded, context->report.depth_exceeded());
    }
}

TEST_F(rounds, a_frame_brings_the_scene_it_shows_with_its_layers) {
    builder.scene_2d(u"Shown")
        .layer("rtr_lr2d", u"R", write(u"C:\\data\\r.tif"))
        .layout(u"Sheet")
        .frame(u"Frame", u"Shown")
        .frame(u"Another", u"Shown")
        .frame(u"Empty", u"gone");
    const struct {
        texts left_out;
        answer given;
        uint32_t scenes;
        size_t asked, files;
    } rows[] = {{{u"Shown"}, answer::no, 0, 1, 0},
                {{u"Shown"}, answer::yes, 1, 1, 1},
                {{u"R"}, answer::no, 1, 1, 0}, // the frame looks at each layer by itself
                {{u"R"}, answer::yes, 1, 1, 1},
                {{u"Shown", u"Sheet"}, answer::yes, 0, 0, 0}}; // what is not selected pulls nothing
    for (const auto& row : rows) {
        remove_tree(u"N:\\out\\rtr");
        unticked = row.left_out;
        EXPECT_EQ(row.scenes, scenes_with(row.given));
        EXPECT_EQ(row.asked, questions());
        EXPECT_EQ(row.files, files().size());
    }
}

} // namespace
} // namespace vs::project_resave
