// Layers that name other elements of the project and pull them into the selection.
#include "tests/layers/layer_run.h"

namespace vs::project_resave {

namespace {

using answer = vestra::shell::answer;

class layer_references : public layer_run {
protected:
    // A scene that is left out of the selection.
    vestra::scene& left_out(wide_view caption) {
        vestra::scene& scene = scene_2d();
        scene.caption = caption;
        deselected.push_back(scene.id.text());
        return scene;
    }
    names scenes() const {
        names result;
        for (const auto& scene : copy->scenes_2d.members()) result.push_back(scene->caption);
        return result;
    }
    size_t questions() const {
        return static_cast<size_t>(std::ranges::count(
            front_end.texts(vestra::shell::scripted_front_end::kind::yes_no), load_string(214)));
    }
};

} // namespace

TEST_F(layer_references, what_links_and_profiles_name_is_added_after_one_question) {
    for (const answer given : {answer::yes, answer::no}) {
        SCOPED_TRACE(static_cast<int>(given));
        clear();
        const vestra::scene& linked = left_out(u"linked");
        const vestra::scene& drawn = left_out(u"drawn");
        const vestra::scene& member = left_out(u"member");
        left_out(u"nobody's");
        add(scene_3d(), "map_lr3d", u"*" + linked.id.text() + u"*");
        vestra::scene& scene = scene_2d();
        disk.write(u"src\\lines.csv", "NAME,UUID\na,\nb,unknown\nc," + platform::to_utf8(drawn.id.text()) +
                                          "\nd," + platform::to_utf8(drawn.id.text()) + "\n");
        add(scene, "prf_lines_lr2d", u"").source = src(u"lines.csv");
        disk.write(u"src\\plain.csv", "NAME\na\n");
        add(scene, "prf_lines_lr2d", u"").source = src(u"plain.csv");
        add(scene, "prf_lines_lr2d", u"").source = src(u"gone.csv");
        add(scene, "prf_compound_lr2d", u"").members = names{u"unknown", member.id.text(), scene.id.text()};
        add(scene, "prf_compound_lr2d", u"");
        front_end.answers = {given};
        resave();
        EXPECT_EQ(scenes(),
                  given == answer::yes ? (names{u"linked", u"drawn", u"member", u"S"}) : names{u"S"});
        EXPECT_EQ(questions(), 1U);
        EXPECT_EQ(problems, u"");
    }
}

TEST_F(layer_references, a_chain_of_links_is_followed_to_its_end) {
    vestra::scene& last = left_out(u"last");
    const vestra::scene& middle = [&]() -> vestra::scene& {
        vestra::scene& scene = left_out(u"middle");
        add(scene, "prf_compound_lr2d", u"").members = names{last.id.text()};
        return scene;
    }();
    vestra::scene& first = scene_2d();
    add(first, "prf_compound_lr2d", u"").members = names{middle.id.text()};
    add(last, "prf_compound_lr2d", u"").members = names{first.id.text(), last.id.text()};
    front_end.answers = {answer::yes};
    resave();
    EXPECT_EQ(scenes(), (names{u"last", u"middle", u"S"}));
    EXPECT_EQ(questions(), 1U);
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
