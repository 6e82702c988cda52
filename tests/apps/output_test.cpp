// What a person would lose if a text, a report or a scene file went over a file of the project.
#include "framework/strings.h"
#include "tests/apps/command_run.h"

namespace vs::project_resave {
namespace {

using std::string;

TEST_F(command_run, no_file_of_the_project_is_written_over_under_whatever_name) {
    for (const wide_string file :
         {u"r.tif", u"r.tfw", u"g\\a.val", u"t.dbf", u"j.dbf", u"odd.txt", u"free.txt"})
        write(u"C:\\data\\" + file, platform::to_utf8(file));
    vestra::scene map(vestra::dimension::flat);
    map.make_layer("rtr_lr2d").file = write(u"C:\\data\\inner.tif", "inner");
    write(u"C:\\maps\\A._sn");
    ASSERT_FALSE(vestra::files::write_scene(u"C:\\maps\\A._sn", map));
    project_builder()
        .scene_2d(u"A")
        .layer("rtr_lr2d", u"R", u"C:\\data\\r.tif")
        .layer("grid_lr2d", u"G", u"C:\\data\\g")
        .layer("of_no_known_type", u"O", u"C:\\data\\odd.txt")
        .layer("vs_scene_layer_meta_id", u"M", u"C:\\maps\\A._sn")
        .scene_2d(u"B")
        .table(u"T", u"C:\\data\\t.dbf")
        .join(u"C:\\data\\j.dbf")
        .save(source);
    namespace fs = std::filesystem;
    fs::create_directories(native("c") / "link");
    fs::create_hard_link(native("c") / "data/r.tif", native("c") / "link/hard.txt");
    fs::create_hard_link(native("c") / "prj/area._vp", native("c") / "link/hard._vp");
    std::error_code no_links; // by name, which not every system offers
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
    const string structure = "structure 'C:\\prj\\area._vp' '", check = "check-case 'C:\\prj\\area._vp' '";
    for (const string& refused :
         {structure + "C:\\data\\r.tif", check + "c:/prj/../DATA/R.TIF", structure + "C:\\data\\r.tfw",
          structure + "C:\\data\\g\\a.val", structure + "C:\\data\\t.dbf", check + "C:\\data\\j.dbf",
          structure + "C:\\data\\odd.txt", structure + "C:\\data\\inner.tif", structure + "C:\\maps\\A._sn",
          check + "C:\\link\\hard.txt", structure + linked + "\\data\\g\\a.val"}) {
        EXPECT_EQ(2, command(refused + "'")) << refused << err;
        EXPECT_TRUE(is_told("a file of the project cannot be written over")) << refused << err;
    }
    EXPECT_EQ(2, command("scenes 'C:\\prj\\area._vp' 'C:\\maps' --if-exists rewrite"));
    EXPECT_TRUE(is_told("C:\\maps\\A._sn: a file of the project cannot be written over")) << err;
    EXPECT_EQ("", difference(before, sources()));

    EXPECT_EQ(0, command(structure + "C:\\data\\free.txt'")) << err;
    EXPECT_EQ(0, command("scenes 'C:\\prj\\area._vp' 'C:\\maps' --if-exists new-name")) << err;
    EXPECT_EQ("C:\\maps\\A(1)._sn\nC:\\maps\\B._sn\n", out);
}

} // namespace
} // namespace vs::project_resave
