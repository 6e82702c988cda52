#include <gtest/gtest.h>

#include "reference_host/model/project.h"

namespace vestra {
namespace {

class model : public testing::Test {
protected:
    ~model() override { EXPECT_EQ(living_objects(), before_); }

private:
    std::size_t before_ = living_objects();
};

TEST_F(model, a_uuid_is_read_in_its_usual_forms_and_never_from_a_path) {
    const auto id = uuid::parse(u"{0A1B2C3D-4E5F-6071-8293-A4B5C6D7E8F9}");
    ASSERT_TRUE(id);
    EXPECT_EQ(id->text(), u"0a1b2c3d-4e5f-6071-8293-a4b5c6d7e8f9");
    EXPECT_EQ(uuid::parse(id->text()), id);
    for (wide_view text :
         {u"C:\\data\\maps\\a1b2-c3d4-e5f6-71829._sn", u"", u"*", u"0a1b2c3d-4e5f-6071-8293-a4b5c6d7e8f",
          u"0a1b2c3d-4e5f-6071-8293-a4b5c6d7e8fg", u"0a1b2c3d+4e5f-6071-8293-a4b5c6d7e8f9",
          u"{0a1b2c3d-4e5f-6071-8293-a4b5c6d7e8f9", u"0a1b2c3d4e5f60718293a4b5c6d7e8f9"})
        EXPECT_FALSE(uuid::parse(text));
    const auto none = uuid::parse(u"00000000-0000-0000-0000-000000000000");
    EXPECT_FALSE(none->has_value());
    EXPECT_EQ(none->text(), u"");
    EXPECT_NE(uuid::random(), uuid::random());
}

TEST_F(model, a_deleted_layer_leaves_the_groups_and_the_groups_stay_until_they_are_cleaned) {
    scene map(dimension::flat);
    layer& first = map.make_layer("a");
    layer& second = map.make_layer("b");
    layer& third = map.make_layer("c");
    layer_group& outer = map.make_groups().add_group(u"outer");
    layer_group& inner = outer.add_group(u"inner");
    inner.add_layer(second);
    outer.add_layer(third);
    map.groups->add_layer(third); // moves
    map.groups->add_layer(first);
    ASSERT_EQ(map.groups->count(), 3U);
    EXPECT_EQ(outer.count(), 1U);

    map.remove(7);
    map.remove(1);
    EXPECT_EQ(map.count(), 2U);
    EXPECT_EQ(map.at(1), &third);
    EXPECT_EQ(map.at(2), nullptr);
    EXPECT_EQ(inner.count(), 0U);
    EXPECT_EQ(inner.at(0), nullptr);
    EXPECT_EQ(map.groups->count(), 3U);
    map.groups->erase_empty_groups();
    ASSERT_EQ(map.groups->count(), 2U);
    EXPECT_EQ(map.groups->at(0)->member(), &third);

    map.clear();
    EXPECT_EQ(map.groups->count(), 0U);
}

TEST_F(model, links_to_what_was_deleted_are_null) {
    project prj;
    scene& shown = prj.scenes_2d.make_scene();
    shown.id = uuid::random();
    shown.parent = entity_link(&prj.scenes_2d);
    layer& frame = prj.layouts.make_scene().make_layer("layout_scene_frame");
    frame.frame.emplace(shown);
    frame.parent = entity_link(&shown);

    project moved;
    moved = std::move(prj);
    EXPECT_EQ(shown.parent.get(), &moved.scenes_2d) << "containers move with their links";
    EXPECT_EQ(frame.frame->get(), &shown);
    const uuid id = shown.id;
    moved.scenes_2d.clear();
    EXPECT_EQ(frame.frame->get(), nullptr);
    EXPECT_EQ(frame.frame->id, id);
    EXPECT_FALSE(frame.parent);
}

TEST_F(model, values_and_styles_copy_deeply) {
    tuple inner;
    inner.elements.resize(3);
    inner.elements[1].value = wide_string(u"a");
    any original(inner);
    any copy = original;
    copy.as_tuple()->elements[1].value = true;
    EXPECT_EQ(*original.as_tuple()->elements[1].as_text(), u"a");
    EXPECT_NE(copy, original);
    EXPECT_EQ(original.type(), 1U);
    EXPECT_EQ(original.as_tuple()->elements[1].type(), 6U);
    EXPECT_EQ(original.as_tuple()->elements[0].type(), 0U);

    style_manager style("grid");
    style.values = {{u"line", u"1", {{u"width", u"2", {}}}}};
    style_manager saved("grid");
    saved = style;
    style.values[0].values[0].text = u"3";
    EXPECT_EQ(saved.values[0].values[0].text, u"2");
}

} // namespace
} // namespace vestra
