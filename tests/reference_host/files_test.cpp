// The files of the host: a project written by hand is read back, also after its folder was moved, and an
// invalid file has an error with line and reason.
#include <gtest/gtest.h>

#include <sstream>

#include "reference_host/files/files.h"
#include "reference_host/files/references.h"
#include "reference_host/files/xml_text.h"
#include "tests/support/faulty_system.h"
#include "tests/support/tree_state.h"

namespace vestra::files {
namespace {

using namespace vs::project_resave;

// One of everything that a project can hold, as the host writes it.
const std::string everything = committed("tests/reference_host/everything._vp");

class host_files : public testing::Test {
protected:
    ~host_files() override { EXPECT_EQ(living_objects(), before_); }

    // Returns the error without the path; the project is unchanged then.
    std::string told(const std::string& content) {
        const wide_string path = folder_.write(u"bad._vp", content);
        project prj;
        prj.scenes_2d.make_scene();
        const auto error = read_project(path, prj);
        if (!error) return "";
        EXPECT_EQ(prj.scenes_2d.count(), 1U);
        EXPECT_TRUE(error->text().starts_with(path + u":"));
        return platform::to_utf8(error->text().substr(path.size() + 1));
    }

    std::size_t before_ = living_objects();
    temporary_folder folder_;
};

TEST_F(host_files, a_project_of_everything_is_read_moved_and_written_complete) {
    for (const wide_view name : {u"prj\\", u"new home\\"}) {
        const wide_string home = folder_.path(name);
        folder_.write(wide_string(name) + u"area._vp", everything);
        project prj;
        const auto error = read_project(home + u"area._vp", prj);
        ASSERT_FALSE(error) << platform::to_utf8(error->text());
        wide_string references;
        visit_references(prj,
                         [&](const held_reference& held) { references += u' ' + wide_string(held.text); });
        for (size_t at; (at = references.find(home)) != wide_string::npos;)
            references.replace(at, home.size(), u"@");
        EXPECT_EQ(platform::to_utf8(references),
                  " @sheets\\P-101.wsh @data\\wells.shp @data\\wells.shp|layer @data\\wells.dbf "
                  "D:\\gis\\owners.dbf @years.dbf @data\\model\\base.tos *@cut.tos *C:\\prj\\not a path "
                  "@sgy\\ @sign.tif @page.xml @sheets\\P-101.wsh D:\\gis\\owners.dbf @years.dbf @tos\\p.tos");
        const scene& map = *prj.scenes_2d.at(0);
        EXPECT_EQ(map.caption, u" Area <1> & \"more\"\r\n\t\x1\u0416");
        EXPECT_EQ(map.parent.get(), prj.folders.at(1));
        EXPECT_EQ(map.groups->at(0)->at(1)->member(), map.at(2));
        EXPECT_EQ(prj.layouts.at(0)->at(0)->frame->get(), prj.scenes_3d.at(0));
        EXPECT_EQ(prj.layouts.at(0)->at(1)->frame->get(), nullptr);

        ASSERT_FALSE(write_project(home + u"area._vp", prj));
        EXPECT_EQ(folder_.read(wide_string(name) + u"area._vp"), everything);
    }
}

TEST_F(host_files, scene_and_layer_files_are_self_contained) {
    project prj;
    ASSERT_FALSE(read_project(folder_.write(u"area._vp", everything), prj));
    const scene& map = *prj.scenes_2d.at(0);
    ASSERT_FALSE(write_scene(folder_.path(u"map._sn"), map));
    scene read(dimension::flat);
    ASSERT_FALSE(read_scene(folder_.path(u"map._sn"), read));
    EXPECT_FALSE(read.parent) << "it is not in the file";
    EXPECT_EQ(read.groups->at(1)->member(), read.at(0));
    EXPECT_EQ(read.at(0)->extras.rows(), map.at(0)->extras.rows());
    for (const layer* in : {map.at(0), prj.scenes_3d.at(0)->at(0)}) {
        ASSERT_FALSE(write_layer(folder_.path(u"one._lr"), *in));
        std::unique_ptr<layer> out;
        ASSERT_FALSE(read_layer(folder_.path(u"one._lr"), in->kind, out));
        EXPECT_EQ(out->id, in->id);
    }
}

TEST_F(host_files, a_shape_layer_has_the_table_next_to_its_file) {
    const wide_string path =
        folder_.write(u"shapes._vp", R"(<project version='1'><scenes2d><scene uuid='' caption=''><layers>
        <layer type='shp_pnt_lr2d' uuid='' caption='' file='maps\wells.shp'/>
        <layer type='shp_pnt_lr2d' uuid='' caption='' file='maps\bare.shp'/>
        <layer type='shp_pnt_lr2d' uuid='' caption='' file='maps\wells.shp'><attributes file='own.dbf'/></layer>
        <layer type='rtr_lr2d' uuid='' caption='' file='maps\wells.tif'/></layers></scene></scenes2d></project>)");
    folder_.write(u"maps\\Wells.DBF");
    project prj;
    ASSERT_FALSE(read_project(path, prj));
    const scene& read = *prj.scenes_2d.at(0);
    const wide_view expected[] = {u"maps\\wells.dbf", u"", u"own.dbf", u""};
    for (std::uint32_t i = 0; i < read.count(); ++i)
        EXPECT_EQ(read.at(i)->data ? read.at(i)->data->file : wide_string(),
                  expected[i].empty() ? wide_string() : folder_.path(wide_string(expected[i])));
}

TEST_F(host_files, a_failed_write_leaves_the_old_file_and_nothing_else) {
    const wide_string path = folder_.write(u"area._vp", "old");
    folder_.write(u"area._vp.new1", "of somebody else");
    const tree_state before = state_of(folder_.native());
    const std::pair<const char*, platform::failure> rows[] = {{"write", platform::failure::disk_full},
                                                              {"close", platform::failure::disk_full},
                                                              {"rename", platform::failure::denied}};
    for (const auto& [failing, reason] : rows) {
        faulty_system faults({failing}, 1, SIZE_MAX);
        const platform::system_override in_force(faults);
        const auto error = write_project(path, project());
        ASSERT_TRUE(error);
        EXPECT_EQ(error->text(), path + u": " + platform::outcome(reason).text());
        EXPECT_EQ(difference(before, state_of(folder_.native())), "");
    }
}

// The text after "## " is the error of the lines below it.
TEST_F(host_files, each_is_refused_with_line_and_reason) {
    std::istringstream rows(committed("tests/reference_host/refused.txt") + "## ");
    std::string content, expected = "1: there is no root element <project>"; // in an empty file
    for (std::string line; std::getline(rows, line);) {
        if (!line.starts_with("## ")) {
            content += line + '\n';
            continue;
        }
        EXPECT_EQ(expected, told(content));
        expected = line.substr(3);
        content.clear();
    }
    EXPECT_EQ(told("<project version='1'>\n\xFF</project>"), "2: the file is not valid UTF-8");
    EXPECT_EQ(
        told("\xEF\xBB\xBF<?xml version='1.0'?>\r\n<!-- & -->\r\n<project version='1'>\r\n<maps/></project>"),
        "4: unknown element <maps> in <project>");
}

TEST_F(host_files, depth_and_size_have_limits) {
    const auto nested = [](int groups) { // the groups stand in four elements and hold none
        std::string text = "<project version='1'><scenes2d><scene uuid='' caption=''><groups>";
        for (int depth = 0; depth < groups; ++depth) text += "\n<group caption=''>";
        for (int depth = 0; depth < groups; ++depth) text += "</group>";
        return text + "</groups></scene></scenes2d></project>";
    };
    EXPECT_EQ(told(nested(60)), "");
    EXPECT_EQ(told(nested(61)), "62: elements are nested more than 64 deep");
    EXPECT_NE(told(nested(200000)), "");
}

TEST_F(host_files, what_could_not_be_read_again_is_not_written) {
    const uuid id = *uuid::parse(u"00000000-0000-0000-0000-0000000000a1");
    project prj;
    prj.scenes_2d.make_scene().id = id;
    prj.tables.make().id = id;
    EXPECT_EQ(write_project(folder_.path(u"a._vp"), prj)->reason,
              u"two elements have the uuid 00000000-0000-0000-0000-0000000000a1");
    EXPECT_TRUE(folder_.read(u"a._vp").empty());
}

struct reference_row {
    wide_view folder, reference, stored;
    bool behind_star = false;
    nearness near = nearness::below;
};

// A row lost here is a project that does not open after its folder was moved, or one whose text changed.
TEST(references, what_is_stored_reads_back_as_the_same_reference) {
    const reference_row rows[] = {
        {u"C:\\prj\\", u"C:\\prj\\a.shp", u"a.shp"},
        {u"C:\\prj\\", u"C:\\prj\\sub\\grid\\", u"sub\\grid\\"},
        {u"C:/prj/", u"C:/prj/sub/a.shp", u"sub/a.shp"},
        {u"\\\\srv\\share\\prj\\", u"\\\\srv\\share\\prj\\a.tif", u"a.tif"},
        {u"C:\\prj\\", u"D:\\gis\\a.shp", u"D:\\gis\\a.shp"},
        {u"C:\\prj\\", u"C:\\prj2\\a.shp", u"C:\\prj2\\a.shp"},
        {u"C:\\prj\\", u"C:\\prj\\..\\a.shp", u"C:\\prj\\..\\a.shp"},
        {u"C:\\prj\\", u"C:\\prj\\=x", u"C:\\prj\\=x"},
        {u"C:\\prj\\", u"https://tiles.example/wms?x=1", u"https://tiles.example/wms?x=1"},
        {u"C:\\prj\\", u"a.shp", u"=a.shp"},
        {u"C:\\prj\\", u"*C:\\prj\\a.tos", u"*a.tos", true},
        {u"C:\\prj\\", u"*a.tos", u"*=a.tos", true},
        {u"C:\\prj\\", u"C:\\prj\\a.tos", u"a.tos", true},
        // A scene file can be moved together with the data next to it.
        {u"C:\\prj\\maps\\", u"C:\\prj\\data\\a.shp", u"..\\data\\a.shp", false, nearness::beside},
        {u"C:\\prj\\maps\\x\\", u"C:\\prj\\a.shp", u"..\\..\\a.shp", false, nearness::beside},
        {u"C:\\prj\\maps\\", u"*C:\\prj\\a.tos", u"*..\\a.tos", true, nearness::beside},
        {u"C:\\prj\\maps\\", u"C:\\other\\a.shp", u"C:\\other\\a.shp", false, nearness::beside},
        {u"\\\\srv\\share\\prj\\maps\\", u"\\\\srv\\share\\prj\\a.shp", u"..\\a.shp", false,
         nearness::beside},
        {u"\\\\srv\\share\\prj\\", u"\\\\srv\\share\\a.shp", u"\\\\srv\\share\\a.shp", false,
         nearness::beside},
    };
    for (const auto& [folder, reference, stored, behind_star, near] : rows) {
        SCOPED_TRACE(vs::project_resave::platform::to_utf8(reference));
        EXPECT_EQ(stored_reference(folder, reference, behind_star, near), stored);
        EXPECT_EQ(resolved_reference(folder, stored, behind_star), reference);
    }
    EXPECT_EQ(stored_reference(u"C:\\Prj\\", u"c:/PRJ/A.shp"), u"A.shp") << "letter case and separators";
    EXPECT_EQ(resolved_reference(u"C:\\prj\\", u"..\\..\\x\\..\\a.shp"), u"C:\\a.shp") << "written by hand";
}

TEST(xml_text, every_text_survives_the_file) {
    const std::pair<wide_string, std::string> rows[] = {
        {u"plain \\u{} \\u C:\\u\\x", "plain \\u{} \\u C:\\u\\x"},
        {wide_string(u"a\0b", 3), "a\\u{0}b"},
        {wide_string{0xD800, u'x', 0xDC00}, "\\u{D800}x\\u{DC00}"},
        {wide_string{0xD83D, 0xDE00}, "\xF0\x9F\x98\x80"},
        {wide_string{0xFFFE, 0xFFFF}, "\\u{FFFE}\\u{FFFF}"},
        {u"C:\\u{1F}\\a", "C:\\u{5C}u{1F}\\a"},
    };
    for (const auto& [text, value] : rows) {
        EXPECT_EQ(xml_value(text), value);
        EXPECT_EQ(text_of_xml(value), text);
    }
    EXPECT_EQ(text_of_xml("&lt;&amp;&#x44F;&#128512;&quot;&gt;&apos;"), u"<&\u044F\U0001F600\">'");
    for (const char* unknown : {"&nbsp;", "&", "a&b;", "&#0;", "&#xD800;", "&#x110000;", "&#;", "&#-1;"})
        EXPECT_FALSE(text_of_xml(unknown)) << unknown;
}

} // namespace
} // namespace vestra::files
