#include <gtest/gtest.h>

#include "reference_host/datasets/tos_reader.h"
#include "tests/reference_host/opened_data_sets.h"
#include "tests/support/faulty_system.h"
#include "tests/support/temporary_folder.h"

namespace vestra::datasets {
namespace {

using namespace vs::project_resave;

TEST(data_sets, files_of_other_formats_go_with_their_stem) {
    const temporary_folder folder;
    for (const wide_view name :
         {u"Well.wel", u"well.LOG", u"well.2.log", u"wells.log", u"other.wel", u"well.x\\a.wel",
          u"g\\g.pgrid", u"g\\values.bin", u"g\\deep\\no.bin", u"h\\i.pgrid", u"h\\values.bin", u"broken.shp",
          u"broken.dbf", u"broken.doc"})
        folder.write(name, "text");
    const wide_string head = folder.path() + u"\\";
    EXPECT_EQ(" well.wel well.LOG", names_of(head + u"well.wel", head));
    EXPECT_EQ(" broken.shp broken.dbf broken.doc", names_of(head + u"broken.shp", head));
    EXPECT_EQ(" g\\g.pgrid g\\values.bin", names_of(head + u"g\\g.pgrid", head));
    EXPECT_EQ(" h\\i.pgrid", names_of(head + u"h\\i.pgrid", head));
    folder.write(u"well.new", "text");
    EXPECT_EQ(" well.wel well.LOG well.new", names_of(head + u"well.wel", head)) << "the folder has changed";
}

TEST(tos_reader, a_numbered_set_has_its_own_members) {
    const temporary_folder folder;
    folder.write(u"m_(1).tod", "1");
    const std::string full = "TOS 1\nmember M.tod\nmember m.idx\nmember .bin\n";
    const std::pair<wide_view, const char*> rows[] = {
        {u"m.tos", " m.tos M.tod m.idx m.bin"},
        {u"m_(1).tos", " m_(1).tos m_(1).tod m.idx m_(1).bin"},
        {u"m_(2).tos", " m_(2).tos M.tod m.idx m_(2).bin"},
        {u"m_(1)x.tos", " m_(1)x.tos M.tod m.idx m_(1)x.bin"},
    };
    for (const auto& [name, expected] : rows)
        EXPECT_EQ(expected, names_of(folder.write(wide_string(name), full), folder.path() + u"\\"));
}

TEST(tos_reader, a_damaged_file_does_not_open_and_has_line_and_reason) {
    const temporary_folder folder;
    const struct {
        std::string bytes;
        std::size_t line;
    } rows[] = {
        {"TOS 2\n", 1},
        {"\xEF\xBB\xBFTOS 1\n", 1},
        {"TOS 1\n\nproperty X\n", 2},
        {"TOS 1\nproperty \xFF\n", 2},
        {"TOS 1\nmember a\nproperty X\n", 3},
        {"TOS 1\nmember /a\n", 2},
        {"TOS 1\nmember x/A.tod\nmember X\\a.tod\n", 3},
        {"TOS 1\nmember .tod\nmember BROKEN.TOD\n", 3},
        {"TOS 1\nmember .tos\n", 2},
        {"TOS 1\nproperty X\ndata 1,5\n", 3},
        {"TOS 1\nproperty X\ndata nan\n", 3},
    };
    for (const auto& row : rows) {
        const wide_string path = folder.write(u"broken.tos", row.bytes);
        files::file_error error;
        EXPECT_FALSE(read_tos(path, &error)) << row.bytes;
        EXPECT_EQ(row.line, error.line) << row.bytes;
        EXPECT_FALSE(error.reason.empty());
        EXPECT_EQ("-", names_of(path, folder.path() + u"\\"));
    }
    // The end of the file must be distinguished from an error.
    const wide_string good = folder.write(u"good.tos", "TOS 1\n");
    faulty_system faults({"read"}, 1, SIZE_MAX);
    const platform::system_override in_force(faults);
    files::file_error error;
    EXPECT_FALSE(open_source(good, nullptr, &error));
    EXPECT_EQ(error.text(), good + u": " + platform::outcome(platform::failure::damaged).text());
}

} // namespace
} // namespace vestra::datasets
