#include <gtest/gtest.h>

#include <algorithm>

#include "core/paths.h"
#include "framework/encoding.h"
#include "framework/strings.h"
#include "logs/file_stream.h"
#include "logs/project_struct_writer.h"
#include "operations/project_context.h"
#include "reference_host/shell/settings.h"
#include "tests/support/forwarding_system.h"
#include "tests/support/temporary_folder.h"

namespace vs::project_resave {

namespace {

class logs : public testing::Test {
protected:
    logs() { vestra::shell::settings().language_offset = 50000; }
    ~logs() override { vestra::shell::settings().language_offset = 0; }

    temporary_folder disk;
    project_context context{nullptr};
    log_file& log = context.log;
};

// Counts the pauses between two tries in place of sleeping, and lets the file go after so many.
struct held_file final : forwarding_system {
    held_file(const wide_string& path, int until) : pauses_until_free(until) {
        forwarding_system::open(path, platform::access::read_write, platform::disposition::open_existing,
                                holder);
    }
    void pause_1ms() override {
        if (++pauses == pauses_until_free) holder.reset();
    }
    int pauses_until_free;
    int pauses = 0;
    std::unique_ptr<platform::file> holder;
};

} // namespace

TEST_F(logs, every_message_is_the_block_of_lines_that_people_search_for) {
    log.open(disk.path(u"run_log.txt"), true);
    log.write(u"\U00010400 слой");
    log.write("narrow");
    log.write(static_cast<const char*>(nullptr));
    log.write(wide_string(u"cut\0off", 7));
    log.close();
    EXPECT_FALSE(log.write(628)); // lines after the close still arrive
    log.copy_failed(u"C:\\a\\b.shp");
    log.new_name_failed(u"");
    log.file_missing(u"f");
    log.layer_2d_not_saved("n");
    log.layer_2d_not_saved(u"w");
    log.layer_3d_not_saved(u"w");
    log.file_renamed(u"old", u"new");
    log.layer_2d_removed();
    log.layer_3d_removed();
    log.dbf_table_removed();
    log.tos_table_removed();
    log.scene_not_loaded(u"s");
    log.service_begin(u"s");
    log.service_end(u"s");
    log.service_file_removed(u"s");
    // "~" stands for the end of a block.
    const std::string expected =
        "\xF0\x90\x90\x80 слой\nnarrow\n\ncut\nProject file save fail\n"
        "Failure copying file: \nC:\\a\\b.shp\n~Failure know new name for file \n\n~No file \nf\n~"
        "Failure saved layer \nn\n scene 2D. Check the contents of the new project.\n~"
        "Failure saved layer \nw\n scene 2D. Check the contents of the new project.\n~"
        "Failure saved layer \nw\n scene 3D. Check the contents of the new project.\n~"
        "File \nold\n already exists and has been resave the name \nnew\n~"
        "Missing in original project layer 2d has been deleted from the new project\n~"
        "Missing in original project layer 3d has been deleted from the new project\n~"
        "Missing in original project dbf table has been deleted from the new project\n~"
        "Missing in original project oat table has been deleted from the new project\n~"
        "Scene\ns\n can not be loaded\n~Begin resave service \ns\n~End resave service \ns\n~"
        "Missing file has been deleted from service \ns\n~";
    std::string bytes;
    for (const char c : expected) bytes += c == '~' ? " \n\r\n" : c == '\n' ? "\r\n" : std::string(1, c);
    EXPECT_EQ(disk.read(u"run_log.txt"), bytes);
}

TEST_F(logs, structure_lines_are_indented_and_types_listed_only_if_there_are_any) {
    log.open(disk.path(u"structure.txt"), true);
    log.dump_unprocessed_types();
    log.add_unprocessed_type("gone");
    log.clear_unprocessed_types();
    EXPECT_EQ(log.unindent(), 0u);
    log.write_indented(624);
    log.write_at(u"three", 3);
    context.options.indent_unit = u"\t";
    log.indent();
    log.write_indented(u"one");
    log.add_unprocessed_type("wms_lr2d");
    log.dump_unprocessed_types();
    EXPECT_EQ(disk.read(u"structure.txt"), "DBF tables:\r\n            three\r\n\tone\r\n" +
                                               to_narrow(load_string(632), utf8_row) + "\r\nwms_lr2d \n\r\n");
}

TEST_F(logs, a_log_that_is_off_or_has_no_folder_writes_nothing_and_one_left_open_goes_on) {
    EXPECT_FALSE(log.open(disk.path(u"a.txt"), false));
    log.write(u"lost");
    EXPECT_TRUE(log.open(disk.path(u"none\\a.txt"), true));
    log.write(u"lost");
    disk.write(u"none\\x"); // the folder comes later; the file still has to be created first
    log.write(u"lost");
    EXPECT_FALSE(std::filesystem::exists(disk.native() / "a.txt"));
    EXPECT_FALSE(std::filesystem::exists(disk.native() / "none/a.txt"));

    disk.write(u"b.txt", "of an earlier run");
    log.open(disk.path(u"b.txt"), true);
    log.write(u"first");
    log.open(disk.path(u"c.txt"), false);
    log.write(u"second");
    EXPECT_EQ(disk.read(u"b.txt"), "first\r\nsecond\r\n");
}

TEST_F(logs, a_line_waits_for_a_file_that_another_program_holds_but_not_for_ever) {
    const wide_string path = disk.path(u"log.txt");
    log.open(path, true);
    for (const int until : {3, 1000}) {
        held_file files(path, until);
        ASSERT_TRUE(files.holder);
        const platform::system_override in_force(files);
        log.write(decimal(static_cast<uint32_t>(until)));
        EXPECT_EQ(files.pauses, std::min(until, 20));
    }
    EXPECT_EQ(disk.read(u"log.txt"), "3\r\n");
}

TEST_F(logs, the_load_log_holds_only_the_last_step) {
    open_log_file& steps = context.open_log;
    const auto last_line = [&] { return disk.read(u"a.b_last_resave_open_log.txt"); };
    steps.set_open_log_path(disk.path(u"a.b._vp"), false);
    steps.write_load_begin();
    steps.enter(u"unseen");
    EXPECT_FALSE(std::filesystem::exists(disk.native() / "a.b_last_resave_open_log.txt"));

    steps.set_open_log_path(disk.path(u"a.b._vp"), true);
    steps.write_load_begin();
    EXPECT_EQ(last_line(), "Begin load project from xml\r\n");
    steps.enter(u"scenes - Begin");
    steps.enter(u"layer - Begin");
    EXPECT_EQ(last_line(), "    layer - Begin\r\n");
    steps.leave(u"layer - End");
    EXPECT_EQ(last_line(), "    layer - End\r\n");
    steps.leave(u"scenes - End");
    steps.leave(u"once more");
    EXPECT_EQ(last_line(), "once more\r\n");
    steps.write_load_end();
    EXPECT_EQ(last_line(), "End load project from \r\n");
}

TEST_F(logs, plain_text_files_append_to_what_exists) {
    disk.write(u"text.txt", "old\n");
    project_struct_writer text;
    EXPECT_FALSE(text.open(disk.path(u"text.txt"))); // true only for an empty name
    EXPECT_TRUE(text.write("a", false) && text.write(624, true));
    text.unindent();
    text.indent();
    text.write_line(624);
    text.close();
    EXPECT_TRUE(text.write("lost", true) && text.open(u""));
    EXPECT_EQ(disk.read(u"text.txt"), "old\naDBF tables:\r\n    DBF tables:\r\n");
}

} // namespace vs::project_resave
