// vestra-resave resave: requests, output, and the files on the disk.
#include <nlohmann/json.hpp>

#include "tests/apps/command_run.h"

namespace vs::project_resave {
namespace {

namespace fs = std::filesystem;

using nlohmann::json;
using std::string;

const string to = " 'N:\\out\\new._vp' ", area = "resave 'C:\\prj\\area._vp'" + to;

class resave_command : public command_run {
protected:
    // Two scenes and a table; a layout shows the second scene.
    resave_command() {
        for (const wide_string name :
             {u"Roads.shp", u"Roads.shx", u"Roads.dbf", u"r.tif", u"r.tfw", u"t.dbf"})
            write(u"C:\\prj\\data\\" + name, platform::to_utf8(name));
        builder.scene_2d(u"Area").layer("shp_pln_lr2d", u"Roads", u"C:\\prj\\data\\Roads.shp");
        builder.layer("rtr_lr2d", u"Relief", u"C:\\prj\\data\\r.tif").scene_2d(u"Other");
        builder.layer("rtr_lr2d", u"relief", u"C:\\prj\\data\\r.tif").table(u"T", u"C:\\prj\\data\\t.dbf");
        builder.layout(u"Sheet").frame(u"Frame", u"Other").save(source);
    }
    // Resaves into a new empty folder.
    int anew(const string& arguments) {
        remove_tree(u"N:\\out");
        fs::create_directories(native("n") / "out");
        return command(arguments);
    }
};

// A path that is not absolute keeps its place under some structures.
TEST_F(resave_command, reports_a_copy_outside_the_new_folder) {
    write(u"D:\\gis\\y.tif");
    write(u"N:\\outer\\y.tif"); // its folder begins like the new one
    builder.scene_2d(u"S").layer("rtr_lr2d", u"Y", u"D:/gis/y.tif");
    builder.layer("rtr_lr2d", u"Z", u"N:/outer/y.tif").save(source);
    for (const string dry : {" --dry-run", ""}) {
        EXPECT_EQ(1, command(area + "--structure from-project-folder" + dry)) << err;
        for (const char* const moved : {"D:\\gis\\y", "N:\\outer\\y"})
            EXPECT_TRUE(is_told(moved + string("_(1).tif: is outside the new project's folder"))) << err;
    }
}

// One file in another folder with the files next to it, and the files at the target.
TEST_F(resave_command, brings_companions_under_the_new_stem_and_over_no_file) {
    const struct {
        const char* options;
        std::vector<wide_string> before; // besides D:\gis\A.tif
        std::vector<wide_string> after;  // with the content of the file of the same extension next to it
        const char* told;                // with exit status 1; null with 0
    } rows[] = {
        {"",
         {u"D:\\gis\\A.Tfw", u"D:\\gis\\A.TIFW", u"D:\\gis\\A.tif.ovr.aux.xml", u"N:\\out\\rtr\\A.tif"},
         {u"N:\\out\\rtr\\A_(1).TIFW", u"N:\\out\\rtr\\A_(1).tif.ovr.aux.xml"},
         nullptr},
        {"--lowercase",
         {u"D:\\gis\\a.PRJ", u"D:\\gis\\A2.prj", u"D:\\gis\\A.field.atx"},
         {u"n:\\out\\rtr\\a.prj", u"n:\\out\\rtr\\a.field.atx"},
         nullptr},
        {"",
         {u"D:\\gis\\A.prj", u"N:\\out\\rtr\\A.prj"},
         {},
         "D:\\gis\\A.prj: could not be copied to N:\\out\\rtr\\A.prj: "},
        {"--companions all", {u"D:\\gis\\A.doc"}, {u"N:\\out\\rtr\\A.doc"}, nullptr},
        {"--companions none", {u"D:\\gis\\A.prj"}, {}, "D:\\gis\\A.prj: was left behind: "},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(err);
        for (const wide_string root : {u"D:\\gis", u"N:\\out"}) remove_tree(root);
        builder.clear();
        builder.scene_2d(u"S").layer("rtr_lr2d", u"A", write(u"D:\\gis\\A.tif", "A.tif")).save(source);
        for (const wide_string& path : row.before) write(path, platform::to_utf8(path));
        const tree_state before = sources();
        EXPECT_EQ(row.told ? 1 : 0, command(area + row.options + " --dry-run")) << err;
        EXPECT_EQ(row.told ? 1 : 0, command(area + row.options + " --verify --files")) << err;
        EXPECT_TRUE(!row.told || is_told(row.told)) << err;
        for (const wide_string& path : row.after) {
            EXPECT_TRUE(read(path).starts_with("D:\\gis\\")) << platform::to_utf8(path) << made();
            EXPECT_TRUE(is_printed(" -> " + platform::to_utf8(path))) << out;
        }
        for (const wide_string& path : row.before)
            EXPECT_EQ(platform::to_utf8(path), read(path)) << "written over";
        EXPECT_TRUE(!row.after.empty() || !path_exists(u"N:\\out\\rtr\\A.prj") || row.told) << made();
        EXPECT_EQ("", difference(before, sources()));
    }
    // Next to a file of the source, it would count as a companion of that file.
    builder.layer("vector_lr2d", u"B", write(u"C:\\prj\\rtr\\A.shp")).save(source);
    write(u"D:\\gis\\A.prj");
    write(u"C:\\prj\\rtr\\A.shx");
    EXPECT_EQ(0, command("resave 'C:\\prj\\area._vp' 'C:\\prj\\new._vp'")) << err;
    EXPECT_TRUE(path_exists(u"C:\\prj\\rtr\\A_(1).prj") && !path_exists(u"C:\\prj\\rtr\\A.prj"));
}

// The project lacks a raster, and so does the scene of a map, and it has a shape file of its own. For a lost
// shape file it does not refer to the table.
TEST_F(resave_command, finds_a_lost_file_only_where_it_is_clearly_the_one) {
    const wide_string lost = u"C:\\old\\maps\\A.tif", shape = u"C:\\old\\S.shp";
    const struct {
        std::vector<std::pair<wide_string, const char*>> files; // below N:\s, with their content
        const char* found;                                      // in the order of their names; "" if none is
        size_t candidates = 0;                                  // one of them is a file that the project has
    } rows[] = {
        {{{u"x\\a.TIF", "1"}, {u"x\\a.tif.ovr", "2"}}, "x\\a.TIF", 1},
        {{{u"x\\a.tif", "1"}, {u"y\\MAPS\\a.tif", "2"}}, "y\\MAPS\\a.tif", 1},
        {{{u"x\\a.tif", "1"}, {u"y\\a.tif", "1"}}, "x\\a.tif", 1},
        {{{u"x\\a.tif", "1"}, {u"y\\a.tif", "2"}}, "", 3},
        {{{u"x\\a.tif", "1"}, {u"x\\a.tfw", "1"}, {u"y\\a.tif", "1"}}, "", 3}, // two places
        {{{u"x\\s.shp", "1"}, {u"x\\s.dbf", "1"}}, "", 2},                     // no index
        {{{u"x\\s.shp", "1"}, {u"x\\s.shx", "1"}, {u"x\\s.dbf", "1"}, {u"y\\s.dbf", "2"}},
         "x\\s.dbf x\\s.shp",
         1},
        {{{u"x\\roads.shp", "1"}, {u"x\\roads.shx", "1"}}, "x\\roads.shp"},
        {{{u"x\\p.shp", "1"}, {u"x\\p.shx", "1"}, {u"x\\p.dbf", "1"}}, "x\\p.shp", 1},
    };
    builder.clear();
    builder.scene_2d(u"M").layer("rtr_lr2d", u"A", lost).save_scene(src(u"m._sn"));
    builder.clear();
    builder.scene_2d(u"S").layer("shp_pln_lr2d", u"Roads", src(u"data\\Roads.shp"));
    builder.layer("vs_scene_layer_meta_id", u"Map", src(u"m._sn")).layer("rtr_lr2d", u"A", lost);
    builder.layer("shp_pln_lr2d", u"S", shape)
        .layer("rtr_lr2d", u"Other", u"C:\\old\\Roads.shp")
        .layer("shp_pln_lr2d", u"P", u"C:\\old\\P.shp")
        .save(source);
    const string table = "<attributes file=\"C:\\old\\P.dbf\" />";
    string project = read(source);
    write(source, project.erase(project.find(table), table.size()));
    const tree_state before = sources();
    for (const auto& row : rows) {
        clear_output();
        remove_tree(u"N:\\s");
        for (const auto& [name, bytes] : row.files) write(u"N:\\s\\" + name, bytes);
        const tree_state searched = state_of(native("n") / "s");
        EXPECT_EQ(1, command(area + "--json --quiet --search 'N:\\s' --search 'C:\\prj\\data'"));
        const json run = json::parse(out);
        std::set<string> found;
        for (const auto& each : run.at("found")) found.insert(each.at("found_at").get<string>().substr(5));
        size_t candidates = 0;
        for (const auto& each : run.at("lost_sources"))
            if (each.contains("candidates")) candidates += each.at("candidates").size();
        string all;
        for (const string& each : found) all += (all.empty() ? "" : " ") + each;
        EXPECT_EQ(row.found, all) << out;
        EXPECT_EQ(row.candidates, candidates) << run.at("lost_sources");
        EXPECT_EQ(string::npos, run.at("left_behind").dump().find(".dbf")) << "a table stayed behind";
        EXPECT_EQ("", difference(before, sources()) + difference(searched, state_of(native("n") / "s")));
    }
    EXPECT_EQ(2, command(area + "--search 'N:\\none'"));
}

TEST_F(resave_command, chooses_elements_by_pattern_type_group_and_loss) {
    builder.clear();
    builder.scene_2d(u"S").layer("rtr_lr2d", u"A", write(u"C:\\m\\a.tif", "x"));
    builder.layer("rtr_lr2d", u"B", write(u"C:\\m\\b.tif", "x"))
        .layer("graph_lr2d", u"C", write(u"C:\\m\\c.dxf", "x"));
    builder.layer("rtr_lr2d", u"Lost", u"C:\\m\\lost.tif").layout(u"Sheet").page(u"Page", u"").save(source);
    const struct {
        string options;
        const char* made;
        int code;
        const char* told = "";
    } rows[] = {
        {"--only '*.tif' --deselect missing", " new._vp rtr rtr/a.tif rtr/b.tif", 0},
        {"--deselect type:RTR_lr2d --deselect Sheet", " graphics graphics/c.dxf new._vp", 0},
        {"--deselect Missing --deselect Sheet --deselect 'c:\\M\\?.TIF'", " graphics graphics/c.dxf new._vp",
         0},
        {"--only a", " new._vp rtr rtr/a.tif", 0},
        {"--only '" + shown("C:\\m\\*.tif") + "' --deselect missing", " new._vp rtr rtr/a.tif rtr/b.tif", 0},
        {"--deselect Page", "", 2, "cannot be left out or kept by itself: page \"Page\""},
        {"--only type:layout_page", "", 2, "cannot be left out or kept by itself: page \"Page\""},
        {"--only type:none", "", 2, "no element matches \"type:none\""},
        {"--deselect '*.t?f' --deselect group:none", "", 2, "no element matches \"group:none\""},
        {"--only missing --deselect S", "", 2, "no elements are left to resave"},
        {"--only missing --deselect missing", "", 2, "no elements are left to resave"},
    };
    for (const auto& row : rows) {
        clear_output();
        EXPECT_EQ(row.code, command(area + "--quiet " + row.options)) << row.options << err;
        EXPECT_EQ(row.made, made()) << row.options;
        EXPECT_TRUE(is_told(row.told)) << err;
    }
    EXPECT_EQ(0, command("list --missing 'C:\\prj\\area._vp'"));
    EXPECT_TRUE(is_printed("Lost") && !is_printed("b.tif") &&
                is_printed("\n7 elements, 3 files, 3 B, 1 missing\n"))
        << out;
}

TEST_F(resave_command, the_exit_status_and_the_error_output_report_the_outcome) {
    builder.clear();
    builder.scene_2d(u"S").layer("rtr_lr2d", u"Lost one", u"C:\\gone.tif");
    builder.layer("wfs_pnt_lr2d", u"Springs", u"https://maps.example.org");
    builder.layer("rtr_lr2d", u"P", write(u"C:\\p.tif")).save(u"C:\\prj\\poor._vp");
    write(u"C:\\p.tfw");
    builder.clear(); // things that do not fit into the host's own message
    builder.scene_2d(u"").layer("rtr_lr2d", u"Nameless", u"C:\\gone.tif").scene_2d(u"S");
    builder.layer("vs_scene_layer_meta_id", u"Map", write(u"C:\\prj\\broken._sn", "x"));
    for (const wide_view caption : {u"One", u"Two"})
        builder.layer("shp_pln_lr2d", caption, src(u"data\\Roads.shp")).join(src(u"data\\t.dbf"));
    builder.save(u"C:\\prj\\mute._vp");
    write(u"C:\\prj\\bad._vp", "<project version=\"1\">\n  <scene/>\n</project>\n");
    write(u"N:\\file", "x");
    project_builder().scene_2d(u"Older").save(u"N:\\Older._vp");
    const string poor = "resave 'C:\\prj\\poor._vp'" + to, a = "resave 'C:\\prj\\area._vp' ";
    const struct {
        string arguments;
        int code;
        std::vector<string> told;
    } rows[] = {
        {area + "--quiet", 0, {}},
        {"resave " + (native("c") / "PRJ/Area._VP").string() + " " + (native("n") / "out/new._vp").string(),
         0,
         {}},
        {poor + "--quiet",
         1,
         {"vestra-resave: C:\\gone.tif: does not exist (\"Lost one\" in \"S\")\n",
          "vestra-resave: C:\\p.tfw: could not be copied to N:\\out\\rtr\\p.tfw: ",
          "vestra-resave: https://maps.example.org: layers of this type are not resaved: wfs_pnt_lr2d "
          "(\"Springs\" in \"S\")\n"}},
        {"resave 'C:\\prj\\mute._vp'" + to,
         1,
         {"C:\\gone.tif: does not exist (\"Nameless\")\n",
          "C:\\prj\\broken._sn: could not be read, so the files it refers to were not copied: line 1: ",
          "C:\\prj\\data\\t.dbf: still joined to the original table (\"One\" in \"S\")\n"}},
        {"bogus", 2, {"no such command: bogus"}},
        {"resave 'C:\\prj\\area._vp'", 2, {"NEW_PROJECT"}},
        {"resave ''" + to, 2, {"PROJECT"}},
        {area + "--deselect nobody", 2, {"nobody"}},
        {area + "--structure sideways", 2, {"sideways"}},
        {area + "--drive E=/no/such/folder", 2, {"\"E=/no/such/folder\""}},
        {"resave 'C:\\prj\\none._vp'" + to, 2, {"C:\\prj\\none._vp"}},
        {"resave 'C:\\prj\\bad._vp'" + to, 2, {"C:\\prj\\bad._vp: could not be loaded: line 2: "}},
        {a + "'N:\\out'", 2, {"N:\\out: is a folder"}},
        {a + "''", 2, {"needs a folder"}},
        {poor.substr(0, poor.size() - to.size()) + " 'C:\\p.tif'", 2, {"C:\\p.tif"}},
        {a + "'N:\\file'", 2, {"N:\\file: exists and is not a project file: "}},
        {a + "'N:\\file' --overwrite", 2, {"N:\\file: exists and is not a project file: "}},
        {a + "'N:/OLDER._vp'", 2, {"N:\\Older._vp: already exists; use --overwrite to replace it"}},
        {a + "'N:/new/'", 2, {"needs a folder and a name"}},
        {a + "N:new._vp", 2, {"vestra-resave: N:new._vp: the new project needs a folder"}},
        {a + "'N:\\file\\new._vp'", 3, {"N:\\file: could not be created: "}},
        {a + "'N:\\out\\" + string(300, 'x') + "' --quiet",
         3,
         {": a file with this name cannot be created: "}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.arguments);
        remove_tree(u"N:\\out");
        write(u"N:\\out\\rtr\\p.tfw", "older"); // no copy replaces it
        const tree_state before = all_drives();
        const int planned = command(row.arguments + " --dry-run --json");
        const json plan = json::parse(out); // also for usage errors
        EXPECT_EQ(plan.at("outcome") == "would be saved", plan.at("problems").empty()) << out;
        EXPECT_TRUE(planned == row.code || row.arguments.size() > 300)
            << err; // only the disk knows its limit
        EXPECT_FALSE(is_told("Project saved")) << err;
        EXPECT_EQ("", difference(before, all_drives()));
        EXPECT_EQ(row.code, command(row.arguments)) << err;
        for (const string& text : row.told) EXPECT_EQ(1U, times(shown(text), err)) << text << "\n" << err;
        EXPECT_TRUE(!row.arguments.ends_with("--quiet") || row.told.empty() == err.empty()) << err;
        EXPECT_EQ(row.code < 2, path_exists(output));
        EXPECT_TRUE(row.code != 2 || out.empty()) << out;
    }
}

// Elements are kept or left out by name; elements that they refer to are added if the user agrees.
TEST_F(resave_command, each_option_shows_in_the_files_on_the_disk) {
    const string sheet = platform::to_utf8(builder.id(u"Sheet")), no = " --add-referenced no";
    string all;
    for (const string& arguments : std::vector<string>{
             "", "--structure from-project-folder", "--structure folder-per-scene",
             "--structure from-common-top", "--structure from-common-top --without-project-file",
             "--lowercase", "--scene-files --layer-files", "--layer-files", "--log",
             "--deselect roads --deselect " + sheet, "--deselect area --deselect t" + no, "--only Roads",
             "--only other --only T", "--only Area --deselect Roads", "--deselect Other --add-referenced yes",
             "--deselect Other" + no, "--deselect Other --add-referenced ask"}) { // there is no one to ask
        // With a folder for each scene the table and the layout are missing.
        EXPECT_EQ(arguments.ends_with("per-scene") ? 1 : 0, anew(area + arguments)) << err;
        all += arguments + ":" + made() + "\n" + outline();
    }
    all.replace(all.find(sheet), sheet.size(), "(uuid of the sheet)");
    EXPECT_EQ("", first_difference(committed("tests/apps/choices.txt"), all));
    const string at = ": layer in ";
    const std::pair<string, std::vector<string>> refused[] = {
        {"--deselect T --deselect nobody", {"\"nobody\""}},
        {"--only T --deselect RELIEF",
         {"\"RELIEF\" matches 2 elements",
          "\"RELIEF\" could be " + platform::to_utf8(builder.id(u"Relief")) + at,
          "\"RELIEF\" could be " + platform::to_utf8(builder.id(u"relief")) + at}}};
    for (const auto& [arguments, candidates] : refused) {
        EXPECT_EQ(2, anew(area + arguments)) << arguments << err;
        EXPECT_EQ("", made());
        for (const string& text : candidates) EXPECT_TRUE(is_told(text)) << text << "\n" << err;
    }
    // The folder of the new project is created and contains the log from its first line on.
    EXPECT_EQ(0, anew("resave 'C:\\prj\\area._vp' 'N:\\out\\a\\b\\new._vp' --log --load-log")) << err;
    EXPECT_TRUE(read(u"N:\\out\\a\\b\\new_log.txt").starts_with("Begin correction select\r\n"));
    EXPECT_TRUE(path_exists(u"C:\\prj\\area_last_resave_open_log.txt"));
}

} // namespace
} // namespace vs::project_resave
