// The command line with a bundle.
#include "tests/apps/command_run.h"

namespace vs::project_resave {
namespace {

class bundle_option : public command_run {
protected:
    bundle_option() {
        std::filesystem::copy(VS_SOURCE_DIR "/samples/bundle/survey", native("c") / "survey",
                              std::filesystem::copy_options::recursive);
    }

    const std::string project = "'C:\\survey\\survey._vp'", target = " 'N:\\copy\\survey._vp'";
    const std::string bundle = " --bundle '" VS_SAMPLE_BUNDLE "'";
};

TEST_F(bundle_option, items_of_a_bundle_are_listed_left_out_by_name_copied_and_verified) {
    ASSERT_EQ(0, command("list " + project + bundle)) << err;
    EXPECT_TRUE(is_printed("Field notes\n    Quarry  [field_notes]")) << out;
    ASSERT_EQ(0, command("list " + project)) << err;
    EXPECT_FALSE(is_printed("Quarry")) << out;

    ASSERT_EQ(0, command("resave --files --verify --deselect bridge " + project + target + bundle)) << err;
    EXPECT_TRUE(is_printed("notes\\quarry.txt") && is_printed("sketches\\plan.sketch.legend")) << out;
    EXPECT_FALSE(is_printed("bridge.txt")) << out;
    std::filesystem::remove(native("n") / "copy/notes/quarry.txt");
    EXPECT_EQ(1, command("verify " + target + bundle));
    EXPECT_TRUE(is_printed("missing: item Quarry: ")) << out;
    EXPECT_EQ(0, command("verify " + target)) << out;
}

// Its own copies would be real.
TEST_F(bundle_option, a_bundle_that_copies_by_itself_has_no_dry_run) {
    EXPECT_EQ(2, command("resave --dry-run " + project + target + bundle));
    EXPECT_TRUE(is_told("copies files by itself")) << err;
    EXPECT_EQ(1, command("resave --dry-run " + project + target)) << err; // the bundle's type is unknown
    EXPECT_FALSE(path_exists(u"N:\\copy"));
}

} // namespace
} // namespace vs::project_resave
