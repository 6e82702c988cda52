// The rounds in which selected elements pull in what they refer to.
#include "core/path_files.h"
#include "framework/strings.h"
#include "tests/support/host_fixture.h"
#include "tests/support/project_builder.h"

namespace vs::project_resave {
namespace {

using kind = vestra::shell::scripted_front_end::kind;

class rounds : public host_fixture {
protected:
    // Scenes of which each pulls in the one before it, so that one round adds one scene; only the last is
    // selected.
    void load_chain(uint32_t length) {
        project_builder chain;
        std::vector<wide_string> captions;
        for (uint32_t index = 0; index < length; ++index) {
            captions.push_back(decimal(index));
            chain.scene_2d(captions.back());
            if (index > 0) chain.compound(u"C" + captions.back(), {captions[index - 1]});
        }
        captions.pop_back();
        load(chain, captions);
    }
    void load(project_builder& project, const std::vector<wide_string>& deselected) {
        project.save(source);
        host_fixture::load();
        for (const wide_string& caption : deselected)
            context->units.at(project.id(caption))->set_selected(false);
    }
    // Resaves with this answer to the question of what to add; the number of scenes in the new project.
    uint32_t scenes_with(answer given) {
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

TEST_F(rounds, follow_a_chain_of_references_as_far_as_twelve_rounds_go) {
    const struct {
        uint32_t length, saved;
        bool exceeded;
    } rows[] = {{1, 1, false},  {2, 2, false},  {11, 11, false},
                {12, 12, true}, {13, 13, true}, {20, 13, true}}; // twelve rounds exactly
    for (const auto& row : rows) {
        SCOPED_TRACE(row.length);
        load_chain(row.length);
        EXPECT_EQ(row.saved, scenes_with(answer::yes));
        EXPECT_EQ(row.length > 1 ? 1U : 0U, times_asked());
        EXPECT_EQ(row.exceeded, context->report.depth_exceeded);
    }
}

TEST_F(rounds, add_nothing_if_the_user_says_no_and_ask_once_in_each_run) {
    for (const answer given : {answer::no, answer::yes, answer::no}) {
        load_chain(5);
        EXPECT_EQ(given == answer::yes ? 5U : 1U, scenes_with(given));
        EXPECT_EQ(1U, times_asked());
        EXPECT_FALSE(context->report.depth_exceeded);
    }
}

TEST_F(rounds, a_frame_brings_the_scene_it_shows_with_its_layers) {
    project_builder project;
    project.scene_2d(u"Shown")
        .layer("rtr_lr2d", u"R", write(u"C:\\data\\r.tif"))
        .scene_2d(u"Other")
        .layout(u"Sheet")
        .frame(u"Frame", u"Shown")
        .frame(u"Another", u"Shown")
        .frame(u"Empty", u"gone");
    for (const wide_string left_out : {u"Shown", u"R"}) { // the frame looks at each layer by itself
        for (const bool wanted : {false, true}) {
            load(project, {left_out, u"Other"});
            const bool is_kept = wanted || left_out == u"R";
            EXPECT_EQ(is_kept ? 1U : 0U, scenes_with(wanted ? answer::yes : answer::no));
            EXPECT_EQ(1U, times_asked());
            EXPECT_EQ(wanted ? "data" : "", read(u"N:\\out\\rtr\\r.tif"));
        }
        remove_tree(u"N:\\out\\rtr");
    }
    load(project, {u"Shown", u"Other", u"Sheet"});
    EXPECT_EQ(0U, scenes_with(answer::yes));
    EXPECT_EQ(0U, times_asked()) << "what is not selected pulls nothing";
}

} // namespace
} // namespace vs::project_resave
