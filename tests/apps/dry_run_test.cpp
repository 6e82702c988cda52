// vestra-resave resave --dry-run: it prints what the run does, and writes nothing.
#include <nlohmann/json.hpp>
#include <sstream>

#include "tests/apps/command_run.h"

namespace vs::project_resave {
namespace {

namespace fs = std::filesystem;

using nlohmann::json;
using std::string;

class dry_run : public command_run {
protected:
    // Returns the files that were created or written since, each with its size. Letter case is ignored,
    // because a folder keeps the spelling in which it was created first.
    std::set<string> written_since(const tree_state& before) const {
        std::set<string> written;
        for (const auto& [path, state] : all_drives()) {
            const auto row = before.find(path);
            if (state.is_folder || (row != before.end() && row->second.written == state.written)) continue;
            wide_string place = platform::from_utf8(path);
            std::ranges::replace(place, u'/', u'\\');
            written.insert(with_size(place, state.bytes.size()));
        }
        return written;
    }
    static string with_size(const wide_string& path, uint64_t bytes) {
        return platform::to_utf8(platform::folded(path)) + " " + std::to_string(bytes);
    }
    static wide_string wide(const json& text) { return platform::from_utf8(text.get<string>()); }

    const string to = "resave 'C:\\prj\\area._vp' 'N:\\out\\new._vp' --quiet --json ";
};

class dry_run_of_sample : public dry_run, public testing::WithParamInterface<const char*> {
protected:
    void SetUp() override { copy_sample(); }

