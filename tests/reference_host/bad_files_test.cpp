// What a person is told of a file that is not as it should be.
#include <gtest/gtest.h>

#include "reference_host/files/files.h"
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
    static std::string with_extras(const std::string& rows) {
        return with_layer("type='t'", "<extras>\n" + rows + "</extras>");
    }
    static std::string with_groups(const std::string& leaves) {
        return "<project version='1'><scenes2d><scene uuid='' caption=''><groups>\n" + leaves +
               "</groups><layers><layer uuid='' caption='' type='t'/></layers></scene></scenes2d></project>";
    }

    std::size_t before_ = living_objects();
    memory_files files_;
    platform::system_override in_force_{files_};
};

TEST_F(bad_files, each_is_refused_with_line_and_reason) {
    const struct {
        std::string content;
        int line;
        std::string reason; // or its end
    } rows[] = {
        {"<project version='1'>\n</scene>", 2, "bad XML: Start-end tags mismatch"},
        {"\n<scene_file version='1'/>", 2, "the root element is <scene_file>, not <project>"},
        {"<project/>", 1, "element <project> lacks attribute \"version\""},
        {"<project version='2'/>", 1, "the version is \"2\", known is only \"1\""},
        {"<project version='1'>\n\xFF</project>", 2, "the file is no UTF-8 text"},
        {"\xEF\xBB\xBF<?xml version='1.0'?>\r\n<!-- & -->\r\n<project version='1'>\r\n<maps/></project>", 4,
         "unknown element <maps> in <project>"},
        {"<project version='1'>\n<tables/>\n<tables/></project>", 3,
         "a second element <tables> in <project>"},
        {"<project version='1'>\n<tables>\n  x</tables></project>", 3, "text inside of element <tables>"},
        {"<project version='1' colour='red'/>", 1, "element <project> has the unknown attribute \"colour\""},
        {with_layer("", ""), 5, "element <layer> lacks attribute \"type\""},
        {with_layer("type='t' visible='maybe'", ""), 5, "\"maybe\", not \"yes\" or \"no\""},
        {with_layer("type='t' file='&nbsp;'", ""), 5, "not a text with references that XML knows"},
        {with_layer("type='t' parent='00000000-0000-0000-0000-0000000000ff'", ""), 5,
         "not the uuid of an element of this file"},
        {with_layer("type='t'", "\n<attributes file=''>\n<join source='' base_field='1.5' other_field='0'/>"
                                "</attributes>"),
         7, "attribute \"base_field\" of element <join> is \"1.5\", not a whole number of 32 bits"},
        {with_layer("type='t'", "</layer>\n<layer type='t' uuid='{" + std::string(id_1) + "}' caption=''>"),
         6, "0000000000a1 is already that of element <layer> in line 5"},
        {with_groups("<leaf layer='1'/>"), 2, "\"1\", not below the 1 layers of the scene"},
        {with_groups("<leaf layer='0'/><group caption=''><leaf layer='0'/></group>"), 2,
         "\"0\", not a layer that stands in no group yet"},
        {with_extras("<extra key='k' type='long' value='1'/>"), 6,
         "not empty, tuple, int, double, bool, narrow or text"},
        {with_extras("<extra key='k' type='tuple' size='2'><item index='2' type='empty'/></extra>"), 6,
         "\"2\", not an ascending number below the size"},
        {with_extras("<extra key='k' type='tuple' size='4294967295'/>"), 6,
         "not within the 16777216 elements that all tuples of a file may have"},
    };
    for (const auto& [content, line, reason] : rows) {
        const std::string text = told(content);
        EXPECT_TRUE(text.starts_with("C:\\prj\\bad._vp:" + std::to_string(line) + ": ")) << text;
        EXPECT_TRUE(text.ends_with(reason)) << text;
    }
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
    project prj;
    EXPECT_EQ(read_project(u"C:\\none._vp", prj)->text(), u"C:\\none._vp: there is no such file");
}

TEST_F(bad_files, what_could_not_be_read_again_is_not_written) {
    const uuid id = *uuid::parse(u"00000000-0000-0000-0000-0000000000a1");
    project prj;
    prj.scenes_2d.make_scene().id = id;
    prj.tables.make().id = id;
    EXPECT_EQ(write_project(u"C:\\a._vp", prj)->reason,
              u"two elements have the uuid 00000000-0000-0000-0000-0000000000a1");
    EXPECT_TRUE(files_.content.empty());
}

} // namespace
} // namespace vestra::files
