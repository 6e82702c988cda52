// The rounds in which selected elements pull in what they refer to.
#include "framework/strings.h"
#include "tests/support/host_fixture.h"
#include "tests/support/project_builder.h"

namespace vs::project_resave {
namespace {

using kind = vestra::shell::scripted_front_end::kind;

class rounds : public host_fixture {
protected:
    // Resaves without what is deselected, with this answer to the question of what to add; the number of
    // scenes in the new project.
    uint32_t scenes_with(answer given, project_builder& project, const std::vector<wide_string>& deselected) {
        project.save(source);
        load();
        for (const wide_string& caption : deselected)
            context->units.at(project.id(caption))->set_selected(false);
        script.answers = {given, answer::no};
        resave();
        vestra::project copy;
        read_back(output, copy);
        return copy.scenes_2d.count();
    }
    size_t times_asked() const {
        return static_cast<size_t>(std::ranges::count(script.texts(kind::yes_no), load_string(214)));
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
        project_builder chain; // each scene pulls in the one before it, so that one round adds one scene
        std::vector<wide_string> captions;
        for (uint32_t index = 0; index < row.length; ++index) {
            captions.push_back(decimal(index));
            chain.scene_2d(captions.back());
            if (index > 0) chain.compound(u"C" + captions.back(), {captions[index - 1]});
        }
        captions.pop_back(); // the last alone is selected
        EXPECT_EQ(row.saved, scenes_with(row.given, chain, captions));
        EXPECT_EQ(row.length > 1 ? 1U : 0U, times_asked());
        EXPECT_EQ(row.exceeded, context->report.depth_exceeded);
    }
}

TEST_F(rounds, a_frame_brings_the_scene_it_shows_with_its_layers) {
    project_builder project;
    project.scene_2d(u"Shown")
        .layer("rtr_lr2d", u"R", write(u"C:\\data\\r.tif"))
        .layout(u"Sheet")
        .frame(u"Frame", u"Shown")
        .frame(u"Another", u"Shown")
        .frame(u"Empty", u"gone");
    const struct {
        std::vector<wide_string> left_out;
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
        EXPECT_EQ(row.scenes, scenes_with(row.given, project, row.left_out));
        EXPECT_EQ(row.asked, times_asked());
        EXPECT_EQ(row.files, files().size());
    }
}

} // namespace
} // namespace vs::project_resave
