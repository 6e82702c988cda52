// Linux only: file systems of a fixed size, permissions of another user, devices and drives that are folders.
// Why a resave could not copy or write a file, as text and as JSON, and what is refused.
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <nlohmann/json.hpp>

#include "tests/apps/command_run.h"

namespace vs::project_resave {
namespace {

namespace fs = std::filesystem;

using nlohmann::json;
using std::string;

class failure_reasons : public command_run {
protected:
    failure_reasons() {
        write(u"C:\\data\\big.tif", string(200'000, 'x'));
        builder.scene_2d(u"Area").layer("rtr_lr2d", u"Relief", u"C:\\data\\big.tif").save(source);
    }
    // Runs it with JSON and with text, and checks the only problem of this kind in both.
    void expect_reason(const string& what, const string& new_path, const string& reason,
                       const string& prefix = {}) {
        const string line =
            "resave 'C:\\prj\\area._vp' 'N:\\out\\new._vp' --overwrite --ignore-space --quiet ";
        for (const string form : {"--json", ""}) {
            const string goes_on = path_exists(u"N:\\out\\new.resave-journal") ? " --resume" : "";
            run("exec " + prefix + line_of(line + form + goes_on).substr(string("exec").size()));
            EXPECT_FALSE(path_exists(u"N:\\out\\rtr\\big.tif")) << "no part of it";
            EXPECT_TRUE(is_told(reason) && is_told(new_path)) << err;
            if (form.empty()) continue;
            std::vector<json> of_kind;
            for (const json all = json::parse(out); const json& each : all.at("problems"))
                if (each.at("kind") == what) of_kind.push_back(each);
            ASSERT_EQ(1U, of_kind.size()) << out;
            const json& found = of_kind.front();
            EXPECT_EQ("Relief", found.at("element").at("caption"));
            EXPECT_EQ("Area", found.at("element").at("list"));
            EXPECT_EQ(platform::to_utf8(builder.id(u"Relief")), found.at("element").at("uuid"));
            EXPECT_EQ("C:\\data\\big.tif", found.at("path"));
            EXPECT_EQ((native("c") / "data/big.tif").string(), found.at("native_path"));
            EXPECT_EQ(new_path, found.at("new_path"));
            EXPECT_EQ(shown(reason), found.at("reason"));
        }
    }

    const string target = "N:\\out\\rtr\\big.tif";
};

TEST_F(failure_reasons, a_taken_name_and_a_folder_that_cannot_be_made) {
    write(u"N:\\out\\rtr", "a file where the folder goes");
    expect_reason("copy_failed", target, "Not a directory (N:\\out\\rtr is in the way)");
}

// Output on standard output is a result, like a file.
TEST_F(failure_reasons, standard_output_that_takes_nothing) {
    const string list = command_line("list 'C:\\prj\\area._vp' --json", {{}, "/dev/full", file_of("err")});
    const string help = command_line("list --help", {{}, "/dev/full", file_of("err")});
    for (const auto& [line, reason] :
         {std::pair(list, "No space left on device"), std::pair(list + " >&-", "Bad file descriptor"),
          std::pair(help, "No space left on device")}) {
        EXPECT_EQ(3, run(line));
        EXPECT_EQ("vestra-resave: standard output could not be written: " + string(reason) + "\n", err);
    }
}

TEST_F(failure_reasons, a_closed_pipe_does_not_end_a_resave) {
    string line = command_line("resave 'C:\\prj\\area._vp' 'N:\\out\\new._vp'", {{}, "nothing", "&1"});
    line.replace(line.find(" > nothing"), string(" > nothing").size(), "");
    run_line(line.substr(string("exec ").size()) + " | true");
    EXPECT_TRUE(path_exists(output));
}

TEST_F(failure_reasons, a_full_disk) {
    const fs::path out_folder = native("n") / "out";
    if (::mount("tmpfs", out_folder.c_str(), "tmpfs", 0, "size=64k") != 0)
        GTEST_SKIP() << "this user may not mount a file system";
    EXPECT_EQ(3, command("resave 'C:\\prj\\area._vp' 'N:\\out\\deep\\new._vp' --quiet"));
    EXPECT_EQ(shown("vestra-resave: N:\\out\\deep: too little space: 200.0 KB needed, 64.0 KB free\n"), err);
    EXPECT_EQ("", made());
    expect_reason("copy_failed", target, "No space left on device");
    fs::remove_all(out_folder / "rtr");
    for (const char* file : {"new._vp", "new.resave-journal"}) fs::remove(out_folder / file);
    builder.clear(); // a block for each small file is more than the disk has
    builder.scene_2d(u"Area");
    for (const wide_view end : {u"1", u"2", u"3"})
        for (const wide_view name : {u"a", u"b", u"c", u"d", u"e", u"f", u"g", u"h"})
            builder.layer("rtr_lr2d", u"R", write(u"C:\\data\\" + wide_string(name) + wide_string(end), "x"));
    builder.save(source);
    for (const string dry : {" --dry-run", ""})
        EXPECT_EQ(3, command("resave 'C:\\prj\\area._vp' 'N:\\out\\new._vp' --quiet" + dry)) << err;
    EXPECT_TRUE(is_told(": too little space: 10") && is_told(", 64.0 KB free\n")) << err;
    EXPECT_LE(1, command("resave 'C:\\prj\\area._vp' 'N:\\out\\new._vp' --quiet --ignore-space"));
    EXPECT_EQ(1U, times("No space left on device", err)) << err; // not once for each file
    EXPECT_TRUE(is_told(" files could not be written (--json lists all)\n")) << err;
    ::umount(out_folder.c_str());
}

TEST_F(failure_reasons, a_file_that_outgrows_the_limit) {
    expect_reason("copy_failed", target, "File too large", "sh -c 'ulimit -f 100; exec \"$@\"' sh ");
}

TEST_F(failure_reasons, a_folder_without_the_right_to_write) {
    const fs::path closed = native("n") / "out" / "rtr";
    fs::create_directories(closed);
    for (fs::path folder = native("n"); folder != fs::temp_directory_path(); folder = folder.parent_path())
        fs::permissions(folder, fs::perms::group_all | fs::perms::others_all, fs::perm_options::add);
    fs::permissions(native("n") / "out", fs::perms::all);
    fs::permissions(closed, fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_exec);
    const string as_another = ::geteuid() == 0 ? "setpriv --reuid=65534 --clear-groups " : "";
    expect_reason("copy_failed", target, "Permission denied", as_another);
    const fs::perms of_owner =
        as_another.empty() ? fs::perms::owner_read | fs::perms::owner_exec : fs::perms::owner_all;
    fs::permissions(native("n") / "out", of_owner | fs::perms::others_read | fs::perms::others_exec);
    run("exec " + as_another +
        line_of("resave 'C:\\prj\\area._vp' 'N:\\out\\new._vp' --overwrite --quiet")
            .substr(string("exec").size()));
    EXPECT_EQ(shown("vestra-resave: N:\\out: cannot be written to: Permission denied\n"), err);
    for (const fs::path& folder : {native("n") / "out", closed})
        fs::permissions(folder, fs::perms::owner_all);
}

// For files that the host reads and writes, path and reason are separate.
TEST_F(failure_reasons, files_that_the_host_could_not_read_or_write) {
    write(u"C:\\data\\bad.tos", "TOS 1\nproperty X\ndata 1,5\n");
    builder.clear();
    builder.scene_2d(u"Area").layer("tos_grid_lr2d", u"Grid", u"C:\\data\\bad.tos");
    vestra::tos_data& table = builder.model.tos_tables.make();
    table.caption = u"Ores";
    table.file = write(u"C:\\data\\poor.tos", "TOS 2\n");
    builder.scene_2d(wide_string(200'000, u's')).save(source);
    const string limit = "sh -c 'trap \"\" XFSZ; ulimit -f 100; exec \"$@\"' sh ";
    run("exec " + limit +
        line_of("resave 'C:\\prj\\area._vp' 'N:\\out\\new._vp' --quiet").substr(string("exec").size()));
    EXPECT_TRUE(
        is_told("C:\\data\\bad.tos: could not be read, so the files it refers to were not copied: line 3: a "
                "value is neither a decimal number nor \"-\" (\"Grid\" in \"Area\")"))
        << err;
    EXPECT_TRUE(is_told("C:\\data\\poor.tos: could not be read") && is_told("(\"Ores\" in ")) << err;
    EXPECT_TRUE(is_told("N:\\out\\new._vp: could not be written: File too large\n")) << err;
}

TEST_F(failure_reasons, drives_that_do_not_exist_are_named_once_before_the_start) {
    builder.layer("rtr_lr2d", u"1", u"e:\\gis\\1.tif").layer("rtr_lr2d", u"2", u"E:\\gis\\2.tif");
    builder.layer("rtr_lr2d", u"3", u"\\\\srv\\maps\\3.tif")
        .layer("rtr_lr2d", u"4", u"C:\\gone.tif")
        .save(source);
    const string resave = "resave 'C:\\prj\\area._vp' 'N:\\out\\new._vp' --quiet ";
    EXPECT_EQ(2, command(resave));
    EXPECT_EQ("vestra-resave: \\\\srv\\maps does not exist, but 1 file of the project is on it\n"
              "vestra-resave: E: does not exist, but 2 files of the project are on it; map it with --drive "
              "E=FOLDER\n"
              "vestra-resave: use --allow-missing-drives to treat these files as lost\n",
              err);
    EXPECT_EQ("", made());
    EXPECT_EQ(1, command(resave + "--deselect 1 --deselect 2 --deselect 3")) << err;
    EXPECT_EQ(1, command(resave + "--allow-missing-drives --overwrite --json"));
    EXPECT_EQ(4U, json::parse(out).at("lost_sources").size()) << out;
}

TEST_F(failure_reasons, of_more_than_twenty_alike_ten_are_printed_and_a_count) {
    for (uint32_t index = 0; index < 24; ++index)
        builder.layer("rtr_lr2d", u"Lost", u"C:\\gone\\" + decimal(index) + u".tif");
    builder.save(source);
    EXPECT_EQ(1, command("resave 'C:\\prj\\area._vp' 'N:\\out\\new._vp' --quiet --json"));
    EXPECT_EQ(24U, json::parse(out).at("lost_sources").size());
    EXPECT_EQ(10U, times(": does not exist (\"Lost\" in \"Area\")\n", err)) << err;
    EXPECT_TRUE(err.ends_with("vestra-resave: and 14 more like this (--json lists all)\n")) << err;
}

TEST_F(failure_reasons, names_that_windows_does_not_take) {
    for (const wide_string name : {u"Con.tif", u"a*b.tif", u"line\nfeed.tif", u"blank ", u"common.tif"})
        builder.layer("rtr_lr2d", name, write(u"C:\\data\\" + name, "x"));
    builder.save(source);
    EXPECT_EQ(1, command("resave 'C:\\prj\\area._vp' 'N:\\out\\new._vp' --quiet --json"));
    string told;
    for (const json all = json::parse(out); const json& each : all.at("problems"))
        if (each.at("kind") == "unportable_name") told += each.at("new_path").get<string>() + "|";
    EXPECT_EQ(
        "N:\\out\\rtr\\Con.tif|N:\\out\\rtr\\a*b.tif|N:\\out\\rtr\\blank |N:\\out\\rtr\\line\nfeed.tif|",
        told);
}

// The name shown in messages would be that of another file.
TEST_F(failure_reasons, a_file_in_a_folder_of_a_well_whose_name_is_not_utf8) {
    for (const wide_string name : {u"w.wel", u"w\\a.txt"}) write(u"C:\\data\\" + name, "x");
    std::ofstream(native("c") / "data/w/b\xFF.txt") << "x";
    builder.clear();
    builder.scene_2d(u"Area").layer("plugin_lr_2d_well_hole_2d_3", u"Well", u"C:\\data\\w.wel").save(source);
    for (const string dry : {" --dry-run", ""}) {
        EXPECT_EQ(1, command("resave 'C:\\prj\\area._vp' 'N:\\out\\new._vp' --quiet" + dry));
        EXPECT_EQ(
            shown("vestra-resave: C:\\data\\w\\b\xEF\xBF\xBD.txt: could not be copied to "
                  "N:\\out\\well\\w\\b\xEF\xBF\xBD.txt: the name is not UTF-8 (\"Well\" in \"Area\")\n"),
            err);
    }
}

TEST_F(failure_reasons, a_page_is_kept_out_of_a_data_set_behind_a_link) {
    fs::create_directories(native("n") / "out/rtr");
    for (const auto& [folder, code] : {std::pair(native("c") / "data", 2), {native("n") / "out/rtr", 1}}) {
        fs::remove(native("n") / "page");
        fs::create_directory_symlink(folder, native("n") / "page");
        EXPECT_EQ(code, command("resave 'C:\\prj\\area._vp' 'N:\\out\\new._vp' --quiet --report "
                                "'N:\\page\\big.html'"));
        EXPECT_TRUE(is_told("it would look like a file of the data set next to it")) << err;
        EXPECT_FALSE(fs::exists(folder / "big.html"));
    }
}

// Nothing is written, whatever the request.
TEST_F(failure_reasons, a_wrong_drive_or_a_place_for_no_file_is_refused) {
    fs::create_directories(native("n") / "out");
    fs::create_directories(native("n") / "Out" / "sub");
    fs::create_symlink("/dev/full", file_of("link"));
    ASSERT_EQ(0, ::mkfifo(file_of("pipe").c_str(), 0600));
    const string area = "'C:\\prj\\area._vp' ", to = area + "'N:\\Out\\sub\\new._vp' ";
    const struct {
        string variable, arguments, told;
    } rows[] = {
        {"", "resave " + to + "--drive C=/tmp", "--drive: a drive is mapped twice: \"C="},
        {"", "resave " + to + "--drive z=/tmp",
         "drive Z: is the root folder and cannot be another one: \"z=/tmp\""},
        {"C=/tmp;c=/tmp", "list " + area, "VESTRA_DRIVES: a drive is mapped twice: \"c=/tmp\""},
        {"Z=/;;E=/none", "list " + area, "VESTRA_DRIVES: not a drive: \"E=/none\""},
        {"Z=/tmp", "list " + area, "VESTRA_DRIVES: drive Z: is the root folder"},
        {"", "resave " + to + "--lowercase",
         "N:\\Out: with --lowercase the files would go to another existing folder"},
        {"", "resave " + area + "'\\\\server\\x\\new._vp'",
         "\\\\server\\x\\new._vp: network shares are not supported"},
        {"", "structure " + area + "'\\\\server\\x\\t.txt'",
         "\\\\server\\x\\t.txt: network shares are not supported"},
        {"", "resave " + area + file_of("link").string(), "link: is a device, a pipe or a dangling link"},
        {"", "structure " + area + "/dev/full", "/dev/full: is a device, a pipe or a dangling link"},
        {"", "check-case " + area + file_of("pipe").string(), "pipe: is a device, a pipe or a dangling link"},
        {"", "resave " + area + "'" + file_of("a\xFF").string() + "/new._vp'",
         "\xEF\xBF\xBD/new._vp: the name is not UTF-8"},
    };
    const tree_state before = all_drives();
    for (const auto& row : rows) {
        SCOPED_TRACE(row.arguments);
        EXPECT_EQ(2, run("VESTRA_DRIVES='" + row.variable + "' " + line_of(row.arguments)));
        EXPECT_TRUE(is_told(row.told)) << err;
        EXPECT_EQ("", difference(before, all_drives()));
    }
}

// A caption is never interpreted: text after a line feed in it is not a separate entry.
TEST_F(failure_reasons, a_caption_that_looks_like_a_line_of_the_report) {
    builder.clear();
    builder.scene_2d(u"Area").layer("rtr_lr2d", u"Old\nCopy error relief.tif", u"C:\\gone.tif").save(source);
    EXPECT_EQ(1, command("resave 'C:\\prj\\area._vp' 'N:\\out\\new._vp' --json --quiet"));
    const json all = json::parse(out);
    EXPECT_TRUE(all.at("copy_errors").empty()) << out;
    ASSERT_EQ(1U, all.at("lost_sources").size());
    EXPECT_EQ("Old\nCopy error relief.tif", all.at("lost_sources")[0].at("element").at("caption"));
    EXPECT_EQ(1, std::ranges::count(err, '\n')) << err;
    EXPECT_TRUE(is_told("(\"Old\\nCopy error relief.tif\" in \"Area\")")) << err;
    EXPECT_EQ(0, command("list 'C:\\prj\\area._vp'"));
    EXPECT_TRUE(is_printed("\n      Old\\nCopy error relief.tif  [rtr_lr2d]  ")) << out;
}

} // namespace
} // namespace vs::project_resave
