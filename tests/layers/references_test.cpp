// Layers that name other elements of the project and pull them into the selection.
#include "tests/layers/layer_run.h"

namespace vs::project_resave {

using layer_references = layer_run;

TEST_F(layer_references, a_link_is_the_uuid_as_the_host_writes_it_between_any_stars) {
    for (const auto& [before, behind, is_found] :
         {std::tuple(u"*", u"*", true), {u"", u"", true}, {u"***", u"*", true}, {u"*{", u"}*", false}}) {
        clear();
        const wide_string id = left_out(u"linked").id.text(), link = before + id + behind;
        add(scene_3d(), "map_lr3d", link);
        script.answers = {answer::yes};
        settings.delete_lost_sources = true;
        run();
        EXPECT_EQ(scenes(), is_found ? names{u"linked"} : names{});
        EXPECT_EQ(questions(), is_found ? 1U : 0U);
        ASSERT_EQ(copy->scenes_3d.at(0)->count(), 1U);
        EXPECT_EQ(copy->scenes_3d.at(0)->at(0)->file, link);
    }
}

TEST_F(layer_references, a_scene_with_some_of_its_layers_counts_as_not_selected) {
    write(src(u"a.tif"));
    vestra::scene& target = scene_2d();
    deselected = {add(target, "rtr_lr2d", src(u"a.tif")).id.text()};
    add(scene_3d(), "map_lr3d", u"*" + target.id.text() + u"*");
    script.answers = {answer::yes};
    run();
    EXPECT_EQ(files(), std::vector<std::string>{"rtr/a.tif"});
}

} // namespace vs::project_resave
