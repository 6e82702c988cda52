// What a person is told of a file that is not as it should be.
#include <gtest/gtest.h>

#include "reference_host/files/files.h"
#include "reference_host/files/input.h"
#include "tests/reference_host/memory_files.h"

namespace vestra::files {
namespace {

constexpr const char* id_1 = "00000000-0000-0000-0000-0000000000a1";

class bad_files : public testing::Test {
protected:
    ~bad_files() override { EXPECT_EQ(living_objects(), before_); }

    std::string told(const std::string& content) {
        files_.content[u"C:\\prj\\bad._vp"] = content;
        project prj;
        prj.file = u"untouched";
        prj.scenes_2d.make_scene();
        const auto error = read_project(u"C:\\prj\\bad._vp", prj);
        if (!error) return "";
        EXPECT_EQ(prj.file, u"untouched");
        EXPECT_EQ(prj.scenes_2d.count(), 1U);
        return platform::to_utf8(error->text());
    }
    // A layer in line 5 of a project, with a uuid and a caption.
    static std::string with_layer(const std::string& attributes, const std::string& content) {
        return "<project version='1'>\n<scenes2d>\n<scene uuid='' caption=''>\n<layers>\n<layer uuid='" +
               std::string(id_1) + "' caption='' " + attributes + ">" + content +
               "</layer></layers></scene></scenes2d></project>";
    }

