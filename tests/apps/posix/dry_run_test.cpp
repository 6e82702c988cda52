// Linux only: the command is started through a shell.
// vestra-resave resave --dry-run: what it says is what the run does, and nothing is written.
#include <algorithm>
#include <iterator>
#include <map>
#include <nlohmann/json.hpp>
#include <set>

#include "tests/apps/posix/command_run.h"

namespace vs::project_resave {
namespace {

namespace fs = std::filesystem;

using nlohmann::json;
using std::string;

class dry_run : public command_run {
protected:
    using drives = std::map<string, tree_state>;
    drives all_drives() const {
        drives states;
        for (const char* name : {"c", "d", "n"}) states[name] = state_of(native(name));
        return states;
    }
    // Nothing on any drive is new, gone or touched.
    void expect_untouched(const drives& before) const {
        for (const auto& [name, state] : before) EXPECT_EQ("", difference(state, state_of(native(name))));
    }
    // The files that are new or were written since, each with its size. Letter case does not count: a folder
    // keeps the spelling in which it was made first.
    std::set<string> written_since(const drives& before) const {
        std::set<string> written;
        for (const auto& [name, old] : before) {
            for (const auto& [path, state] : state_of(native(name))) {
                const auto row = old.find(path);
                if (state.is_folder || (row != old.end() && row->second.written == state.written)) continue;
                string place = name;
                place.append(":/").append(path);
                std::ranges::replace(place, '/', '\\');
                written.insert(with_size(platform::from_utf8(place), state.bytes.size()));
            }
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

    void expect_as_planned(const json& plan, const json& run, const drives& before) const {
        std::set<string> planned, missed;
        std::set<std::pair<string, string>> pairs;
        uint64_t bytes = 0;
        for (const auto& file : plan.at("files")) {
            EXPECT_TRUE(planned.insert(with_size(wide(file.at("target")), file.at("bytes"))).second) << file;
            pairs.emplace(file.at("source"), file.at("target"));
            bytes += file.at("bytes").get<uint64_t>();
            const wide_string from = wide(file.at("source")), place = wide(file.at("target"));
            const bool is_rewritten = from.empty() || from == source || from.ends_with(u"._sn");
            EXPECT_TRUE(is_rewritten || read(from) == read(place)) << file;
        }
        std::ranges::set_symmetric_difference(planned, written_since(before),
                                              std::inserter(missed, missed.end()));
        EXPECT_EQ(std::set<string>(), missed);
        EXPECT_EQ(bytes, plan.at("bytes"));
        EXPECT_EQ("would be " + run.at("outcome").get<string>(), plan.at("outcome"));
        for (const char* told : {"lost_sources", "copy_errors", "types_not_resaved"})
            EXPECT_EQ(run.at(told), plan.at(told)) << told;
        for (const auto& file : run.at("files"))
            EXPECT_TRUE(fs::is_directory(platform::native_path(wide(file.at("target")))) ||
                        pairs.contains({file.at("source"), file.at("target")}))
                << file;
    }
    static std::set<string> renamed(const json& plan) {
        std::set<string> names;
        for (const auto& file : plan.at("files"))
            if (file.at("renamed")) names.insert(platform::to_utf8(path_file_name(wide(file.at("source")))));
        return names;
    }
};

// Into an empty place, onto files in the way, and over the remains of the run before; in plain and in full.
TEST_P(dry_run_of_sample, says_file_by_file_what_the_run_does) {
    const string plain = string("--structure ") + GetParam();
    const string full = plain + " --lowercase --scene-files --layer-files --log --load-log";
    for (const string& arguments : {plain, full}) {
        remove_tree(u"N:\\out");
        for (const string state : {"empty", "in the way", "again"}) {
            SCOPED_TRACE(arguments);
            SCOPED_TRACE(state);
            if (state == "in the way") {
                remove_tree(u"N:\\out");
                for (const wide_string folder : {u"shp", u"maps", u"prj\\maps", u"Geology\\prj\\maps"})
                    write(u"N:\\out\\" + folder + u"\\Roads.SHP", "older");
                write(u"N:\\out\\shp\\lake.shx", "a companion in the way");
                write(u"N:\\out\\tos", "no folder");
            }
            drives before = all_drives();
            const int planned = command(to + arguments + " --dry-run");
            const auto plan = json::parse(out);
            expect_untouched(before);
            EXPECT_EQ(planned, command(to + arguments));
            EXPECT_EQ(1, planned) << err;
            expect_as_planned(plan, json::parse(out), before);
            const std::set<string> other_names = renamed(plan);
            EXPECT_FALSE(other_names.contains("area._vp"));
            // Two files of one name meet in a folder by type; a scene's folder is numbered as a whole.
            const bool is_by_type = GetParam() == string("by-type");
            const bool has_own_folders = GetParam() == string("folder-per-scene");
            EXPECT_EQ(state == "empty" ? is_by_type : !has_own_folders, other_names.contains("roads.shp"));
            for (const char* name : {"relief.tif", "photos.txt"}) // the latter in a well's renamed folder
                EXPECT_EQ(state == "again" && !has_own_folders, other_names.contains(name)) << name;
        }
    }
}
INSTANTIATE_TEST_SUITE_P(structures, dry_run_of_sample,
                         testing::Values("by-type", "from-project-folder", "project-tree-else-type",
                                         "from-common-top", "folder-per-scene"));

TEST_F(dry_run, ends_as_the_run_would_and_leaves_no_folder) {
    project_builder().scene_2d(u"S").layer("rtr_lr2d", u"R", write(u"C:\\r.tif")).save(source);
    write(u"N:\\file", "x");
    remove_tree(u"N:\\out");
    const struct {
        string arguments;
        int code;
    } rows[] = {{"'C:\\prj\\area._vp' 'N:\\out\\a\\b\\new._vp' --log --load-log", 0},
                {"'C:\\prj\\area._vp' 'N:\\out\\new._vp' --deselect R", 0},
                {"'C:\\prj\\area._vp' 'N:\\out\\new._vp' --deselect nobody", 2},
                {"'C:\\prj\\area._vp' 'N:\\out\\new._vp' --verify", 2},
                {"'C:\\prj\\area._vp' 'C:\\prj\\area._vp'", 2},
                {"'C:\\prj\\none._vp' 'N:\\out\\new._vp'", 2},
                {"'C:\\prj\\area._vp' 'N:\\file\\new._vp'", 3}};
    const drives before = all_drives();
    for (const auto& row : rows) {
        EXPECT_EQ(row.code, command("resave --dry-run " + row.arguments)) << row.arguments << err;
        EXPECT_EQ(row.code == 0, err.empty()) << err; // above all nothing of "saved"
        expect_untouched(before);
    }
}

TEST_F(dry_run, tells_what_no_rule_takes_along_and_where_the_space_ends) {
    for (const wide_string name : {u"Roads.shp", u"Roads.shx", u"Roads.dbf", u"roads.SBN", u"Roads.shp.xml",
                                   u"Roads2.shp", u"Roads", u"r.tif", u"r.tfw", u"r.tif.aux.xml"})
        write(u"C:\\prj\\data\\" + name, "data");
    fs::create_directory(native("c") / "prj/data/r.old");
    project_builder()
        .scene_2d(u"S")
        .layer("shp_pln_lr2d", u"Roads", u"C:\\prj\\data\\ROADS.shp")
        .layer("rtr_lr2d", u"R", u"C:\\prj\\data\\r.tif")
        .save(source);
    EXPECT_EQ(0, command(to + "--dry-run")) << err;
    auto plan = json::parse(out);
    std::set<std::pair<string, string>> neighbours;
    for (const auto& each : plan.at("neighbours_not_copied"))
        neighbours.emplace(each.at("file"), each.at("beside"));
    const string data = "C:\\prj\\data\\";
    EXPECT_EQ((std::set<std::pair<string, string>>{{data + "roads.SBN", data + "ROADS.shp"},
                                                   {data + "Roads.shp.xml", data + "ROADS.shp"},
                                                   {data + "r.tif.aux.xml", data + "r.tif"}}),
              neighbours);

    const uintmax_t free = fs::space(native("n")).available;
    EXPECT_NEAR(static_cast<double>(free), plan.at("free_bytes").get<double>(), 0x1p30);
    fs::resize_file(native("c") / "prj/data/r.tif", free + 0x40000000);
    EXPECT_EQ(1, command(to + "--dry-run")) << err;
    EXPECT_TRUE(is_told("vestra-resave: too little space: ")) << err;
    plan = json::parse(out);
    EXPECT_LT(plan.at("free_bytes"), plan.at("bytes"));

    EXPECT_EQ(1, command("resave 'C:\\prj\\area._vp' 'N:\\out\\new._vp' --dry-run"));
    EXPECT_NE(string::npos, out.find("ROADS.shp -> N:\\out\\shp\\ROADS.shp  4 B\n")) << out;
    EXPECT_NE(string::npos, out.find("stays behind: " + data + "roads.SBN, beside " + data + "ROADS.shp\n"));
    EXPECT_NE(string::npos, out.find("\nwould be saved: N:\\out\\new._vp, 6 files, ")) << out;
}

} // namespace
} // namespace vs::project_resave
