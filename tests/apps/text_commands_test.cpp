// vestra-resave structure, scenes and check-case: exit status, refusals, and the files written.
#include <nlohmann/json.hpp>
#include <regex>

#include "apps/vestra_resave/words.h"
#include "tests/apps/command_run.h"

namespace vs::project_resave {
namespace {

using nlohmann::json;
using std::string;

class text_commands : public command_run {
protected:
    text_commands() {
        write(u"C:\\data\\r.tif");
        write(u"C:\\data\\r.tif.qml");
        builder.scene_2d(u"A").layer("rtr_lr2d", u"R", u"C:\\data\\r.tif").scene_2d(u"A").save(source);
        builder.clear();
        builder.scene_2d(u"A").layer("rtr_lr2d", u"R", u"C:\\Data\\r.tif").save(src(u"case._vp"));
        builder.clear();
        builder.scene_2d(u"A").layer("vs_scene_layer_meta_id", u"Map", write(src(u"torn._sn"), "x"));
        builder.save(src(u"torn._vp"));
    }
};

TEST_F(text_commands, write_what_is_asked_for_or_say_why_not) {
    const string written = "written: N:\\out\\t.txt\n", found = "differences found: N:\\out\\t.txt\n";
    const string structure = "structure 'C:\\prj\\area._vp' ", files = "scenes 'C:\\prj\\area._vp' ",
                 check = "check-case 'C:\\prj\\area._vp' ", differs = "check-case 'C:\\prj\\case._vp' ",
                 text = "'N:\\out\\t.txt' ", folder = "'N:\\out' ",
                 two = "N:\\out\\A._sn\nN:\\out\\A(1)._sn\nwritten: N:\\out, 2 files\n",
                 head = "Project area._vp\r\n";
    const struct {
        string arguments;
        int code;
        string err, out, made; // `err` is part of the output
        string text = {};      // the beginning of the file
    } rows[] = {
        {structure + text, 0, "", written, " t.txt", head + "\tScenes 2D:\r\n\t\tA\r\n\t\tA\r\n"},
        {structure + text + "--layers --paths --indent none", 0, "", written, " t.txt",
         head + "Scenes 2D:\r\nA\r\nR C:\\data\\r.tif\r\n"},
        {structure + text + "--layers --indent space", 0, "", written, " t.txt",
         head + " Scenes 2D:\r\n  A\r\n   R\r\n"},
        {structure + text + "--indent 4-spaces", 0, "", written, " t.txt",
         head + "    Scenes 2D:\r\n        A\r\n"},
        {differs + text, 1, "", found, " t.txt", "C:\\Data\\r.tif\r\nC:\\data\\r.tif\r\n\r\n"},
        {structure + text + "--quiet", 0, "", "", " t.txt"},
        {"structure 'C:\\prj\\torn._vp' " + text, 1,
         "torn._sn: could not be read: line 1: ", "written with problems: N:\\out\\t.txt\n", " t.txt"},
        {"structure 'C:\\none._vp' " + text, 2, "C:\\none._vp", "", ""},
        {structure + "'c:/prj/AREA._vp'", 2, "is the project itself and must not be overwritten", "", ""},
        {structure + "'C:\\data\\r.tif.qml'", 2, "is a file of the project and must not be overwritten", "",
         ""},
        {structure + folder, 2, "N:\\out: is a folder", "", ""},
        {structure + "'N:\\none\\t.txt'", 3, "N:\\none\\t.txt: could not be created: ", "", ""},
        {structure + "'N:\\out\\" + string(300, 'x') + "'", 3, ": could not be created: ", "", ""},
        {files + folder, 0, "", two, " A(1)._sn A._sn"},
        {files + folder + "--if-exists rewrite", 0, "N:\\out\\A._sn: replaced an existing file",
         "N:\\out\\A._sn\nwritten: N:\\out, 1 files\n", " A._sn"},
        {files + folder + "--list", 0, "", "A -> N:\\out\\A._sn\nA -> N:\\out\\A(1)._sn\n", ""},
        {files + "--list", 0, "", "A -> A._sn\nA -> A(1)._sn\n", ""},
        {files + folder + "--if-exists ask", 2, "ask", "", ""},
        {"scenes 'C:\\none._vp' " + folder, 2, "C:\\none._vp", "", ""},
        {files + "'N:\\none'", 3, "N:\\none: could not be made the current folder: ", "", ""},
        {files + "'C:\\data\\r.tif'", 3, "C:\\data\\r.tif: could not be made the current folder: ", "", ""},
        {check + text, 0, "", written, " t.txt"},
        {differs + text + "--quiet", 1, "", "", " t.txt"},
        {"check-case 'C:\\none._vp' " + text, 2, "C:\\none._vp", "", ""},
        {differs + "'C:\\prj\\case._vp'", 2, "is the project itself and must not be overwritten", "", ""},
        {check + folder, 2, "N:\\out: is a folder", "", ""},
    };
    const tree_state before = sources();
    for (const auto& row : rows) {
        SCOPED_TRACE(row.arguments);
        remove_tree(u"N:\\out");
        std::filesystem::create_directories(native("n") / "out");
        EXPECT_EQ(row.code, command(row.arguments)) << err;
        EXPECT_TRUE(is_told(row.err)) << err;
        EXPECT_EQ(shown(row.out), out);
        EXPECT_EQ(row.made, made());
        EXPECT_EQ(row.text, read(u"N:\\out\\t.txt").substr(0, row.text.size()));
        EXPECT_TRUE(err.empty() || !row.arguments.ends_with("--quiet")) << err;
    }
    EXPECT_EQ("", difference(before, sources()));
}

TEST_F(text_commands, print_the_same_to_the_standard_output_whole_or_not_at_all) {
    const tree_state before = all_drives();
    EXPECT_EQ(0, command("structure 'C:\\prj\\area._vp' - --layers --paths --indent none --quiet"));
    EXPECT_TRUE(out.starts_with("Project area._vp\nScenes 2D:\nA\nR C:\\data\\r.tif\n")) << out;
    EXPECT_EQ(0, command("structure 'C:\\prj\\area._vp' - --layers --paths --indent none --json"));
    EXPECT_TRUE(json::parse(out).at("text").get<string>().starts_with("Project area._vp\nScenes 2D:\nA\nR "));
    EXPECT_EQ(1, command("check-case 'C:\\prj\\case._vp' - --quiet"));
    EXPECT_EQ("C:\\Data\\r.tif\n" + shown("C:\\data\\r.tif\n\n"), out);
    EXPECT_EQ(2, command("structure 'C:\\none._vp' -"));
    EXPECT_EQ("", out);
    EXPECT_EQ("", difference(before, all_drives()));
}

// Adds each path of the object that has no native form next to it.
void find_lonely_paths(const json& all, std::set<string>& lonely) {
    for (const auto& [key, value] : all.items()) {
        if (value.is_structured()) find_lonely_paths(value, lonely);
        const bool is_path = value.is_string() && value.get<string>().substr(0, 12).find(":\\") == 1;
        const bool is_native = key.find("native_") != string::npos; // on Windows both forms are the same
        if (!is_path || is_native || key == "stored" || key == "text" || key == "caption") continue;
        const string native = (key == "new_path" ? "new_native_path" : "native_" + key);
        if (all.value(native, "") != platform::native_text(platform::from_utf8(value.get<string>())))
            lonely.insert(key);
    }
}

TEST_F(text_commands, every_command_says_in_one_form_what_is_wrong_and_where) {
    builder.clear();
    builder.scene_2d(u"S")
        .layer("rtr_lr2d", u"Lost", u"C:\\gone.tif")
        .layer("rtr_lr2d", u"R", u"C:\\data\\r.tif");
    builder.layer("vs_scene_layer_meta_id", u"Map", src(u"torn._sn")).save(src(u"poor._vp"));
    const std::pair<string, string> commands[] = {
        {"list ", ""},
        {"verify ", ""},
        {"structure ", " 'N:\\out\\t.txt'"},
        {"structure ", " -"},
        {"check-case ", " 'N:\\out\\c.txt'"},
        {"scenes ", " 'N:\\out'"},
        {"scenes ", " --list"},
        {"resave ", " 'N:\\out\\p._vp' --structure folder-per-scene"},
        {"resave ", " 'N:\\out\\q._vp' --dry-run"},
        {"panel --open ", ""}};
    const string wrong[] = {"'C:\\none._vp'", "'C:\\a\nb\033[m'", "'C:\\prj\\poor._vp' --bogus",
                            "'C:\\data\\r.tif'"};
    std::filesystem::create_directories(native("n") / "out");
    std::set<string> lonely;
    for (const auto& [name, rest] : commands) {
        const string options = rest + " --quiet" + (name.starts_with("panel") ? "" : " --json");
        for (const string& project : wrong) {
            SCOPED_TRACE(name + project + rest);
            EXPECT_EQ(2, command(name + project + options));
            string lines = err;
            if (const size_t help = lines.find("Run with --help for more information.\n");
                help != string::npos)
                lines.resize(help);
            EXPECT_EQ(1, std::ranges::count(lines, '\n')) << err;
            EXPECT_TRUE(lines.starts_with("vestra-resave: ") && lines.find('\033') == string::npos) << err;
            EXPECT_TRUE(project.ends_with("bogus") || is_told(project.substr(1, 4))) << err;
            if (out.empty()) continue; // the window has no JSON
            EXPECT_EQ("refused", json::parse(out).at("outcome"));
            find_lonely_paths(json::parse(out), lonely);
        }
        if (name.starts_with("panel")) continue;
        EXPECT_GE(1, command(name + "'C:\\prj\\poor._vp'" + options)) << err;
        const bool is_finding = name == "verify "; // its findings are its result
        EXPECT_EQ(is_finding || json::parse(out).at("problems").empty(), err.empty()) << err;
        EXPECT_TRUE(err.empty() || err.starts_with("vestra-resave: " + shown("C:\\"))) << err;
        find_lonely_paths(json::parse(out), lonely);
    }
    EXPECT_EQ(std::set<string>(), lonely);
    EXPECT_EQ(0, command("--version"));
    ASSERT_TRUE(out.starts_with("vestra-resave ") && out.ends_with("\n")) << out;
    const string version = " VERSION " + out.substr(14, out.size() - 15) + " ";
    EXPECT_NE(string::npos, committed("CMakeLists.txt").find(version)) << out;
}

// Returns the first word of Latin letters, ignoring paths, options, texts of the test project, and names that
// are the same in all languages.
string english_in(const string& text) {
    static const std::regex names(
        "[A-Z]:\\\\\\S*|/"
        "\\S*|\\S+\\._sn|--?[a-z][a-z-]*|[0-9a-f-]{36}|vestra-resave|[a-z_]+_lr2d|\\[[^\\]]*\\]|<[a-z_]+>|"
        "(2D|3D|DBF|OAT) "
        "(scenes|tables)|Layouts|\\b(DBF|OAT|Windows|UTF|uuid|folder-per-scene|on|off|Enter|OK)\\b");
    static const std::regex word("[A-Za-z]{2,}");
    const string rest = std::regex_replace(text, names, "");
    std::smatch found;
    return std::regex_search(rest, found, word) ? found.str() : "";
}

TEST(words, are_all_in_russian_with_the_same_parts) {
    std::set<std::string_view> known;
    for (const auto& [english, russian] : vestra::command::all_texts) {
        EXPECT_EQ("", english_in(string(russian))) << russian;
        EXPECT_TRUE(known.insert(english).second) << english;
        for (const char* part : {"%1", "%2", "%3", "%4", "%5"})
            EXPECT_EQ(english.find(part) == string::npos, russian.find(part) == string::npos) << english;
    }
}

TEST_F(text_commands, speak_russian_throughout_if_asked_to) {
    builder.clear();
    builder.scene_2d(u"Лист")
        .layer("rtr_lr2d", u"Нет", u"C:\\gone.tif")
        .layer("rtr_lr2d", u"Р", u"C:\\Data\\r.tif");
    builder.layer("wfs_pnt_lr2d", u"Точки", u"C:\\prj\\t.dbf").layer("rtr_lr2d", u"Р", u"C:\\data\\r.tif");
    builder.table(u"Т", write(u"C:\\prj\\t.dbf")).layout(u"Макет").frame(u"Рамка", u"Лист").save(source);
    builder.layer("rtr_lr2d", u"Диск", u"Q:\\r.tif").save(src(u"q._vp"));
    write(u"C:\\data\\r.doc");
    std::filesystem::create_directories(native("n") / "out");
    const string project = " 'C:\\prj\\area._vp' ", resave = "resave" + project + "'N:\\out\\n._vp' ";
    const std::pair<string, int> rows[] = {{"list" + project, 0},
                                           {"verify" + project, 1},
                                           {"structure" + project + "'N:\\out\\t.txt'", 0},
                                           {"check-case" + project + "'N:\\out\\t.txt'", 1},
                                           {"scenes" + project + "'N:\\out'", 0},
                                           {"scenes" + project + "--list", 0},
                                           {resave + "--dry-run", 1},
                                           {resave + "--files --structure folder-per-scene", 1},
                                           {resave, 2},
                                           {resave + "--overwrite --only p --deselect Р --deselect Й", 2},
                                           {"resave 'C:\\prj\\q._vp' 'N:\\out\\m._vp'", 2},
                                           {"resave" + project + project, 2},
                                           {"structure 'C:\\none._vp' -", 2},
                                           {"structure" + project + "'N:\\out'", 2}};
    for (const auto& [arguments, code] : rows) {
        EXPECT_EQ(code, command(arguments + " --language ru")) << arguments << err;
        EXPECT_EQ("", english_in(out + err)) << arguments << '\n' << out << err;
    }
    EXPECT_EQ(0, session("panel" + project + "--language ru", "show scn2d\n"));
    for (const char* part : {"docker", "outline", "(invalid)", "(shown)", "(disabled)"})
        EXPECT_EQ(string::npos, out.find(part)) << out;
    // Its folders by type are in that language too.
    EXPECT_EQ(1, command(resave + "--overwrite --language ru --deselect Точки")) << err;
    for (const string language : {"ru", "en"}) {
        remove_tree(u"N:\\out");
        builder.clear();
        builder.scene_2d(u"S").layer("graph_lr2d", u"G", write(u"C:\\data\\g.grf")).save(source);
        EXPECT_EQ(0, command(resave + "--language " + language)) << err;
        EXPECT_EQ(language == "ru" ? " n._vp графика графика/g.grf" : " graphics graphics/g.grf n._vp",
                  made());
    }
}

// What a user would lose if a text, a report or a scene file replaced a file of the project.
TEST_F(command_run, no_file_of_the_project_is_written_over_under_whatever_name) {
    copy_sample();
    namespace fs = std::filesystem;
    fs::create_directories(native("c") / "link");
    fs::create_hard_link(native("c") / "prj/rasters/relief.tif", native("c") / "link/hard.txt");
    fs::create_hard_link(native("c") / "prj/area._vp", native("c") / "link/hard._vp");
    std::error_code no_links; // not every operating system supports symbolic links
    fs::create_symlink(native("c") / "prj/area._vp", native("c") / "link/soft._vp", no_links);
    fs::create_directory_symlink(native("c"), native("n") / "link", no_links);
    const string linked = no_links ? "C:" : "N:\\link", soft = no_links ? "hard._vp'" : "soft._vp'";
    const tree_state before = sources();
    for (const string& same :
         {string("C:\\prj\\area._vp' --language en"), string("c:/data/../PRJ\\AREA._vp'"),
          string("C:\\link\\hard._vp'"), "C:\\link\\" + soft, linked + "\\prj\\area._vp'"}) {
        EXPECT_EQ(2, command("resave 'C:\\prj\\area._vp' '" + same)) << same;
        EXPECT_EQ("vestra-resave: " + platform::to_utf8(load_string(527)) + "\n", err);
    }
    const string written = "written: N:\\out\\t.txt\n", found = "differences found: N:\\out\\t.txt\n";
    const string structure = "structure 'C:\\prj\\area._vp' '", check = "check-case 'C:\\prj\\area._vp' '";
    for (const string& refused :
         {structure + "C:\\prj\\rasters\\relief.tif", check + "c:/data/../PRJ/Rasters/RELIEF.tif",
          structure + "C:\\prj\\rasters\\relief.tfw", check + "C:\\prj\\maps\\roads_shp.pj4",
          structure + "C:\\data\\grids\\porosity\\hdr.adf", structure + "C:\\data\\tables\\deposits.dbf",
          check + "D:\\gis\\tables\\labs.dbf", structure + "D:\\gis\\tables\\labs.cpg",
          structure + "C:\\prj\\reports\\monthly.rep", structure + "C:\\prj\\model\\map_base.tos",
          structure + "C:\\prj\\maps\\overview._sn", check + "C:\\link\\hard.txt",
          structure + linked + "\\data\\grids\\porosity\\hdr.adf"}) {
        EXPECT_EQ(2, command(refused + "'")) << refused << err;
        EXPECT_TRUE(is_told("is a file of the project and must not be overwritten")) << refused << err;
    }
    EXPECT_EQ(3, command("scenes 'C:\\prj\\area._vp' 'C:\\prj\\maps' --if-exists rewrite"));
    EXPECT_TRUE(is_told("verview._sn: could not be written: it belongs to the source project")) << err;
    EXPECT_EQ(
        "new: c:/prj/maps/Empty scene._sn\nnew: c:/prj/maps/Geology._sn\nnew: c:/prj/maps/Section 1._sn\n",
        difference(before, sources()));
    for (const wide_string made : {u"Empty scene._sn", u"Geology._sn", u"Section 1._sn"})
        remove_tree(u"C:\\prj\\maps\\" + made);

    EXPECT_EQ(0, command(structure + "C:\\data\\free.txt'")) << err;
    EXPECT_EQ(0, command("scenes 'C:\\prj\\area._vp' 'C:\\prj\\maps' --if-exists new-name")) << err;
    EXPECT_TRUE(out.starts_with(shown("C:\\prj\\maps\\Overview(1)._sn\nC:\\prj\\maps\\Geology._sn\n")))
        << out;
}

} // namespace
} // namespace vs::project_resave
