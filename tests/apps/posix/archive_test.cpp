// Linux only: other programs unpack and create archives, and a shell limits the size of files.
// Resaves into an archive, and the commands that read one. An archive has the same tree as a folder, and it
// is written either completely or not at all.
#include <nlohmann/json.hpp>
#include <regex>

#include "tests/apps/command_run.h"

namespace vs::project_resave {
namespace {

namespace fs = std::filesystem;

using nlohmann::json;
using std::string;

class archive : public command_run {
protected:
    archive() { fs::create_directories(native("n") / "sent"); }

    // Runs another program and returns its output.
    string other(const string& line) {
        EXPECT_EQ(0, run_line("LC_ALL=C.UTF-8 " + line + " >" + file_of("other").string() + " 2>&1"))
            << line << text("other");
        return text("other");
    }
    // Runs lines of Python in N:\.
    string python(const string& lines) {
        std::ofstream(file_of("lines")) << lines;
        return other("sh -c 'cd " + native("n").string() + " && python3 " + file_of("lines").string() + "'");
    }
    string sent() const {
        string names;
        for (const auto& [path, state] : state_of(native("n") / "sent")) names += path + " ";
        return names;
    }
    // Returns names and bytes below a folder of N:, without the times in the manifest.
    std::map<string, string> tree(const string& folder) const {
        std::map<string, string> all;
        for (const auto& [path, state] : state_of(native("n") / folder)) {
            const bool is_manifest = path.ends_with(".manifest.json");
            all[path] = is_manifest ? std::regex_replace(state.bytes, std::regex("\"modified\": \\d+"), "")
                                    : state.bytes;
        }
        return all;
    }
    // Returns the output of the command about a copy, without its path and in lower case, because a folder
    // has the letter case of its disk.
    string told_of(const string& place) const {
        const string folder = (native("n") / place).string();
        string told = std::regex_replace(out + err, std::regex(folder + "|N:\\\\\\\\" + place), "COPY");
        std::ranges::transform(told, told.begin(), [](unsigned char letter) { return std::tolower(letter); });
        // Without sizes: in an archive the files of a data set are found only by their names.
        return std::regex_replace(told, std::regex("  [0-9.]+ [km]?b\\n|, \\d+ files, [0-9.]+ [km]?b"), "\n");
    }

