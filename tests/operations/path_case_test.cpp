// The check of letter case. That its cost keeps step with the project is measured by bench/run.
#include "framework/resources/strings.h"
#include "tests/support/host_fixture.h"
#include "tests/support/project_builder.h"

namespace vs::project_resave {
namespace {

using kind = vestra::shell::scripted_front_end::kind;

constexpr const char* well = "plugin_lr_2d_well_hole_2d_3"; // its file, and a folder of the same stem

class path_case : public host_fixture {
protected:
    // The report, after checking what the user was told.
    std::string check(int32_t told) {
        script.events.clear();
        const tree_state before = sources();
        EXPECT_TRUE(context->check_path_case(report));
        EXPECT_EQ(std::vector<wide_string>{load_string(told)}, script.texts(kind::message));
        EXPECT_EQ(told == text::case_differs, context->case_differs);
        EXPECT_EQ("", difference(before, sources()));
        return path_exists(report) ? read(report) : "no report";
    }
    // Three lines of the report.
    static std::string block(const wide_string& stored, const wide_string& spelled) {
        return platform::to_utf8(stored) + "\r\n" + platform::to_utf8(spelled) + "\r\n\r\n";
    }

    const wide_string report = n + u"out\\report.txt";
};

TEST_F(path_case, the_sample_says_lake_where_the_disk_says_Lake) {
    copy_sample();
    load();
    std::string expected = block(u"D:\\GIS\\base\\lake.shp", u"D:\\gis\\base\\Lake.shp");
    for (const wide_string name : {u"Lake.shx", u"Lake.dbf", u"Lake.cpg", u"Lake.prj"}) // named by the disk
        expected += block(u"D:\\GIS\\base\\" + name, u"D:\\gis\\base\\" + name);
    EXPECT_EQ(expected, check(text::case_differs));
}

TEST_F(path_case, every_spelling_but_the_disks_own_is_told_and_what_is_no_file_on_a_drive_is_not) {
    const wide_string file = write(c + u"Wells\\P-1.wel"), folder = c + u"Wells\\P-1";
    write(folder + u"\\log.txt");
    const struct {
        wide_string stored;
        std::string told;
    } rows[] = {
        {file, ""},
        {c + u"wells\\P-1.wel", block(c + u"wells\\P-1.wel", file) + block(c + u"wells\\P-1", folder)},
        {c + u"Wells\\p-1.WEL", block(c + u"Wells\\p-1.WEL", file) + block(c + u"Wells\\p-1", folder)},
        {u"C:/Wells/P-1.wel", block(u"C:/Wells/P-1.wel", file) + block(u"C:/Wells/P-1", folder)},
        {u"\\\\server\\share\\p-1.wel", ""},
        {c + u"Wells\\none.wel", ""},
        {u"", ""},
    };
    for (const auto& row : rows) {
        project_builder built;
        built.scene_2d(u"S").layer(well, u"W", row.stored).save(source);
        load();
        EXPECT_EQ(row.told, check(row.told.empty() ? text::case_is_right : text::case_differs));
        context->selection.set_selected(built.id(u"W"), false);
        EXPECT_EQ("", check(text::case_is_right));
    }
}

} // namespace
} // namespace vs::project_resave
