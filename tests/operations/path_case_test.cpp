// The check of letter case: what is reported, and that its cost keeps step with the project.
#include "framework/strings.h"
#include "tests/support/forwarding_system.h"
#include "tests/support/host_fixture.h"
#include "tests/support/project_builder.h"
#include "tests/support/tree_state.h"

namespace vs::project_resave {
namespace {

using kind = vestra::shell::scripted_front_end::kind;

constexpr const char* well = "plugin_lr_2d_well_hole_2d_3"; // its file, and a folder of the same stem

class path_case : public host_fixture {
protected:
    // The report, after checking what the user was told.
    std::string check(int32_t told) {
        script.events.clear();
        script.polls = 0;
        EXPECT_TRUE(context->check_path_case(report));
        EXPECT_EQ(std::vector<wide_string>{load_string(told)}, script.texts(kind::message));
        EXPECT_EQ(told == 529, context->case_differs);
        EXPECT_EQ(0U, script.open_windows);
        return read(report);
    }
    // Three lines of the report.
    static std::string block(const wide_string& stored, const wide_string& spelled) {
        return platform::to_utf8(stored) + "\r\n" + platform::to_utf8(spelled) + "\r\n\r\n";
    }

    const wide_string report = n + u"out\\report.txt";
};

TEST_F(path_case, the_sample_says_lake_where_the_disk_says_Lake) {
    copy_sample();
    if (IsSkipped()) return;
    const tree_state before = state_of(native("d"));
    load();
    std::string expected; // the data set names the further files by the disk
    for (const char16_t* name : {u"lake.shp", u"Lake.shx", u"Lake.dbf", u"Lake.cpg", u"Lake.prj"}) {
        wide_string spelled = name;
        spelled[0] = u'L';
        expected += block(u"D:\\GIS\\base\\" + wide_string(name), u"D:\\gis\\base\\" + spelled);
    }
    EXPECT_EQ(expected, check(529));
    EXPECT_EQ("", difference(before, state_of(native("d"))));
}

TEST_F(path_case, every_spelling_but_the_disks_own_is_told_and_what_is_no_file_on_a_drive_is_not) {
    const wide_string file = write(c + u"Wells\\P-1.wel");
    write(c + u"Wells\\P-1\\log.txt");
    const wide_string folder = c + u"Wells\\P-1";
    wide_string slashes = file;
    std::ranges::replace(slashes, u'\\', u'/');
    const struct {
        wide_string stored;
        std::string told;
    } rows[] = {
        {file, ""},
        {c + u"wells\\P-1.wel", block(c + u"wells\\P-1.wel", file) + block(c + u"wells\\P-1", folder)},
        {c + u"Wells\\p-1.WEL", block(c + u"Wells\\p-1.WEL", file) + block(c + u"Wells\\p-1", folder)},
        {slashes, block(slashes, file) + block(slashes.substr(0, slashes.size() - 4), folder)},
        {u"\\\\server\\share\\p-1.wel", ""},
        {c + u"Wells\\none.wel", ""},
        {u"", ""},
    };
    for (const auto& row : rows) {
        project_builder built;
        built.scene_2d(u"S").layer(well, u"W", row.stored).save(source);
        load();
        context->options.indent_unit = u"kept";
        EXPECT_EQ(row.told, check(row.told.empty() ? 530 : 529));
        EXPECT_TRUE(path_exists(report));
        EXPECT_EQ(u"kept", context->options.indent_unit);
        context->selection.set_selected(built.id(u"W"), false);
        EXPECT_EQ("", check(530));
    }
}

TEST_F(path_case, a_stop_takes_the_report_away) {
    write(c + u"p.wel");
    project_builder()
        .scene_2d(u"S")
        .layer(well, u"W", c + u"P.wel")
        .layer(well, u"W", c + u"P.wel")
        .save(source);
    load();
    EXPECT_EQ(block(c + u"P.wel", c + u"p.wel") + block(c + u"P.wel", c + u"p.wel"), check(529));
    for (size_t poll = script.polls; poll > 0; --poll) {
        script.stop_at_poll = poll;
        script.events.clear();
        script.polls = 0;
        EXPECT_TRUE(context->check_path_case(report));
        EXPECT_EQ(std::vector<wide_string>{load_string(513)}, script.texts(kind::message));
        EXPECT_FALSE(path_exists(report));
    }
}

TEST_F(path_case, the_disk_is_asked_as_often_for_each_file_of_a_large_project_as_of_a_small_one) {
    struct counting : forwarding_system {
        platform::entry_kind kind_of(const wide_string& path) override {
            return ++calls, forwarding_system::kind_of(path);
        }
        bool true_name(const wide_string& folder, const wide_string& name, wide_string& spelling) override {
            return ++calls, forwarding_system::true_name(folder, name, spelling);
        }
        size_t calls = 0;
    };
    size_t calls_of_fifty = 0;
    for (const size_t count : {50U, 500U}) {
        project_builder built;
        built.scene_2d(u"S");
        for (uint32_t index = 0; index < count; ++index)
            built.layer(well, u"W", write(c + u"wells\\" + decimal(index) + u".wel"));
        built.save(source);
        load();
        counting counted;
        const platform::system_override in_force(counted);
        EXPECT_EQ("", check(530));
        if (count == 50) calls_of_fifty = counted.calls;
        EXPECT_EQ(calls_of_fifty * count / 50, counted.calls);
    }
}

} // namespace
} // namespace vs::project_resave
