#include <gtest/gtest.h>

#include "platform/text.h"
#include "reference_host/files/references.h"
#include "reference_host/files/xml_text.h"

namespace vestra::files {
namespace {

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
        // A scene file moves with the data beside it.
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
