// vestra-resave verify, and resave --verify: whether a project can be moved with everything it needs; the
// command line with a bundle; and the panel sessions of the documents.
#include <nlohmann/json.hpp>
#include <regex>
#include <sstream>

#include "reference_host/datasets/gdal_source.h"
#include "tests/apps/command_run.h"

namespace vs::project_resave {
namespace {

using nlohmann::json;
using std::string;

using verify_command = command_run;

// A reference in every place that can hold one; most of them are broken.
TEST_F(verify_command, reports_every_broken_reference_and_its_element) {
    std::filesystem::copy(VS_SOURCE_DIR "/tests/apps/astray/c", native("c"),
                          std::filesystem::copy_options::recursive);
    EXPECT_EQ(1, command("verify 'C:\\prj\\area._vp'")) << err;
    const string lines = shown(committed("tests/apps/astray/told.txt"));
    EXPECT_EQ(std::regex_replace(lines, std::regex("/prj/\\.\\./"), "/"), out);
    EXPECT_EQ(1, command("verify 'C:\\prj\\area._vp' --json")) << err;
    const auto told = json::parse(out);
    EXPECT_EQ("does not stand alone", told.at("outcome"));
    EXPECT_EQ(22U, told.at("astray").size());
    EXPECT_EQ(told.at("problems"), told.at("astray"));
    const json map{{"kind", "reference_outside"}, {"holder", "layer"}, {"file", "C:\\prj\\area._vp"}};
    for (const auto& [key, value] : map.items()) EXPECT_EQ(value, told.at("astray").at(10).at(key));
    const json& element = told.at("astray").at(10).at("element");
    EXPECT_TRUE(element.at("caption") == "Map outside" && element.at("uuid").get<string>().size() == 36 &&
                element.at("list") == "S3")
        << element;
}

TEST_F(verify_command, ends_with_0_only_for_a_project_that_can_be_moved) {
    project_builder().scene_2d(u"S").layer("rtr_lr2d", u"R", write(u"C:\\prj\\r.tif")).save(source);
    const tree_state before = state_of(native("c"));
    EXPECT_EQ(0, command("verify 'C:\\prj\\area._vp'"));
    EXPECT_EQ(shown("self-contained: C:\\prj\\area._vp, 1 references, 0 broken\n"), out);
    std::filesystem::rename(native("c") / "prj", native("c") / "moved");
    EXPECT_EQ(0, command("verify 'C:\\moved\\area._vp' --json"));
    std::filesystem::remove(native("c") / "moved/r.tif");
    EXPECT_EQ(1, command("verify 'C:\\moved\\area._vp' --quiet"));
    EXPECT_EQ(2, command("verify 'C:\\prj\\area._vp'"));
    EXPECT_TRUE(is_told("C:\\prj\\area._vp: could not be loaded: there is no such file")) << err;
    EXPECT_EQ(2, command("verify"));
    EXPECT_EQ(1U, state_of(native("c") / "moved").size());
}

// The manifest also has files that nothing refers to. A file that exists at the current path can be missing
// after a move.
TEST_F(verify_command, knows_what_is_changed_and_what_is_bound_to_its_place) {
    write(u"C:\\prj\\r.tfw", "left behind by the rules of no run");
    write(u"C:\\prj\\r.tif.aux.xml", "left behind by those of each");
    builder.scene_2d(u"S").layer("rtr_lr2d", u"R", write(u"C:\\prj\\r.tif")).save(source);
    ASSERT_EQ(0, command("resave 'C:\\prj\\area._vp' 'N:\\out\\new._vp' --manifest --lowercase")) << err;
    const string verify = "verify 'N:\\out\\new._vp' --manifest";
    EXPECT_EQ(0, command(verify)) << out << err;
    const struct {
        const char16_t* file;
        const char* text; // null to remove it
        const char* told;
    } rows[] = {{u"N:\\out\\rtr\\r.tfw", nullptr, "is in the manifest but does not exist"},
                {u"N:\\out\\rtr\\r.tfw", "LEFT behind by the rules of no run", "differs in content from"},
                {u"N:\\out\\rtr\\r.tif.aux.xml", "", "differs in size from the manifest"},
                {u"N:\\out\\rtr\\r.tif", "", "empty: layer R: N:\\out\\rtr\\r.tif"}};
    for (const auto& [file, text, told] : rows) {
        const string before = read(file);
        std::filesystem::remove(platform::native_path(file));
        if (text) write(file, text);
        EXPECT_EQ(1, command(verify));
        EXPECT_TRUE(is_printed(told) && is_printed(platform::to_utf8(file))) << out;
        write(file, before);
    }
    const string project = read(u"N:\\out\\new._vp"), stored = "rtr\\r.tif";
    for (const string bound : {"N:\\out\\rtr\\r.tif", "..\\out\\rtr\\r.tif"}) {
        write(u"N:\\out\\new._vp", string(project).replace(project.find(stored), stored.size(), bound));
        EXPECT_EQ(0, command("verify 'N:\\out\\new._vp'")) << out;
        EXPECT_EQ(1, command("verify 'N:\\out\\new._vp' --elsewhere"));
        EXPECT_TRUE(is_printed("outside: layer R: N:\\out\\rtr\\r.tif: it would not be found")) << out;
    }
    // Files that data sets refer to.
    write(u"C:\\prj\\m.tos", "TOS 1\nproperty X\nmember .tod\n");
    const string picture = "<SourceFilename relativeToVRT=\"1\">";
    write(u"C:\\prj\\v.vrt", "<VRTDataset>" + picture + "../out.tif</SourceFilename>" + picture +
                                 "gone.tif</SourceFilename></VRTDataset>");
    write(u"C:\\out.tif");
    builder.layer("tos_grid_lr2d", u"M", src(u"m.tos")).layer("rtr_lr2d", u"V", src(u"v.vrt")).save(source);
    EXPECT_EQ(1, command("verify 'C:\\prj\\area._vp'"));
    for (const char* told : {"missing: layer M: C:\\prj\\m.tod, in C:\\prj\\m.tos\n",
                             "missing: layer V: C:\\prj\\gone.tif, in C:\\prj\\v.vrt\n",
                             "outside: layer V: C:\\out.tif, in C:\\prj\\v.vrt\n"})
        EXPECT_TRUE(is_printed(told)) << told << out;

    std::filesystem::remove(native("n") / "out/new.manifest.json");
    EXPECT_EQ(2, command(verify));
    EXPECT_TRUE(is_told("N:\\out\\new.manifest.json: could not be read: ")) << err;
}

// The messages of the run appear after the file was copied.
TEST_F(verify_command, of_a_resave_reports_a_copy_that_differs_from_its_source) {
    const wide_string messages = platform::drive_path(file_of("err").string());
    project_builder().scene_2d(u"S").layer("rtr_lr2d", u"Messages", messages).save(source);
    EXPECT_EQ(1, command("resave 'C:\\prj\\area._vp' 'N:\\out\\new._vp' --verify --json"));
    EXPECT_TRUE(is_told("its copy N:\\out\\rtr\\err has a different size")) << err;
    const auto told = json::parse(out);
    EXPECT_EQ("copy_size_differs", told.at("differing").at(0).at("kind"));
    // Not a layer file, although it is named like one.
    project_builder().scene_2d(u"S").layer("rtr_lr2d", u"Rocks", write(u"C:\\prj\\Rocks._lr")).save(source);
    EXPECT_EQ(
        1, command("resave 'C:\\prj\\area._vp' 'N:\\out\\b._vp' --structure from-project-folder --verify"));
    EXPECT_TRUE(is_told("vestra-resave: N:\\out\\Rocks._lr: could not be read: line 1: ")) << err;
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

TEST_F(bundle_option, items_of_a_bundle_are_listed_left_out_copied_and_verified) {
    ASSERT_EQ(0, command("list " + project + bundle)) << err;
    EXPECT_TRUE(is_printed("Field notes\n    Quarry  [field_notes]")) << out;
    for (const char* const file : {"\n      quarry.csv  ", "\n      pictures  "})
        EXPECT_TRUE(is_printed(file)) << out;
    EXPECT_FALSE(is_printed("\n      quarry.txt  ")) << "twice: " << out;
    ASSERT_EQ(0, command("list " + project)) << err;
    EXPECT_FALSE(is_printed("Quarry")) << out;

    ASSERT_EQ(0, command("resave --files --verify --deselect bridge " + project + target + bundle)) << err;
    EXPECT_TRUE(is_printed("quarry.txt") && is_printed("plan.sketch.legend")) << out;
    EXPECT_FALSE(is_printed("bridge.txt")) << out;
    std::filesystem::rename(native("n") / "copy", native("n") / "moved");
    const std::string moved = "verify 'N:\\moved\\survey._vp'";
    EXPECT_EQ(0, command(moved + bundle)) << out;
    std::filesystem::remove(native("n") / "moved/notes/quarry.txt");
    EXPECT_EQ(1, command(moved + bundle));
    EXPECT_TRUE(is_printed("missing: item Quarry: ")) << out;
    EXPECT_EQ(0, command(moved)) << out;
    std::filesystem::remove(native("n") / "moved/sketches/plan.sketch");
    EXPECT_EQ(1, command(moved + bundle));
    EXPECT_TRUE(is_printed("missing: file ")) << out;
}

TEST_F(bundle_option, a_file_that_is_no_bundle_is_refused_with_the_reason) {
    for (const auto& [file, reason] :
         std::map<string, string>{{"C:\\none.so", "no such file"},
                                  {"C:\\survey", "is a folder"},
                                  {"C:\\survey\\survey._vp", "not a library for this operating system"}}) {
        EXPECT_EQ(2, command("list " + project + " --language en --bundle '" + file + "'"));
        EXPECT_TRUE(is_told("vestra-resave: " + file + ": could not be loaded: " + reason + "\n")) << err;
    }
}

// A dry run cannot simulate copies that a bundle makes itself.
TEST_F(bundle_option, a_bundle_that_copies_by_itself_has_no_dry_run) {
    EXPECT_EQ(2, command("resave --dry-run " + project + target + bundle));
    EXPECT_TRUE(is_told("copies its own files")) << err;
    EXPECT_EQ(1, command("resave --dry-run " + project + target)) << err; // the bundle's type is unknown
    EXPECT_FALSE(path_exists(u"N:\\copy"));
}

class panel_session : public command_run {
protected:
    panel_session() { copy_sample(); }

    int panel(const std::string& arguments, const std::string& lines) {
        return session("panel " + arguments, lines);
    }
    const std::string project = "'C:\\prj\\area._vp'", no_project = VS_SOURCE_DIR "/samples/area/README.md";
};

// Each session of a page is in a block of text. The one in docs/panel.md begins with the first print of the
// window.
TEST_F(panel_session, each_session_of_a_page_is_what_the_program_prints) {
    const auto relief = platform::native_path(u"C:\\prj\\rasters\\relief.tif");
    const bool has_whole_sets = vestra::datasets::open_gdal_source(relief) != nullptr;
    std::filesystem::copy(VS_SOURCE_DIR "/tests/apps/sessions/maps", native("c") / "maps");
    const struct {
        const char* page;
        std::string project;
        int code; // 1 if some command is refused
    } rows[] = {{"docs/panel.md", project, 1},
                {"tests/apps/sessions/marks.md", "", 0},
                {"tests/apps/sessions/paths.md", "", 1},
                {"tests/apps/sessions/words.md", "", 1}};
    for (const auto& row : rows) {
        std::istringstream page(committed(row.page));
        std::string line, told, lines;
        for (bool is_told = false; std::getline(page, line);) {
            if (line.starts_with("```"))
                is_told = line == "```text";
            else if (is_told)
                told += line + '\n';
            for (const std::string before : {"> ", "[yes/no] "})
                if (is_told && line.starts_with(before)) lines += line.substr(before.size()) + '\n';
        }
        EXPECT_EQ(row.code, panel(row.project, lines + "no more is read\n")) << row.page;
        if (told.starts_with("> ")) out.erase(0, out.find("\n> ") + 1);
        if (!has_whole_sets) // in which case a set can have fewer files
            for (std::string* text : {&told, &out})
                *text = std::regex_replace(*text, std::regex("[0-9.]+ Kbyte"), "size");
        EXPECT_EQ("", first_difference(told, out)) << row.page;
    }
    EXPECT_NE("", read(u"N:\\copy\\area._vp"));
    EXPECT_NE("", read(u"N:\\area.txt"));
}

TEST_F(panel_session, the_open_project_is_loaded_and_a_failed_start_exits_with_2) {
    EXPECT_EQ(0, panel("--open " + project, "press \"Load current\"")) << out;
    EXPECT_NE(std::string::npos, out.find("  field1: file_input \"Select project\" (source project: "
                                          "Vestra project file (*._vp)|*._vp) C:\\prj\\area._vp\n"));
    EXPECT_EQ(2, panel(no_project, "quit"));
    EXPECT_EQ(2, panel("--open " + no_project, "quit"));
    EXPECT_EQ(2, panel("--bundle " + no_project, "quit"));
    EXPECT_NE(std::string::npos, out.find("README.md: could not be loaded: ")) << out;
}

} // namespace
} // namespace vs::project_resave
