// Scene files: their names, what happens to one that exists, and which scenes get one.
#include "operations/run_settings.h"

#include "framework/resources/strings.h"
#include "platform/volumes.h"
#include "tests/support/faulty_system.h"
#include "tests/support/host_fixture.h"
#include "tests/support/project_builder.h"

namespace vs::project_resave {
namespace {

using kind = vestra::shell::scripted_front_end::kind;
using strings = std::vector<std::string>;

// Before any resave the files land in the current folder, which is N:\out here.
class scene_files : public host_fixture {
protected:
    scene_files() : before_(std::filesystem::current_path()) {
        EXPECT_FALSE(platform::set_current_folder(n + u"none"));
        EXPECT_TRUE(platform::set_current_folder(n + u"out"));
    }
    ~scene_files() override { std::filesystem::current_path(before_); }

    strings write_files(uint32_t on_exists) {
        script.events.clear();
        EXPECT_TRUE(context->create_scene_files({u"unused", static_cast<on_existing_file>(on_exists)}));
        EXPECT_EQ(std::vector<wide_string>{load_string(text::scene_files_saved)},
                  script.texts(kind::message));
        EXPECT_EQ(0U, script.open_windows);
        return files();
    }

private:
    const std::filesystem::path before_;
};

TEST_F(scene_files, have_names_that_a_disk_takes_and_move_with_the_data_beside_them) {
    project_builder()
        .scene_2d(u"A")
        .layer("rtr_lr2d", u"L", n + u"out\\1.tif")
        .scene_2d(u"A")
        .layer("rtr_lr2d", u"L", n + u"out\\2.tif")
        .scene_2d(u"A")
        .scene_2d(u"a:b?")
        .scene_2d(u"1.5 <\"x\"|*>")
        .scene_2d(u".sn")
        .save(source);
    load();
    strings names{".sn._sn", "1.5 __x____._sn", "A(1)(2)._sn", "A(1)._sn", "A._sn", "a_b_._sn"};
    EXPECT_EQ(names, write_files(1)) << "the last name with a further number";
    std::filesystem::current_path(native("n")); // Windows moves no folder that is the current one
    std::filesystem::rename(native("n") / "out", native("n") / "moved");
    EXPECT_EQ("A: L=N:\\moved\\1.tif\n", scene_outline(n + u"moved\\A._sn"));
    EXPECT_EQ("A: L=N:\\moved\\2.tif\n", scene_outline(n + u"moved\\A(1)._sn"));
    std::filesystem::rename(native("n") / "moved", native("n") / "out");
}

TEST_F(scene_files, rewriting_takes_the_old_file_first_so_a_failure_leaves_none) {
    project_builder().scene_2d(u"A").layer("rtr_lr2d", u"L", c + u"new.tif").save(source);
    load();
    const struct {
        faulty_system::kinds failing;
        uint32_t on_exists; // 0: rewrite; 2, which has no meaning, writes over it
        std::string begins;
    } rows[] = {{{}, 0, "<"},
                {{}, 2, "<"},
                {{"delete"}, 0, "<"},
                {{"open to write"}, 0, ""},
                {{"open to write"}, 2, "o"}};
    for (const auto& row : rows) {
        remove_tree(n + u"out\\a._sn");
        write(n + u"out\\a._SN", "older");
        faulty_system faults(row.failing, 1, SIZE_MAX);
        const platform::system_override in_force(faults);
        EXPECT_EQ(row.begins.size(), write_files(row.on_exists).size());
        EXPECT_EQ(row.begins, read(n + u"out\\a._sn").substr(0, 1));
    }
}

TEST_F(scene_files, only_selected_2d_scenes_are_written_also_after_a_stopped_run) {
    project_builder built;
    built.scene_2d(u"A").scene_2d(u"B").scene_3d(u"C").layout(u"D").save(source);
    load();
    context->selection.set_selected(built.id(u"A"), false);
    script.stop_at_poll = 1;
    structure_settings stopped;
    stopped.output_path = u"C:\\structure.txt";
    EXPECT_TRUE(context->save_structure(stopped));
    EXPECT_TRUE(context->progress.stopped);
    EXPECT_EQ((strings{"B._sn"}), write_files(0));
}

TEST_F(scene_files, after_a_resave_their_folder_is_the_path_of_the_new_project) {
    project_builder().scene_2d(u"A").save(source);
    load_and_resave();
    load();
    EXPECT_EQ(strings{}, write_files(0)); // it is a file: nothing can be written there
    EXPECT_EQ(output + u"\\A._sn", std::prev(context->placement.placed.end())->new_path);
}

} // namespace
} // namespace vs::project_resave