    void expect_as_planned(const json& plan, const json& run, const tree_state& before) const {
        std::set<string> planned;
        std::set<std::pair<string, string>> pairs;
        uint64_t bytes = 0, bytes_copied = 0, bytes_of_run = 0;
        for (const auto& file : plan.at("files")) {
            EXPECT_TRUE(planned.insert(with_size(wide(file.at("target")), file.at("bytes"))).second) << file;
            pairs.emplace(file.at("source"), file.at("target"));
            bytes += file.at("bytes").get<uint64_t>();
            const wide_string from = wide(file.at("source"));
            if (!from.empty()) bytes_copied += file.at("bytes").get<uint64_t>();
            const bool is_rewritten = from.empty() || from == source || from.ends_with(u"._sn");
            EXPECT_TRUE(is_rewritten || read(from) == read(wide(file.at("target")))) << file;
        }
        EXPECT_EQ(planned, written_since(before));
        for (const auto& file : run.at("files")) {
            EXPECT_TRUE(fs::is_directory(platform::native_path(wide(file.at("target")))) ||
                        pairs.contains({file.at("source"), file.at("target")}))
                << file;
            bytes_of_run += file.at("bytes").get<uint64_t>();
        }
        EXPECT_EQ(bytes, plan.at("bytes"));
        EXPECT_EQ(bytes_copied, bytes_of_run); // it lists only files that have a source
        EXPECT_TRUE(run.at("differing").empty()) << run.at("differing");
        EXPECT_EQ("saved with problems", run.at("outcome"));
        ASSERT_TRUE(run.at("lost_sources").size() == 1 && run.at("types_not_resaved").size() == 1) << run;
        EXPECT_EQ("Old survey", run.at("lost_sources")[0].at("element").at("caption"));
        EXPECT_EQ("wfs_pnt_lr2d", run.at("types_not_resaved")[0].at("reason"));
        EXPECT_EQ("would be saved with problems", plan.at("outcome"));
        EXPECT_EQ(run.at("problems"), plan.at("problems"));
        EXPECT_EQ(run.at("summary"), plan.at("summary"));
    }
    bool has_own_folders() const { return GetParam() == string("folder-per-scene"); }
    // Returns kind and caption of each problem, except for files left behind.
    static std::multiset<string> told_by(const json& run) {
        std::multiset<string> told;
        for (const auto& each : run.at("problems"))
            if (each.at("kind") != "left_behind")
                told.insert(each.at("kind").get<string>() + " " +
                            each.at("element").at("caption").get<string>());
        return told;
    }
};

const std::multiset<string> dropped_with_own_folders{
    "left_alone Well P-101",  "left_alone Well P-101",      "left_alone Profile of P-102",
    "left_alone Section 1",   "dropped Deposits",           "dropped Owners",
    "dropped Core samples",   "dropped Production",         "dropped Structure C1",
    "dropped Sheet A3",       "dropped Sheet without page", "dropped Sheet of P-101",
    "dropped Sheet of P-102", "dropped North to south"};

// Into an empty folder, onto taken names, and over the result of an earlier run; without and with options.
TEST_P(dry_run_of_sample, says_file_by_file_what_the_run_does) {
    const string plain = string("--structure ") + GetParam();
    const string full = plain + " --lowercase --scene-files --layer-files --log --load-log";
    for (const string& choices : {plain, full}) {
        for (const string state : {"empty", "in the way", "again"}) {
            SCOPED_TRACE(choices + ", " + state);
            if (state != "again") remove_tree(u"N:\\out");
            if (state == "in the way") {
                for (const wide_string folder : {u"shp", u"maps", u"prj\\maps", u"Geology\\prj\\maps"})
                    write(u"N:\\out\\" + folder + u"\\Roads.SHP", "older");
                write(u"N:\\out\\shp\\lake.shx", "a companion in the way");
                write(u"N:\\out\\tos", "no folder");
            }
            const tree_state before = all_drives();
            const string arguments = choices + (state == "again" ? " --overwrite" : "");
            EXPECT_EQ(1, command(to + arguments + " --dry-run")) << err;
            const auto plan = json::parse(out);
            EXPECT_EQ("", difference(before, all_drives()));
            EXPECT_EQ(1, command(to + arguments + " --verify")) << err;
            const auto run = json::parse(out);
            expect_as_planned(plan, run, before);
            std::set<string> renamed;
            for (const auto& file : plan.at("files"))
                if (file.at("renamed"))
                    renamed.insert(platform::to_utf8(path_file_name(wide(file.at("source")))));
            // Two files with the same name meet in a folder by type; a folder for a scene gets a number as a
            // whole.
            EXPECT_EQ(state == "empty" ? GetParam() == string("by-type") : !has_own_folders(),
                      renamed.contains("roads.shp"));
            std::multiset<string> known{"source_lost Old survey", "type_not_resaved Springs",
                                        "left_alone Profile lines", "left_alone Monthly report"};
            if (has_own_folders())
                known.merge(std::multiset<string>(dropped_with_own_folders));
            else
                known.insert("left_alone Page A3");
            if (has_own_folders() && choices == full) known.insert("not_written Empty scene"); // no folder
            EXPECT_TRUE(state != "empty" || known == told_by(run)) << run.at("problems");
            for (const char* name : {"relief.tif", "photos.txt"}) // the latter in a well's renamed folder
                EXPECT_EQ(state == "again" && !has_own_folders(), renamed.contains(name)) << name;
        }
    }
}

TEST_P(dry_run_of_sample, without_what_no_rule_carries_nothing_is_left_to_say) {
    for (const auto& entry : fs::recursive_directory_iterator(native("c").parent_path()))
        if (entry.path().extension() == ".prj" && entry.path().filename() != "prj.adf") fs::remove(entry);
    string project = read(source), line, kept;
    for (std::istringstream lines(project); std::getline(lines, line);)
        if (line.find("Monthly report") == string::npos && line.find("<page ") == string::npos)
            kept += line + '\n';
    write(source, kept);
    // The lost source was moved, together with all others outside the project folder.
    for (const wide_string end : {u"shp", u"shx", u"dbf"})
        write(u"N:\\moved\\deep\\Old_Survey." + end, read(u"C:\\prj\\maps\\roads." + end));
    fs::rename(native("d") / "gis", native("n") / "moved/gis");
    fs::rename(native("c") / "data", native("n") / "moved/data");
    const tree_state before = sources();
    const string all = to + "--structure " + GetParam() +
                       " --search 'N:\\moved' --deselect Springs --deselect 'Profile lines'";
    for (const string dry : {" --dry-run", ""}) {
        EXPECT_EQ(has_own_folders() ? 1 : 0, command(all + dry)) << err;
        EXPECT_EQ(has_own_folders() ? dropped_with_own_folders : std::multiset<string>(),
                  told_by(json::parse(out)));
        EXPECT_EQ(34U, json::parse(out).at("found").size()) << out;
        EXPECT_EQ(has_own_folders(), is_told("\"Sheet A3\" in \"Layouts\": is not in the new project: the "
                                             "structure folder-per-scene saves only scenes"));
    }
    EXPECT_EQ("", difference(before, sources()));
    const size_t copied = json::parse(out).at("summary").at("files");
    EXPECT_EQ(0, command("list --json --quiet --search 'N:\\moved' 'C:\\prj\\area._vp'")) << err;
    const auto lines = std::distance(fs::directory_iterator(native("c") / "prj/profiles"), {});
    const size_t listed = json::parse(out).at("summary").at("files");
    EXPECT_TRUE(has_own_folders() || listed == copied + static_cast<size_t>(lines))
        << listed << " " << copied;
    EXPECT_EQ(has_own_folders() ? 1 : 0, command("verify --elsewhere 'N:\\out\\new._vp'")) << out;
}

TEST_P(dry_run_of_sample, updated_without_changes_and_manifest_it_stays_as_it_is) {
    const string all = to + "--structure " + GetParam();
    ASSERT_EQ(1, command(all)) << err;
    const size_t copied = json::parse(out).at("summary").at("files");
    for (const string dry : {" --dry-run", ""}) {
        EXPECT_EQ(1, command(all + " --update --overwrite" + dry)) << err;
        EXPECT_EQ(copied, json::parse(out).at("unchanged").size()) << out;
        EXPECT_EQ(0, json::parse(out).at("summary").at("failed")) << err;
    }
}
INSTANTIATE_TEST_SUITE_P(structures, dry_run_of_sample,
                         testing::Values("by-type", "from-project-folder", "project-tree-else-type",
                                         "from-common-top", "folder-per-scene"));

TEST_F(dry_run, reports_what_is_left_behind_and_too_little_space) {
    for (const wide_string name :
         {u"Roads.shp", u"Roads.shx", u"Roads.dbf", u"roads.SBN", u"roads.TXT", u"Roads.old.shp",
          u"Roads2.shp", u"Roads", u"r.tif", u"r.tfw", u"r.tif.bak", u"R.doc"})
        write(u"C:\\prj\\data\\" + name, "data");
    fs::create_directory(native("c") / "prj/data/r.old");
    builder.scene_2d(u"S").layer("shp_pln_lr2d", u"Roads", src(u"data\\ROADS.shp"));
    builder.layer("rtr_lr2d", u"R", src(u"data\\r.tif")).scene_2d(u"Left out");
    builder.layer("graph_lr2d", u"Words", src(u"data\\R.doc")).save(source);
    const string data = "C:\\prj\\data\\", left_out = to + "--deselect 'Left out' ";
    const std::pair<const char*, size_t> choices[] = {{"none", 4}, {"known", 3}, {"all", 0}};
    for (const auto& [choice, left] : choices) {
        EXPECT_EQ(left == 0 ? 0 : 1, command(left_out + "--dry-run --companions " + choice)) << err;
        EXPECT_EQ(left, json::parse(out).at("left_behind").size()) << choice << out;
    }
    for (const string dry : {"--dry-run ", "--overwrite "}) {
        EXPECT_EQ(1, command(left_out + dry)) << err;
        const auto run = json::parse(out);
        std::set<string> behind;
        for (const auto& each : run.at("left_behind")) behind.insert(each.at("path"));
        EXPECT_EQ((std::set<string>{data + "r.tif.bak", data + "Roads.old.shp", data + "roads.TXT"}), behind);
        EXPECT_TRUE(is_told(data + "roads.TXT: was left behind: it is next to " + data)) << err;
        json counts = run.at("summary");
        for (auto count = counts.begin(); count != counts.end();)
            count = *count == 0 ? counts.erase(count) : std::next(count);
        EXPECT_EQ(json({{"files", 6}, {"bytes", 24}, {"left_behind", 3}}), counts);
    }
    remove_tree(u"N:\\out");

    const uintmax_t free = fs::space(native("n")).available;
    for (const char* name : {"r.tif", "Roads.dbf"}) // neither needs more than the disk can hold
        fs::resize_file(native("c") / "prj/data" / name, free / 2 + 0x20000000);
    for (const char* word : {"--dry-run", ""}) { // same exit status as the run
        EXPECT_EQ(3, command(to + word)) << err;
        EXPECT_TRUE(is_told("vestra-resave: N:\\out: too little space: ")) << err;
        EXPECT_EQ("", made());
    }
    EXPECT_EQ(1, command(to + "--dry-run --ignore-space")) << err;
    const auto plan = json::parse(out);
    EXPECT_EQ("would be saved with problems", plan.at("outcome"));
    EXPECT_NEAR(static_cast<double>(free), plan.at("free_bytes").get<double>(), 0x1p30);
    EXPECT_EQ("too_little_space", plan.at("problems").at(0).at("kind"));
    EXPECT_LT(plan.at("free_bytes"), plan.at("bytes"));

    EXPECT_EQ(1, command("resave 'C:\\prj\\area._vp' 'N:\\out\\new._vp' --dry-run --ignore-space"));
    EXPECT_TRUE(is_printed(" -> N:\\out\\shp\\ROADS.shp  4 B\n")) << out;
    EXPECT_TRUE(is_printed("\nwould be saved with problems: N:\\out\\new._vp, 7 files, ")) << out;
    EXPECT_NE(string::npos, out.find("; 1 failed, 3 left behind; ")) << out;
}

} // namespace
} // namespace vs::project_resave
