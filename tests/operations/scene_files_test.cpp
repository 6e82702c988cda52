// Scene files: their names, what happens to one that exists, and which scenes get one.
#include "operations/scene_files_run.h"

#include "core/path_files.h"
#include "framework/strings.h"
#include "operations/structure_run.h"
#include "platform/volumes.h"
#include "tests/support/forwarding_system.h"
#include "tests/support/host_fixture.h"
#include "tests/support/project_builder.h"
#include "tests/support/tree_state.h"

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
        EXPECT_TRUE(context->create_scene_files({u"unused", on_exists}));
        EXPECT_EQ(std::vector<wide_string>{load_string(514)}, script.texts(kind::message));
        EXPECT_EQ(0U, script.open_windows);
        return files();
    }
    strings files() const {
        strings names;
        for (const auto& [path, state] : state_of(native("n") / "out")) names.push_back(path);
        return names;
    }
    // Caption of the one layer in a scene file.
    wide_string layer_of(const wide_string& name) {
        vestra::scene scene(vestra::dimension::flat);
        EXPECT_FALSE(vestra::files::read_scene(n + u"out\\" + name, scene)) << platform::to_utf8(name);
        return scene.count() == 1 ? scene.at(0)->caption : wide_string();
    }

private:
    const std::filesystem::path before_;
};

TEST_F(scene_files, a_new_name_is_the_last_one_with_a_further_number) {
    project_builder()
        .scene_2d(u"A")
        .layer("rtr_lr2d", u"one")
        .scene_2d(u"A")
        .layer("rtr_lr2d", u"two")
        .scene_2d(u"A")
        .layer("rtr_lr2d", u"three")
        .save(source);
    load();
    EXPECT_EQ((strings{"A(1)(2)._sn", "A(1)._sn", "A._sn"}), write_files(1));
    EXPECT_EQ(u"one", layer_of(u"A._sn"));
    EXPECT_EQ(u"two", layer_of(u"A(1)._sn"));
    EXPECT_EQ(u"three", layer_of(u"A(1)(2)._sn"));
    EXPECT_EQ((strings{"A(1)(2)(3)(4)(5)._sn", "A(1)(2)(3)(4)._sn", "A(1)(2)(3)._sn", "A(1)(2)._sn",
                       "A(1)._sn", "A._sn"}),
              write_files(1));
}

TEST_F(scene_files, rewriting_takes_the_old_file_first_so_a_failure_leaves_none) {
    struct full_disk : forwarding_system {
        platform::open_result open(const wide_string& path, platform::access wanted,
                                   platform::disposition how,
                                   std::unique_ptr<platform::file>& file) override {
            if (how == platform::disposition::create_always) return platform::open_result::failed;
            return forwarding_system::open(path, wanted, how, file);
        }
    };
    struct : forwarding_system {
        bool delete_file(const wide_string&) override { return false; }
    } nothing_is_deleted;
    project_builder().scene_2d(u"A").layer("rtr_lr2d", u"new").save(source);
    load();
    {
        write(n + u"out\\A._sn", "older");
        const platform::system_override in_force(nothing_is_deleted);
        EXPECT_EQ(strings{"A._sn"}, write_files(0));
    }
    EXPECT_EQ(u"new", layer_of(u"A._sn")) << "written all the same";
    remove_tree(n + u"out\\A._sn");
    for (const uint32_t on_exists : {0U, 2U}) { // rewrite; a value that has no meaning writes over it
        write(n + u"out\\a._SN", "older");
        EXPECT_EQ(1U, write_files(on_exists).size());
        EXPECT_EQ(u"new", layer_of(u"A._sn"));
        full_disk faults;
        const platform::system_override in_force(faults);
        EXPECT_EQ(on_exists == 0 ? 0U : 1U, write_files(on_exists).size());
        remove_tree(n + u"out\\a._sn");
    }
}

TEST_F(scene_files, captions_become_names_that_a_disk_takes) {
    project_builder().scene_2d(u"a:b?").scene_2d(u"1.5 <\"x\"|*>").scene_2d(u".sn").save(source);
    load();
    EXPECT_EQ((strings{".sn._sn", "1.5 __x____._sn", "a_b_._sn"}), write_files(0));
}

TEST_F(scene_files, move_together_with_the_data_beside_them) {
    write(n + u"out\\maps\\a.shp", "shape");
    project_builder().scene_2d(u"A").layer("shp_pnt_lr2d", u"A1", n + u"out\\maps\\a.shp").save(source);
    load();
    write_files(0);
    std::filesystem::current_path(native("n")); // Windows moves no folder that is the current one
    std::filesystem::rename(native("n") / "out", native("n") / "moved");
    vestra::scene scene(vestra::dimension::flat);
    ASSERT_FALSE(vestra::files::read_scene(n + u"moved\\A._sn", scene));
    EXPECT_EQ(n + u"moved\\maps\\a.shp", scene.at(0)->file);
    std::filesystem::rename(native("n") / "moved", native("n") / "out");
}

TEST_F(scene_files, only_selected_2d_scenes_are_written_also_after_a_stopped_run) {
    project_builder built;
    built.scene_2d(u"A").scene_2d(u"B").scene_3d(u"C").layout(u"D").save(source);
    load();
    context->selection.set_selected(built.id(u"A"), false);
    script.stop_at_poll = 1;
    const wide_string text_file = c + u"structure.txt";
    structure_settings stopped;
    stopped.output_path = text_file.c_str();
    EXPECT_TRUE(context->save_structure(stopped));
    EXPECT_TRUE(context->progress.stopped);
    EXPECT_EQ((strings{"B._sn"}), write_files(0));
}

TEST_F(scene_files, after_a_resave_their_folder_is_the_path_of_the_new_project) {
    project_builder().scene_2d(u"A").save(source);
    load_and_resave();
    load();
    const size_t placed = context->placement.placed.size();
    EXPECT_EQ((strings{"new._vp"}), write_files(0)); // which is a file: nothing can be written there
    ASSERT_EQ(placed + 1, context->placement.placed.size());
    const placed_file& last = *std::prev(context->placement.placed.end());
    EXPECT_EQ(u"", last.old_path);
    EXPECT_EQ(output + u"\\A._sn", last.new_path);
}

TEST_F(scene_files, nothing_is_written_without_a_project) {
    EXPECT_FALSE(context->create_scene_files({u"unused", 0}));
    EXPECT_EQ(std::vector<wide_string>{load_string(501)}, errors());
    EXPECT_TRUE(files().empty());
}

} // namespace
} // namespace vs::project_resave