    std::size_t before_ = living_objects();
    memory_files files_;
    platform::system_override in_force_{files_};
};

TEST_F(bad_files, each_is_refused_with_line_and_reason) {
    const std::pair<std::string, std::string> rows[] = {
        {"", "1: there is no root element <project>"},
        {"<project version='1'>\n</scene>", "2: bad XML: Start-end tags mismatch"},
        {"<project version='1'\n\n uuid=>", "3: bad XML: Error parsing element attribute"},
        {"\n<scene_file version='1'/>", "2: the root element is <scene_file>, not <project>"},
        {"<project version='1'/>\nrest", "2: something else than one root element <project>"},
        {"<project version='1'/>\n\n<project/>", "3: something else than one root element <project>"},
        {"<project/>", "1: element <project> lacks attribute \"version\""},
        {"<project version='2'/>", "1: the version is \"2\", known is only \"1\""},
        {"<project version='1'>\n\xFF</project>", "2: the file is no UTF-8 text"},
        {"<project version='1'>\n\xED\xA0\x80</project>", "2: the file is no UTF-8 text"},
        {std::string("<project\0/>", 11), "1: the file is no UTF-8 text"},
        {"\xEF\xBB\xBF<?xml version='1.0'?>\r\n<!-- & -->\r\n<project version='1'>\r\n<maps/></project>",
         "4: unknown element <maps> in <project>"},
        {"<project version='1'>\n  <maps/></project>", "2: unknown element <maps> in <project>"},
        {"<project version='1'>\n<tables/>\n<tables/></project>",
         "3: a second element <tables> in <project>"},
        {"<project version='1'>\n<tables>\n  x</tables></project>", "3: text inside of element <tables>"},
        {"<project version='1'>\n<tables><![CDATA[]]></tables></project>",
         "2: text inside of element <tables>"},
        {"<project version='1' colour='red'/>", "1: element <project> has the unknown attribute \"colour\""},
        {"<project version='1' version='1'/>", "1: element <project> has attribute \"version\" twice"},
        {with_layer("", ""), "5: element <layer> lacks attribute \"type\""},
        {with_layer("type='t' visible='maybe'", ""),
         "5: attribute \"visible\" of element <layer> is \"maybe\", not \"yes\" or \"no\""},
        {with_layer("type='t' valid='2'", ""),
         "5: attribute \"valid\" of element <layer> is \"2\", not \"yes\", \"no\" or \"mixed\""},
        {with_layer("type='\xD0\x96'", ""),
         "5: attribute \"type\" of element <layer> is \"\xD0\x96\", not a narrow text"},
        {with_layer("type='t' file='&nbsp;'", ""), "5: attribute \"file\" of element <layer> is \"&nbsp;\", "
                                                   "not a text with references that XML knows"},
        {with_layer("type='t' parent='00000000-0000-0000-0000-0000000000ff'", ""),
         "5: attribute \"parent\" of element <layer> is \"00000000-0000-0000-0000-0000000000ff\", not the "
         "uuid of an element of this file"},
        {with_layer("type='t'", "\n<frame scene='C:\\a._sn'/>"),
         "6: attribute \"scene\" of element <frame> is \"C:\\a._sn\", not a uuid"},
        {with_layer("type='t'", "\n<attributes file=''>\n<join source='' base_field='1.5' other_field='0'/>"
                                "</attributes>"),
         "7: attribute \"base_field\" of element <join> is \"1.5\", not a whole number of 32 bits"},
        {with_layer("type='t'", "</layer>\n<layer type='t' uuid='{" + std::string(id_1) + "}' caption=''>"),
         "6: uuid 00000000-0000-0000-0000-0000000000a1 is already that of element <layer> in line 5"},
        {"<project version='1'>\n<map_legends uuid='5e57a000-0000-4000-8000-000000000002'/></project>",
         "2: uuid 5e57a000-0000-4000-8000-000000000002 is already that of element <project> in line 1"},
        {with_layer("type='t'", "</layer></layers><groups>\n<leaf layer='1'/></groups><layers><layer>"),
         "6: a second element <layers> in <scene>"},
    };
    for (const auto& [content, message] : rows)
        EXPECT_EQ(told(content), "C:\\prj\\bad._vp:" + message) << content;
}

TEST_F(bad_files, values_groups_and_tuples_are_checked_too) {
    const auto groups = [](const std::string& leaves) {
        return "<project version='1'><scenes2d><scene uuid='' caption=''><groups>\n" + leaves +
               "</groups><layers><layer uuid='' caption='' type='t'/></layers></scene></scenes2d></project>";
    };
    const auto extras = [](const std::string& rows) {
        return with_layer("type='t'", "<extras>\n" + rows + "</extras>");
    };
    const std::pair<std::string, std::string> rows[] = {
        {groups("<leaf layer='1'/>"),
         "\"layer\" of element <leaf> is \"1\", not below the 1 layers of the scene"},
        {groups("<leaf layer='-1'/>"), "\"layer\" of element <leaf> is \"-1\", not a number from 0 on"},
        {groups("<leaf layer='0'/><group caption=''><leaf layer='0'/></group>"),
         "\"layer\" of element <leaf> is \"0\", not a layer that stands in no group yet"},
        {extras("<extra key='k' type='long' value='1'/>"),
         "\"type\" of element <extra> is \"long\", not empty, "
         "tuple, int, double, bool, narrow or text"},
        {extras("<extra key='k' type='empty'/><extra key='k' type='empty'/>"),
         "\"key\" of element <extra> is \"k\", not a new key"},
        {extras("<extra key='k' type='double' value='1,5'/>"),
         "\"value\" of element <extra> is \"1,5\", not a number"},
        {extras("<extra key='k' type='tuple' size='2'><item index='2' type='empty'/></extra>"),
         "\"index\" of element <item> is \"2\", not an ascending number below the size"},
        {extras("<extra key='k' type='tuple' size='2'><item index='1' type='empty'/><item index='1' "
                "type='empty'/></extra>"),
         "\"index\" of element <item> is \"1\", not an ascending number below the size"},
        {extras("<extra key='k' type='tuple' size='4294967295'/>"),
         "\"size\" of element <extra> is \"4294967295\", not within the 16777216 elements that all tuples of "
         "a "
         "file may have"},
    };
    for (const auto& [content, message] : rows)
        EXPECT_EQ(told(content).substr(told(content).find('"')), message) << content;
    EXPECT_NE(told(extras("<extra key='k' type='int'/>")).find("of type int lacks attribute \"value\""),
              std::string::npos);
    EXPECT_NE(told(extras("<extra key='k' type='empty' size='1'/>")).find("cannot have attribute \"size\""),
              std::string::npos);
    EXPECT_NE(told(extras("<extra key='k' type='bool' value='no'><item index='0' type='empty'/></extra>"))
                  .find("an item outside of a tuple"),
              std::string::npos);
}

TEST_F(bad_files, depth_and_size_have_limits) {
    const auto nested = [](int groups) { // the groups stand in four elements and hold none
        std::string text = "<project version='1'><scenes2d><scene uuid='' caption=''><groups>";
        for (int depth = 0; depth < groups; ++depth) text += "\n<group caption=''>";
        for (int depth = 0; depth < groups; ++depth) text += "</group>";
        return text + "</groups></scene></scenes2d></project>";
    };
    EXPECT_EQ(told(nested(60)), "");
    EXPECT_EQ(told(nested(61)), "C:\\prj\\bad._vp:62: elements are nested more than 64 deep");
    EXPECT_NE(told(nested(200000)), "");

    files_.told_size = largest_file + 1;
    EXPECT_EQ(told("<project version='1'/>"), "C:\\prj\\bad._vp: the file is larger than 256 MiB");
    files_.told_size = largest_file; // more than there is
    EXPECT_EQ(told("<project version='1'/>"), "C:\\prj\\bad._vp: the file cannot be read to its end");
    files_.told_size = 0;
    project prj;
    EXPECT_EQ(read_project(u"C:\\none._vp", prj)->text(), u"C:\\none._vp: there is no such file");
}

TEST_F(bad_files, a_scene_or_layer_of_the_other_kind_is_refused) {
    files_.content[u"C:\\a._sn"] =
        "<scene_file version='1' kind='3d'>\n<scene uuid='' caption='x'/></scene_file>";
    scene map(dimension::flat);
    EXPECT_EQ(read_scene(u"C:\\a._sn", map)->text(),
              u"C:\\a._sn:1: attribute \"kind\" of element <scene_file> is \"3d\", not \"2d\"");
    scene model(dimension::solid);
    EXPECT_FALSE(read_scene(u"C:\\a._sn", model));
    EXPECT_EQ(model.caption, u"x");
    files_.content[u"C:\\a._lr"] = "<layer_file version='1' kind='2d'/>";
    std::unique_ptr<layer> out;
    EXPECT_EQ(read_layer(u"C:\\a._lr", dimension::flat, out)->text(),
              u"C:\\a._lr:1: element <layer_file> lacks an element <layer>");
}

TEST_F(bad_files, what_could_not_be_read_again_is_not_written) {
    const uuid id = *uuid::parse(u"00000000-0000-0000-0000-0000000000a1");
    project prj;
    prj.scenes_2d.make_scene().id = id;
    prj.tables.make().id = id;
    EXPECT_EQ(write_project(u"C:\\a._vp", prj)->reason,
              u"two elements have the uuid 00000000-0000-0000-0000-0000000000a1");
    prj.tables.clear();
    layer_group* deepest = &prj.scenes_2d.at(0)->make_groups();
    for (int depth = 0; depth < 61; ++depth) deepest = &deepest->add_group(u"g");
    EXPECT_EQ(write_project(u"C:\\a._vp", prj)->reason, u"elements are nested more than 64 deep");
    EXPECT_TRUE(files_.content.empty());
}

} // namespace
} // namespace vestra::files
