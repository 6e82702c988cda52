// vestra-resave verify, and resave --verify: whether a project can be moved with all it needs; the
// command line with a bundle.
#include <nlohmann/json.hpp>

#include "tests/apps/command_run.h"

namespace vs::project_resave {
namespace {

using nlohmann::json;
using std::string;

using verify_command = command_run;

// A reference in every place that can hold one; most of them lead astray.
TEST_F(verify_command, names_every_reference_that_leads_astray_and_what_holds_it) {
    std::filesystem::copy(VS_SOURCE_DIR "/tests/apps/astray/c", native("c"),
                          std::filesystem::copy_options::recursive);
    EXPECT_EQ(1, command("verify 'C:\\prj\\area._vp'")) << err;
    EXPECT_EQ(committed("tests/apps/astray/told.txt"), out);
    EXPECT_EQ(1, command("verify 'C:\\prj\\area._vp' --json")) << err;
    const auto told = json::parse(out);
    EXPECT_EQ("does not stand alone", told.at("outcome"));
    EXPECT_EQ(21U, told.at("astray").size());
    EXPECT_EQ(told.at("problems"), told.at("astray"));
    const json map{{"kind", "reference_outside"}, {"holder", "layer"}, {"file", "C:\\prj\\area._vp"}};
    for (const auto& [key, value] : map.items()) EXPECT_EQ(value, told.at("astray").at(9).at(key));
    const json& element = told.at("astray").at(9).at("element");
    EXPECT_TRUE(element.at("caption") == "Map outside" && element.at("uuid").get<string>().size() == 36 &&
                element.at("list") == "S3")
        << element;
}

TEST_F(verify_command, ends_with_0_only_for_a_project_that_can_be_moved) {
    project_builder().scene_2d(u"S").layer("rtr_lr2d", u"R", write(u"C:\\prj\\r.tif")).save(source);
    const tree_state before = state_of(native("c"));
    EXPECT_EQ(0, command("verify 'C:\\prj\\area._vp'"));
    EXPECT_EQ("stands alone: C:\\prj\\area._vp, 1 references, 0 astray\n", out);
    std::filesystem::rename(native("c") / "prj", native("c") / "moved");
    EXPECT_EQ(0, command("verify 'C:\\moved\\area._vp' --json"));
    std::filesystem::remove(native("c") / "moved/r.tif");
    EXPECT_EQ(1, command("verify 'C:\\moved\\area._vp' --quiet"));
    EXPECT_EQ(2, command("verify 'C:\\prj\\area._vp'"));
    EXPECT_TRUE(is_told("C:\\prj\\area._vp: could not be loaded: there is no such file")) << err;
    EXPECT_EQ(2, command("verify"));
    EXPECT_EQ(1U, state_of(native("c") / "moved").size());
}

// The run's own messages go on after the file was copied.
TEST_F(verify_command, of_a_resave_tells_of_a_copy_that_is_not_as_its_source) {
    const wide_string messages = platform::drive_path(file_of("err").string());
    project_builder().scene_2d(u"S").layer("rtr_lr2d", u"Messages", messages).save(source);
    EXPECT_EQ(1, command("resave 'C:\\prj\\area._vp' 'N:\\out\\new._vp' --verify --json"));
    EXPECT_TRUE(is_told("its copy N:\\out\\rtr\\err has another size")) << err;
    const auto told = json::parse(out);
    EXPECT_EQ("copy_size_differs", told.at("differing").at(0).at("kind"));
    // No layer file, though it has the name of one.
    project_builder().scene_2d(u"S").layer("rtr_lr2d", u"Rocks", write(u"C:\\prj\\Rocks._lr")).save(source);
    EXPECT_EQ(
        1, command("resave 'C:\\prj\\area._vp' 'N:\\out\\b._vp' --structure from-project-folder --verify"));
    EXPECT_TRUE(is_told("vestra-resave: unreadable: file Rocks._lr: N:\\out\\Rocks._lr: line 1: ")) << err;
    EXPECT_NE(string::npos, out.find("saved with problems: "));
}

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
    std::filesystem::remove(native("n") / "copy/sketches/plan.sketch");
    EXPECT_EQ(1, command("verify " + target + bundle));
    EXPECT_TRUE(is_printed("missing: file ")) << out;
}

// Its own copies would be real.
TEST_F(bundle_option, a_bundle_that_copies_by_itself_has_no_dry_run) {
    EXPECT_EQ(2, command("resave --dry-run " + project + target + bundle));
    EXPECT_TRUE(is_told("copies its own files")) << err;
    EXPECT_EQ(1, command("resave --dry-run " + project + target)) << err; // the bundle's type is unknown
    EXPECT_FALSE(path_exists(u"N:\\copy"));
}

} // namespace
} // namespace vs::project_resave
