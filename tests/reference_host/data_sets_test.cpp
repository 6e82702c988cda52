#include <gtest/gtest.h>

#include "reference_host/datasets/dbf_fields.h"
#include "reference_host/datasets/tos_reader.h"
#include "reference_host/model/counted.h"
#include "tests/reference_host/opened_data_sets.h"
#include "tests/support/temporary_folder.h"

namespace vestra::datasets {
namespace {

using namespace vs::project_resave;

TEST(data_sets, samples_of_the_hosts_own_formats_open_with_all_their_files_told_as_asked) {
    const struct {
        const char* folder;
        const char* name;
        std::string files;
    } rows[] = {
        {"c/prj/maps", "roads.shp", " roads.shp roads.shx roads.dbf roads.cpg roads.prj"},
        {"c/prj/maps", "ROADS.SHP", " ROADS.SHP roads.shx roads.dbf roads.cpg roads.prj"},
        {"c/prj/tos", "slice_2120.tos", " slice_2120.tos slice_2120.tod slice_2120.tos.idx"},
        {"c/data/tos", "production.tos", " production.tos Production_Wells.tod"},
        {"c/prj/grids/thickness", "thickness.pgrid", " thickness.pgrid thickness.flt thickness.val"},
        {"c/data/seismic", "line_1.sgy", " line_1.sgy"},
        {"c/prj/maps", "absent.shp", "-"},
    };
    for (const auto& row : rows) {
        const wide_string folder = sample(row.folder) + u"\\";
        EXPECT_EQ(row.files, names_of(folder + platform::from_utf8(row.name), folder)) << row.name;
    }
    EXPECT_EQ("-", names_of(u"", u""));
    EXPECT_EQ(0u, living_objects());
}

TEST(data_sets, files_of_other_formats_go_with_their_stem) {
    const temporary_folder folder;
    for (const wide_view name : {u"Well.wel", u"well.LOG", u"well.2.log", u"wells.log", u"other.wel",
                                 u"well.x\\a.wel", u"g\\g.pgrid", u"g\\values.bin", u"g\\deep\\no.bin",
                                 u"h\\i.pgrid", u"h\\values.bin", u"broken.shp", u"broken.dbf"})
        folder.write(name, "text");
    const wide_string head = folder.path() + u"\\";
    EXPECT_EQ(" well.wel well.LOG", names_of(head + u"well.wel", head));
    EXPECT_EQ(" broken.shp broken.dbf", names_of(head + u"broken.shp", head));
    EXPECT_EQ(" g\\g.pgrid g\\values.bin", names_of(head + u"g\\g.pgrid", head));
    EXPECT_EQ(" h\\i.pgrid", names_of(head + u"h\\i.pgrid", head));
    folder.write(u"well.new", "text");
    EXPECT_EQ(" well.wel well.LOG well.new", names_of(head + u"well.wel", head)) << "the folder has changed";
}

// A table of one text field without records; the byte at place 29 marks the code page.
std::string table_with_field(std::string name, char mark) {
    std::string bytes(32, '\0');
    bytes[0] = 3;
    bytes[8] = 65;
    bytes[10] = 11;
    bytes[29] = mark;
    name.resize(11);
    return bytes + name + "C" + std::string(4, '\0') + '\x0a' + std::string(15, '\0') + "\r";
}

TEST(dbf_fields, the_code_page_is_told_beside_the_table_or_in_it_and_no_table_has_no_names) {
    const temporary_folder folder;
    const std::string cp866 = "\x8f\xae\xab\xa5", cp1251 = "\xcf\xee\xeb\xe5", utf8 = "Поле";
    const std::string told = platform::to_bytes(u"Поле", platform::code_page_active);
    const struct {
        std::string bytes, code_page, name;
    } rows[] = {
        {table_with_field(cp866, 0x65), "", told},
        {table_with_field(cp1251, '\xc9'), "", told},
        {table_with_field(cp1251, 0x65), "ANSI 1251\n", told},
        {table_with_field(utf8, 0x65), "UTF-8", told},
        {table_with_field("A", 0).substr(0, 60), "", "-"},
        {std::string(31, '\0'), "", "-"},
        {std::string(100, '\0'), "", "-"},
    };
    int row_number = 0;
    for (const auto& row : rows) {
        const wide_string stem = platform::from_utf8("t" + std::to_string(++row_number));
        const wide_string table = folder.write(stem + u".dbf", row.bytes);
        if (!row.code_page.empty()) folder.write(stem + u".cpg", row.code_page);
        const auto names = dbf_field_names(table).value_or(std::vector<std::string>{"-"});
        EXPECT_EQ(std::vector{row.name}, names) << row_number;
    }
    EXPECT_FALSE(dbf_field_names(folder.path(u"absent.dbf")));
}

TEST(tos_reader, properties_and_members_are_read_as_they_are_written) {
    const temporary_folder folder;
    const wide_string path =
        folder.write(u"a.tos", "TOS 1\r\nproperty Глубина, м\nproperty Глубина, м\r\n"
                               "member Sub/A.tod\nmember ..\\b\ndata 1 -\ndata +.5e-3 -2.");
    const auto file = read_tos(path);
    ASSERT_TRUE(file);
    EXPECT_EQ((std::vector<wide_string>{u"Глубина, м", u"Глубина, м"}), file->properties);
    EXPECT_EQ((std::vector<wide_string>{u"Sub/A.tod", u"..\\b"}), file->members);
    const wide_string head = folder.path() + u"\\";
    EXPECT_EQ(" a.tos Sub\\A.tod ..\\b", names_of(path, head));

    std::string large = "TOS 1\nproperty X\n"; // longer than any buffer
    for (int i = 0; i < 10000; ++i) large += "data 123.456\n";
    EXPECT_TRUE(read_tos(folder.write(u"large.tos", large)));
    for (const wide_string& real : sample_files(".tos"))
        EXPECT_TRUE(read_tos(real)) << platform::to_utf8(real);
}

TEST(tos_reader, a_broken_file_is_refused_with_its_line_and_stays_a_data_set) {
    const temporary_folder folder;
    const struct {
        std::string bytes;
        std::size_t line;
    } rows[] = {
        {"", 1},
        {"TOS 2\n", 1},
        {"\xEF\xBB\xBFTOS 1\n", 1},
        {"TOS 1\n\nproperty X\n", 2},
        {"TOS 1\n# note\n", 2},
        {"TOS 1\nProperty X\n", 2},
        {"TOS 1\nproperty\n", 2},
        {"TOS 1\nproperty  X\n", 2},
        {"TOS 1\nproperty X \n", 2},
        {"TOS 1\nproperty \xFF\n", 2},
        {"TOS 1\nmember a\nproperty X\n", 3},
        {"TOS 1\nmember /a\n", 2},
        {"TOS 1\nmember C:a\n", 2},
        {"TOS 1\nmember a//b\n", 2},
        {"TOS 1\nmember x/A.tod\nmember X\\a.tod\n", 3},
        {"TOS 1\nmember ./BROKEN.tos\n", 2},
        {"TOS 1\ndata 1\n", 2},
        {"TOS 1\nproperty X\ndata 1 2\n", 3},
        {"TOS 1\nproperty X\nproperty Y\ndata 1  2\n", 4},
        {"TOS 1\nproperty X\ndata 1,5\n", 3},
        {"TOS 1\nproperty X\ndata 1e\n", 3},
        {"TOS 1\nproperty X\ndata nan\n", 3},
        {"TOS 1\nproperty X\ndata .\n", 3},
    };
    for (const auto& row : rows) {
        const wide_string path = folder.write(u"broken.tos", row.bytes);
        files::file_error error;
        EXPECT_FALSE(read_tos(path, &error)) << row.bytes;
        EXPECT_EQ(row.line, error.line) << row.bytes;
        EXPECT_FALSE(error.reason.empty());
        EXPECT_EQ(" broken.tos", names_of(path, folder.path() + u"\\"));
    }
    files::file_error error;
    EXPECT_FALSE(read_tos(folder.path(u"absent.tos"), &error));
    EXPECT_EQ(folder.path(u"absent.tos"), error.file);
}

} // namespace
} // namespace vestra::datasets
