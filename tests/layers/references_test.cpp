// Layers that name other elements of the project and pull them into the selection.
#include "tests/layers/references_run.h"

namespace vs::project_resave {

using answer = vestra::shell::answer;
using layer_references = references_run;

TEST_F(layer_references, what_links_and_profiles_name_is_added_after_one_question) {
    for (const answer given : {answer::yes, answer::no}) {
        SCOPED_TRACE(static_cast<int>(given));
        clear();
        const vestra::scene& linked = left_out(u"linked");
        const vestra::scene& member = left_out(u"member");
        left_out(u"nobody's");
        add(scene_3d(), "map_lr3d", u"*" + linked.id.text() + u"*");
        vestra::scene& scene = scene_2d();
        add(scene, "prf_lines_lr2d", u"").source = src(u"gone.csv");
        add(scene, "prf_compound_lr2d", u"").members = names{u"unknown", member.id.text(), scene.id.text()};
        add(scene, "prf_compound_lr2d", u"");
        front_end.answers = {given};
        resave();
        EXPECT_EQ(scenes(), given == answer::yes ? (names{u"linked", u"member", u"S"}) : names{u"S"});
        EXPECT_EQ(questions(), 1U);
        EXPECT_EQ(problems, u"");
    }
}

TEST_F(layer_references, a_link_is_the_uuid_as_the_host_writes_it_between_any_stars) {
    for (const auto& [before, behind, is_found] :
         {std::tuple(u"*", u"*", true), {u"", u"", true}, {u"***", u"*", true}, {u"*{", u"}*", false}}) {
        clear();
        const wide_string id = left_out(u"linked").id.text(), link = before + id + behind;
        add(scene_3d(), "map_lr3d", link);
        front_end.answers = {answer::yes};
        settings.delete_lost_sources = true;
        resave();
        EXPECT_EQ(scenes(), is_found ? names{u"linked"} : names{});
        EXPECT_EQ(questions(), is_found ? 1U : 0U);
        ASSERT_EQ(copy->scenes_3d.at(0)->count(), 1U);
        EXPECT_EQ(copy->scenes_3d.at(0)->at(0)->file, link);
    }
}

TEST_F(layer_references, a_scene_with_some_of_its_layers_counts_as_not_selected) {
    disk.write(u"src\\a.tif");
    vestra::scene& target = scene_2d();
    deselected = {add(target, "rtr_lr2d", src(u"a.tif")).id.text()};
    add(scene_3d(), "map_lr3d", u"*" + target.id.text() + u"*");
    front_end.answers = {answer::yes};
    resave();
    EXPECT_EQ(copied(), (names{u"rtr\\a.tif"}));
}

} // namespace vs::project_resave