    const string to = "resave 'C:\\prj\\area._vp' ";
};

TEST_F(archive, holds_the_tree_that_a_folder_would) {
    copy_sample();
    const tree_state before = sources();
    int number = 0;
    for (const string& options :
         {string("--scene-files --layer-files"), string("--structure folder-per-scene"),
          string("--structure from-common-top --lowercase --deselect missing"),
          string("--structure from-project-folder --companions all"),
          string("--structure project-tree-else-type --delete-lost")}) {
        SCOPED_TRACE(options);
        const string name = "x" + std::to_string(++number);
        const string file = name + (number % 2 == 0 ? ".zip" : ".tar.zst");
        const string more = " --quiet --json " + options;
        EXPECT_EQ(1, command(to + "'N:\\" + name + "\\area._vp' --manifest" + more)) << err;
        const json plain = json::parse(out);
        EXPECT_EQ(1, command(to + "'N:\\sent\\" + file + "'" + more)) << err;
        EXPECT_NE(string::npos, sent().find(file));
        other("bsdtar -xf " + (native("n") / "sent" / file).string() + " -C " +
              (fs::create_directory(native("n") / ("un" + name)), (native("n") / ("un" + name)).string()));
        EXPECT_EQ(tree(name), tree("un" + name));
        const json packed = json::parse(out);
        EXPECT_EQ(plain.at("summary"), packed.at("summary"));
        EXPECT_EQ(plain.at("problems").size(), packed.at("problems").size());
        if (number > 2) continue; // one of each kind
        for (const string verb : {"verify ", "list "}) {
            const int as_folder = command(verb + "'N:\\un" + name + "\\area._vp'" +
                                          (verb == "verify " ? " --manifest --quiet" : " --quiet"));
            const string told = told_of("un" + name);
            EXPECT_EQ(as_folder, command(verb + "'N:\\sent\\" + file + "' --quiet")) << err;
            EXPECT_EQ(told, told_of("sent/" + file));
        }
    }
    EXPECT_EQ("", difference(before, sources()));
}

TEST_F(archive, opens_elsewhere_with_the_names_and_times_it_had) {
    const wide_string from = write(u"C:\\data\\Скважины №1.tif", "вода");
    const std::chrono::sys_seconds day = std::chrono::sys_days(std::chrono::year(1998) / 2 / 3);
    fs::last_write_time(platform::native_path(from), std::chrono::file_clock::from_sys(day));
    builder.scene_2d(u"S").layer("rtr_lr2d", u"R", from).save(source);
    ASSERT_EQ(0, command(to + "'N:\\sent\\Пакет.ZIP\\sub\\new._vp' --quiet --log")) << err;
    EXPECT_EQ("['sub/', 'sub/new._vp', 'sub/new.manifest.json', 'sub/new_log.txt', 'sub/rtr/', "
              "'sub/rtr/Скважины №1.tif'] None (1998, 2, 3) вода 2048 0o100644\n",
              python("import zipfile\n"
                     "z = zipfile.ZipFile('sent/Пакет.ZIP')\n"
                     "i = z.getinfo('sub/rtr/Скважины №1.tif')\n"
                     "print(sorted(z.namelist()), z.testzip(), i.date_time[:3], z.read(i).decode(),\n"
                     "      i.flag_bits & 2048, oct(i.external_attr >> 16))\n"));
    EXPECT_EQ(0, command("verify 'N:\\sent\\пакет.zip\\sub\\new._vp'")) << out << err;
    EXPECT_TRUE(out.ends_with("1 references, 0 broken, 0 different from the manifest\n")) << out;
    EXPECT_EQ(0, command("list 'N:\\sent\\Пакет.ZIP'")) << err;
    EXPECT_EQ("Пакет.ZIP ", sent());
}

TEST_F(archive, may_have_the_longest_name_and_what_a_killed_run_left) {
    builder.scene_2d(u"S").layer("rtr_lr2d", u"R", write(u"C:\\data\\r.tif")).save(source);
    for (const size_t length : {243U, 244U, 255U}) {
        const string name = string(length - 4, 'n') + ".zip";
        EXPECT_EQ(0, command(to + "'N:\\sent\\" + name + "'")) << err;
        EXPECT_EQ(0, command("verify 'N:\\sent\\" + name + "'")) << out << err;
        EXPECT_EQ(name + " ", sent());
        fs::remove(native("n") / "sent" / name);
    }
    write(u"N:\\sent\\a.zip.vestra-part", "half of it");
    EXPECT_EQ(0, command(to + "'N:\\sent\\a.zip'")) << err;
    EXPECT_EQ("a.zip ", sent());
}

TEST_F(archive, may_contain_other_archives) {
    builder.scene_2d(u"S").layer("rtr_lr2d", u"R", write(u"C:\\data\\r.tif")).save(source);
    const string data = (native("c") / "data").string();
    python("import os, zipfile\n"
           "for name in 'r.tif.kmz', 'r.zip':\n"
           "    zipfile.ZipFile('" +
           data + "/' + name, 'w').writestr('doc.kml', os.urandom(40000))\n");
    for (const string name : {"a.tar.zst", "a.zip"}) {
        EXPECT_EQ(0, command(to + "'N:\\sent\\" + name + "' --companions all --quiet")) << err;
        EXPECT_EQ(0, command("verify 'N:\\sent\\" + name + "' --quiet")) << out << err;
        EXPECT_NE(string::npos,
                  other("bsdtar -tf " + (native("n") / "sent" / name).string()).find("r.tif.kmz"));
    }
}

TEST_F(archive, is_not_begun_where_it_makes_no_sense) {
    builder.scene_2d(u"S").layer("rtr_lr2d", u"R", write(u"C:\\data\\r.tif")).save(source);
    write(u"N:\\sent\\text.zip", "no archive");
    ASSERT_EQ(0, command(to + "'N:\\sent\\a.zip'")) << err;
    const tree_state before = all_drives();
    for (const auto& [words, reason] : std::map<string, string>{
             {"'N:\\sent\\a.zip' --update", "--update and --resume cannot be combined with an archive"},
             {"'N:\\sent\\b.zip' --resume", "--update and --resume cannot be combined with an archive"},
             {"'N:\\sent\\a.zip\\other._vp'",
              "N:\\sent\\a.zip: already exists; use --overwrite to replace it"},
             {"'C:\\data\\r.zip'", "C:\\data\\r.zip: it would look like a file of the data set next to it"},
             {"'N:\\sent\\text.zip' --overwrite", "N:\\sent\\text.zip: exists and is not an archive"}}) {
        for (const char* dry : {"", " --dry-run"}) {
            EXPECT_EQ(2, command(to + words + dry)) << words << err;
            EXPECT_TRUE(is_told(reason)) << err;
        }
    }
    EXPECT_EQ(2, command(to + "'N:\\sent\\b.zip' --verify"));
    EXPECT_TRUE(is_told("--verify cannot be combined with an archive")) << err;
    for (const string project : {"N:\\sent\\a.zip", "N:\\sent\\a.zip\\area._vp"}) {
        EXPECT_EQ(2, command("resave '" + project + "' 'N:\\new\\area._vp'"));
        EXPECT_TRUE(is_told("N:\\sent\\a.zip: is an archive; unpack it first")) << err;
    }
    EXPECT_EQ(0, command(to + "'N:\\sent\\a.zip' --overwrite --dry-run")) << err;
    EXPECT_TRUE(is_printed("N:\\sent\\a.zip\\rtr\\r.tif")) << out;
    EXPECT_EQ("", difference(before, all_drives()));
    EXPECT_EQ(0, command(to + "'N:\\sent\\a.zip' --overwrite --load-log")) << err;
    EXPECT_NE("", read(u"C:\\prj\\area_last_resave_open_log.txt"));
}

TEST_F(archive, is_there_as_a_whole_or_not_at_all) {
    string noise; // that cannot be compressed
    for (uint32_t bits = 1; noise.size() < 400'000; bits = bits * 1664525 + 1013904223)
        noise += static_cast<char>(bits >> 24U);
    builder.scene_2d(u"S").layer("rtr_lr2d", u"R", write(u"C:\\data\\r.tif", noise)).save(source);
    const string limit = "sh -c 'ulimit -f 100; exec \"$@\"' sh ";
    for (const string name : {"a.zip", "a.tar.zst"}) {
        const string line = line_of(to + "'N:\\sent\\deep\\" + name + "' --quiet");
        EXPECT_EQ(3, run("exec " + limit + line.substr(string("exec").size())));
        EXPECT_EQ(
            shown("vestra-resave: N:\\sent\\deep\\" + name + ": could not be created: File too large\n"),
            err);
        EXPECT_EQ("", sent());
    }
}

// Each archive is one that an attacker could create.
TEST_F(archive, of_hostile_entries_is_read_without_harm) {
    builder.scene_2d(u"S").layer("rtr_lr2d", u"R", u"C:\\prj\\r.tif").save(source);
    fs::copy_file(native("c") / "prj/area._vp", native("n") / "area._vp");
    python(R"(
import io, json, struct, tarfile, zipfile
project = open('area._vp', 'rb').read()
def zipped(name, *more):
    with zipfile.ZipFile('sent/' + name, 'w') as z:
        for path, data in (('area._vp', project), *more):
            z.writestr(path, data)
zipped('up.zip', ('../up.tif', 'x'))
zipped('down.zip', ('a/../../up.tif', 'x'))
zipped('back.zip', ('..\\up.tif', 'x'))
zipped('root.zip', ('/tmp/up.tif', 'x'))
zipped('drive.zip', ('C:\\up.tif', 'x'))
zipped('twice.zip', ('r.tif', 'x'), ('R.TIF', 'y'))
zipped('both.zip', ('r', 'x'), ('r/r.tif', 'y'))
zipped('long.zip', ('a/' * 3000 + 'r.tif', 'x'))
zipped('two.zip', ('other._vp', project))
link = zipfile.ZipInfo('r.tif')
link.create_system, link.external_attr = 3, 0o120777 << 16
zipped('link.zip', (link, '/etc/passwd'))
def patched(name, change):
    data = bytearray(open('sent/whole.zip', 'rb').read())
    open('sent/' + name, 'wb').write(change(data))
zipped('whole.zip', ('r.tif', b'tif' * 50000))
def other_name(d):
    at = d.rfind(b'r.tif')
    d[at:at + 5] = b's.tif'
    return d
patched('renamed.zip', other_name)
whole = len(open('sent/whole.zip', 'rb').read())
patched('cut.zip', lambda d: d[:whole // 2])
patched('bytes.zip', lambda d: d[:whole // 2] + b'other' + d[whole // 2 + 5:])
def locked(d):
    for at in (d.find(b'PK\3\4', 4) + 6, d.rfind(b'PK\1\2') + 8):
        d[at] |= 1
    return d
patched('locked.zip', locked)
def listed(name, *paths):
    files = [dict(path=path, bytes=3, sha256='0' * 64) for path in paths]
    text = json.dumps(dict(project='area._vp', files=files))
    zipped(name, ('r.tif', 'tif'), ('area.manifest.json', text))
listed('blank.zip')
listed('outer.zip', 'area._vp', '../../prj/area._vp')
def huge(d):
    for at in (d.find(b'PK\3\4', 4) + 22, d.rfind(b'PK\1\2') + 24):
        d[at:at + 4] = struct.pack('<I', 0xfffffff0)
    return d
patched('huge.zip', huge)
def tarred(name, entries):
    with tarfile.open('sent/' + name + '.tar', 'w') as t:
        for info, data in entries:
            info.size = len(data)
            t.addfile(info, io.BytesIO(data))
own = tarfile.TarInfo('area._vp')
hard, device = tarfile.TarInfo('r.tif'), tarfile.TarInfo('r.tif')
hard.type, hard.linkname, device.type = tarfile.LNKTYPE, '/etc/passwd', tarfile.CHRTYPE
tarred('hard', ((own, project), (hard, b'')))
tarred('device', ((own, project), (device, b'')))
big = tarfile.TarInfo('r.tif')
big.size = 1 << 50
open('sent/bomb.tar', 'wb').write(open('sent/hard.tar', 'rb').read()[:512 * (1 + -(-len(project) // 512))]
                                  + big.tobuf(tarfile.GNU_FORMAT) + bytes(20 * 512))
)");
    other("zstd -q --rm " + (native("n") / "sent").string() + "/*.tar");
    const tree_state before = all_drives();
    for (const auto& [name, reason] : std::map<string, string>{
             {"up.zip", "out of the archive"},
             {"down.zip", "out of the archive"},
             {"back.zip", "out of the archive"},
             {"root.zip", "absolute path"},
             {"drive.zip", "absolute path"},
             {"twice.zip", "another entry has the same name"},
             {"both.zip", "folder is a file"},
             {"long.zip", "too long"},
             {"renamed.zip", "its directory does not match its entries"},
             {"two.zip", "does not contain exactly one project"},
             {"link.zip", "a link or a device"},
             {"cut.zip", "could not be loaded"},
             {"bytes.zip", "damaged in the archive"},
             {"locked.zip", "encrypted in the archive"},
             {"blank.zip", "area._vp: is not in the manifest"},
             {"outer.zip", "area.manifest.json: lists a file outside the project's folder: "},
             {"huge.zip", "damaged in the archive"},
             {"hard.tar.zst", "a link or a device"},
             {"device.tar.zst", "a link or a device"}}) {
        const bool is_refused = name == "cut.zip" || name == "two.zip" || name == "renamed.zip";
        EXPECT_EQ(is_refused ? 2 : 1, command("verify 'N:\\sent\\" + name + "' --quiet")) << name << out;
        EXPECT_TRUE(is_told(reason) || is_printed(reason)) << name << out << err;
        EXPECT_LE(0, command("list 'N:\\sent\\" + name + "' --json")) << name;
    }
    EXPECT_LE(1, command("verify 'N:\\sent\\bomb.tar.zst'")) << out;
    EXPECT_EQ("", difference(before, all_drives()));
}

} // namespace
} // namespace vs::project_resave
