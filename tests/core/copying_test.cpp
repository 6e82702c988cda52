#include "core/copying.h"

#include <gtest/gtest.h>

#include "operations/project_context.h"
#include "operations/run/path_files.h"
#include "platform/path_text.h"
#include "platform/system.h"
#include "platform/text.h"
#include "reference_host/model/counted.h"
#include "tests/support/faulty_system.h"
#include "tests/support/temporary_folder.h"
#include "ui/host_questions.h"

namespace vs::project_resave {

namespace {

// Files are copied from src to out; the content of each file is its own name.
class copying : public testing::Test {
protected:
    ~copying() override { EXPECT_EQ(vestra::living_objects(), 0u); }

    // Starts again with these files; "*name" already exists in out.
    void begin(wide_view names) {
        for (const wide_view folder : {u"src", u"out"}) {
            remove_tree(disk.path(folder));
            create_folders(disk.path(folder));
        }
        for (const wide_string& name : path_split(names, u" ", true)) {
            const bool in_the_way = name[0] == u'*';
            disk.write(in_the_way ? u"out\\" + name.substr(1) : u"src\\" + name, platform::to_utf8(name));
        }
        context.report.restart({});
        context.report.current_unit = u"unit";
        context.placement.reset();
    }
    // Returns "source>target" for each new file in out, then "!" for each recorded failure and "no" for a
    // false result.
    std::string outcome(bool result) const {
        std::string text;
        for (const auto& entry : platform::list_tree(platform::current_system(), out)) {
            if (entry.is_folder) continue;
            const wide_string target = path_relative(out, entry.path);
            const std::string source = disk.read(u"out\\" + target);
            if (source[0] != '*') text += source + ">" + platform::to_utf8(target) + " ";
        }
        for (const auto& problem : context.report.problems())
            for (const char16_t c : problem.text) text += c == u'\n' ? "!" : "";
        return text + (result ? "" : "no");
    }

    temporary_folder disk;
    const wide_string src = disk.path(u"src\\"), out = disk.path(u"out\\");
    host_questions questions;
    project_context context{nullptr, questions};
};

using routine = bool (*)(const wide_string&, const wide_string&, run_state&);

} // namespace

TEST_F(copying, what_is_in_the_way_is_reported_and_only_that_is_lost) {
    const struct {
        routine copy;
        wide_view source, target, present;
        std::string expected;
    } rows[] = {
        {copy_one, u"a", u"a", u"a *A", "!no"},
        {copy_table, u"t.dbf", u"t.dbf", u"t.dbf t.cpg *t.dbf", "t.cpg>t.cpg !"},
        {copy_file_and_folder, u"w.wel", u"v.wel", u"w.wel w\\l.las w\\c\\a",
         "w\\c\\a>v\\c\\a w\\l.las>v\\l.las w.wel>v.wel "},
        {copy_file_and_folder, u"w.wel", u"w.wel", u"w.wel w\\a *w\\b", "w.wel>w.wel !"},
    };
    for (const auto& row : rows) {
        begin(row.present);
        const bool result = row.copy(src + wide_string(row.source), out + wide_string(row.target), context);
        EXPECT_EQ(outcome(result), row.expected);
    }
}

TEST_F(copying, a_projection_file_that_two_share_is_copied_once) {
    begin(u"a_tif.pj4");
    for (const wide_string target : {u"a.tif", u"c.tif"})
        copy_projection_file(src + u"a.tif", out + target, context);
    EXPECT_EQ(outcome(true), "a_tif.pj4>a_tif.pj4 ");
}

TEST_F(copying, a_folder_is_copied_whole_or_the_failed_entry_is_named) {
    begin(u"g\\a\\1 g\\b\\c\\2 g\\3 *old\\3");
    const auto refused = copy_folder(src + u"g", out + u"old", false, false, context);
    EXPECT_TRUE(refused && refused->why.is(platform::failure::taken));
    const auto in_the_way = copy_folder(src + u"g", out + u"old", true, false, context);
    EXPECT_TRUE(in_the_way && in_the_way->new_path == out + u"old\\3" && !in_the_way->why);
    EXPECT_FALSE(copy_folder(src + u"g", out + u"old", true, true, context));
    EXPECT_FALSE(copy_folder(src + u"g", out + u"deep\\new", false, false, context));
    EXPECT_EQ(disk.read(u"out\\deep\\new\\b\\c\\2") + disk.read(u"out\\old\\3"), "g\\b\\c\\2g\\3");
    faulty_system unreadable({"list"}, 1, SIZE_MAX, src + u"g\\b");
    const platform::system_override in_force(unreadable);
    const auto half = copy_folder(src + u"g", out + u"half", false, false, context);
    EXPECT_TRUE(half && half->path == src + u"g\\b" && !half->why) << "half a folder counts as whole";
}

TEST_F(copying, members_of_a_data_set_follow_the_new_name_of_the_main_file) {
    const struct {
        wide_view source, target, members;
        bool lower, keep_case;
        std::string expected;
    } rows[] = {
        {u"m.tos", u"z.tos", u"m.tod x.bin", false, true, "x.bin>x.bin m.tod>z.tod "},
        {u"m.tos", u"m_(1).tos", u"m.tos.idx comment.txt", false, true,
         "comment.txt>comment.txt m.tos.idx>m_(1).tos.idx "}, // referred to by its full name
        {u"m.tos", u"m_(1).tos", u"comment.txt", false, false, "comment.txt>com_(1)m_(1)ent.txt "},
        {u"Map.tos", u"map.tos", u"Map.TOD Map_A.TOD", true, true, "Map_A.TOD>Map_A.TOD Map.TOD>map.TOD "},
        {u"Map.tos", u"map.tos", u"Map_A.TOD", true, false, "Map_A.TOD>map_a.tod "},
        {u"m.tos", u"m.tos", u"sub\\m.bin", false, true, "!"}, // no folder is made for a member
    };
    for (const auto& row : rows) {
        begin(row.members);
        std::string content = "TOS 1\nproperty X\n";
        for (const wide_string& member : path_split(row.members, u" ", true))
            content += "member " + platform::to_utf8(member) + "\n";
        const wide_string source = disk.write(u"src\\" + wide_string(row.source), content);
        context.options.lower_case = row.lower;
        context.placement.register_placed(source, out + wide_string(row.target)); // copied before its members
        EXPECT_EQ(
            outcome(copy_data_source_files(source, out + wide_string(row.target), row.keep_case, context)),
            row.expected);
    }
    begin(u"broken.tos"); // its members are not known
    EXPECT_EQ(outcome(copy_data_source_files(src + u"broken.tos", out + u"b.tos", true, context)), "no");
}

TEST_F(copying, erasing_a_tree_keeps_the_targets_of_its_links) {
    disk.write(u"made\\a\\b.shp");
    disk.write(u"kept\\file");
    std::error_code unsupported;
    std::filesystem::create_directory_symlink(disk.native() / "kept", disk.native() / "made/a/link",
                                              unsupported);
    EXPECT_TRUE(context.guard.remove_tree(disk.path(u"made")));
    EXPECT_FALSE(std::filesystem::exists(disk.native() / "made"));
    EXPECT_TRUE(context.guard.remove_tree(disk.path(u"kept\\file"))) << "it must have survived";
    EXPECT_FALSE(context.guard.remove_tree(disk.path(u"kept\\file")));
}

} // namespace vs::project_resave
