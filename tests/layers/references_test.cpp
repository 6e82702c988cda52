// Layers that name other elements of the project and pull them into the selection.
#include "tests/layers/layer_run.h"

namespace vs::project_resave {

using layer_references = layer_run;

TEST_F(layer_references, a_link_is_the_uuid_as_the_host_writes_it_between_any_stars) {
    for (const auto& [before, behind, is_found] :
         {std::tuple(u"*", u"*", true), {u"", u"", true}, {u"***", u"*", true}, {u"*{", u"}*", false}}) {
        clear();
        const wide_string link = before + builder.id(u"linked") + behind;
        left_out(u"linked").scene_3d(u"S").layer("map_lr3d", u"L", link);
        script.answers = {answer::yes};
        settings.delete_lost_sources = true;
        run();
        EXPECT_EQ((is_found ? "\nlinked:\nS: L=" : "\nS: L=") + platform::to_utf8(link) + "\n", outcome());
        EXPECT_EQ(is_found ? 1U : 0U, questions());
    }
}

TEST_F(layer_references, a_scene_with_some_of_its_layers_counts_as_not_selected) {
    builder.scene_2d(u"S").layer("rtr_lr2d", u"R", write(src(u"a.tif")));
    builder.scene_3d(u"Solid").layer("map_lr3d", u"L", u"*" + builder.id(u"S") + u"*");
    unticked = {u"R"};
    script.answers = {answer::yes};
    run();
    EXPECT_EQ(std::vector<std::string>{"rtr/a.tif"}, files());
}

} // namespace vs::project_resave
