// Linux only: the command runs in the process of the test, on a disk that fails or that others change.
#include <fstream>
#include <nlohmann/json.hpp>

#include "apps/vestra_resave/commands.h"
#include "platform/forwarding_system.h"
#include "tests/apps/command_run.h"

namespace vs::project_resave {
namespace {

using nlohmann::json;
using namespace vestra::command;

class disturbed_update : public command_run {
protected:
    // Saves a project of rasters with these names, each with a world file and new content each time.
    void save(const std::vector<wide_string>& names) {
        builder.clear();
        builder.scene_2d(u"Area");
        ++version_;
        for (const wide_string& name : names) {
            const std::string content = platform::to_utf8(name) + " " + std::to_string(version_);
            builder.layer("rtr_lr2d", name, write(u"C:\\prj\\" + name + u".tif", content));
            write(u"C:\\prj\\" + name + u".tfw", content + " world");
        }
        builder.save(source);
    }
    // Runs the command in this process on a disk of the test.
    int resave_on(platform::system& disk, run_mode mode, const char* to = "N:\\out\\new._vp") {
        resave_request request;
        request.project = "C:\\prj\\area._vp";
        request.new_project = to;
        request.mode = mode;
        request.manifest = true;
        const platform::system_override in_force(disk);
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        const int code = vestra::command::resave(request, {});
        out = testing::internal::GetCapturedStdout();
        err = testing::internal::GetCapturedStderr();
        return code;
    }

    size_t version_ = 0;
};

TEST_F(disturbed_update, takes_nothing_for_whole_that_a_disk_may_have_lost) {
    save({u"a"});
    struct : forwarding_system {
        platform::outcome flush_volume(const wide_string&) override { return platform::failure::damaged; }
    } failing;
    EXPECT_EQ(1, resave_on(failing, run_mode::anew)) << err;
    EXPECT_TRUE(is_told("out: could not be written")) << err;
    for (const char* const fate : {"replaced", "unchanged"}) {
        EXPECT_EQ(0, command("resave 'C:\\prj\\area._vp' 'N:\\out\\new._vp' --update --json")) << err;
        EXPECT_EQ(2U, json::parse(out).at(fate).size()) << fate << out;
    }
}

TEST_F(disturbed_update, keeps_files_that_are_changed_while_it_runs) {
    save({u"a", u"b"});
    forwarding_system undisturbed;
    ASSERT_EQ(0, resave_on(undisturbed, run_mode::anew)) << err;
    save({u"a", u"b"});
    struct editor : forwarding_system {
        platform::outcome copy_file(const wide_string& from, const wide_string& target,
                                    bool replace) override {
            if (path_file_name(from) == u"b.tif") std::ofstream(edited) << "edited meanwhile";
            return forwarding_system::copy_file(from, target, replace);
        }
        std::filesystem::path edited;
    } somebody;
    somebody.edited = native("n") / "out/rtr/a.tif";
    EXPECT_EQ(1, resave_on(somebody, run_mode::update)) << err;
    EXPECT_TRUE(is_told("it was changed since the earlier resave")) << err;
    EXPECT_EQ("edited meanwhile", read(u"N:\\out\\rtr\\a.tif"));
}

TEST_F(disturbed_update, goes_on_after_a_share_was_lost) {
    save({u"a", u"b"});
    struct lost_share : forwarding_system {
        platform::outcome copy_file(const wide_string& from, const wide_string& target,
                                    bool replace) override {
            if (path_file_name(from) == u"b.tif") std::filesystem::rename(share, share.string() + ".away");
            return forwarding_system::copy_file(from, target, replace);
        }
        std::filesystem::path share;
    } disk;
    disk.share = native("c") / "prj";
    EXPECT_EQ(1, resave_on(disk, run_mode::anew)) << err;
    std::filesystem::rename(disk.share.string() + ".away", disk.share);
    forwarding_system undisturbed;
    EXPECT_EQ(0, resave_on(undisturbed, run_mode::resume)) << err;
    EXPECT_EQ("b 1", read(u"N:\\out\\rtr\\b.tif"));
}

TEST_F(disturbed_update, packs_no_file_that_changes_meanwhile) {
    save({u"a"});
    struct editor : forwarding_system {
        platform::outcome open(const wide_string& path, platform::access wanted, platform::disposition how,
                               std::unique_ptr<platform::file>& result) override {
            const auto opened = forwarding_system::open(path, wanted, how, result);
            if (path_file_name(path) == u"a.tif") std::ofstream(edited) << "A 1"; // as long as before
            return opened;
        }
        std::filesystem::path edited;
    } somebody;
    somebody.edited = native("c") / "prj/a.tif";
    EXPECT_EQ(3, resave_on(somebody, run_mode::anew, "N:\\sent\\new.zip")) << out;
    EXPECT_TRUE(is_told("changed")) << err;
    EXPECT_FALSE(std::filesystem::exists(native("n") / "sent/new.zip"));
}

} // namespace
} // namespace vs::project_resave
