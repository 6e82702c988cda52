#include <gtest/gtest.h>

#include <algorithm>

#include "framework/resources/text_rows.h"
#include "operations/project_context.h"
#include "platform/forwarding_system.h"
#include "reference_host/shell/front_end.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/tree_state.h"
#include "ui/host_questions.h"

namespace vs::project_resave {

namespace {

class logs : public testing::Test {
protected:
    logs() { vestra::shell::settings().language_offset = 50000; }
    ~logs() override { vestra::shell::settings().language_offset = 0; }

    temporary_folder disk;
    host_questions questions;
    project_context context{nullptr, questions};
    log_file& log = context.log;
};

// Counts the pauses between two attempts instead of sleeping, and releases the file after a number of them.
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
    log.write(wide_string(u"cut\0off", 7));
    log.close();
    EXPECT_FALSE(log.write(text::project_file_not_saved)); // lines after the close still arrive
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
    EXPECT_EQ(
        "", first_difference(committed("tests/logs/expected/every_message.txt"), disk.read(u"run_log.txt")));
}

TEST_F(logs, the_load_log_holds_the_last_step_indented_by_its_depth) {
    context.open_log.set_open_log_path(disk.path(u"a.b._vp"), true);
    for (const wide_string step : {u"scenes - Begin", u"layer - Begin"}) context.open_log.enter(step);
    EXPECT_EQ(disk.read(u"a.b_last_resave_open_log.txt"), "    layer - Begin\r\n");
}

TEST_F(logs, a_log_that_is_off_writes_nothing_and_an_open_one_continues) {
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

TEST_F(logs, a_line_waits_for_a_locked_file_but_not_for_ever) {
    const wide_string path = disk.path(u"log.txt");
    log.open(path, true);
    for (const int until : {3, 1000}) {
        held_file files(path, until);
        ASSERT_TRUE(files.holder);
        const platform::system_override in_force(files);
        log.write(until == 3 ? u"came free" : u"never did");
        EXPECT_EQ(files.pauses, std::min(until, 20));
    }
    EXPECT_EQ(disk.read(u"log.txt"), "came free\r\n");
}

} // namespace vs::project_resave
