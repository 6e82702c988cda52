// Linux only: the command is started through a shell.
// The command line with a bundle, as its own process.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>

#include "tests/support/temporary_folder.h"

namespace vs::project_resave {
namespace {

class bundle_option : public testing::Test {
protected:
    // The exit code; `output` is what went to both outputs.
    int command(const std::string& arguments) {
        const std::string told = (folder.native() / "told").string();
        const int status = std::system((VS_COMMAND " " + arguments + " > " + told + " 2>&1").c_str());
        output = folder.read(u"told");
        return WEXITSTATUS(status);
    }
    bool told(const std::string& text) const { return output.find(text) != std::string::npos; }

    temporary_folder folder;
    const std::string samples = VS_SOURCE_DIR "/samples/bundle";
    const std::string project = samples + "/survey/survey._vp --language en --drive C=" + samples;
    const std::string bundle = " --bundle " VS_SAMPLE_BUNDLE;
    std::string output;
};

TEST_F(bundle_option, items_of_a_bundle_are_listed_left_out_by_name_copied_and_verified) {
    ASSERT_EQ(0, command("list " + project + bundle)) << output;
    EXPECT_TRUE(told("Field notes\n    Quarry  [field_notes]")) << output;
    ASSERT_EQ(0, command("list " + project)) << output;
    EXPECT_FALSE(told("Quarry")) << output;

    const std::string target = (folder.native() / "copy" / "survey._vp").string();
    ASSERT_EQ(0, command("resave --files --verify --deselect bridge " + project + " " + target + bundle));
    EXPECT_TRUE(told("notes\\quarry.txt") && told("sketches\\plan.sketch.legend")) << output;
    EXPECT_FALSE(told("bridge.txt")) << output;
    std::filesystem::remove(folder.native() / "copy/notes/quarry.txt");
    EXPECT_EQ(1, command("verify " + target + bundle));
    EXPECT_TRUE(told("missing: item Quarry: ")) << output;
    EXPECT_EQ(0, command("verify " + target)) << output;
}

// Its own copies would be real.
TEST_F(bundle_option, a_bundle_that_copies_by_itself_has_no_dry_run) {
    const std::string target = " " + (folder.native() / "survey._vp").string();
    EXPECT_EQ(2, command("resave --dry-run " + project + target + bundle));
    EXPECT_TRUE(told("copies files by itself")) << output;
    EXPECT_EQ(1, command("resave --dry-run " + project + target)) << output; // the bundle's type is unknown
    EXPECT_FALSE(std::filesystem::exists(folder.native() / "survey._vp"));
}

} // namespace
} // namespace vs::project_resave
