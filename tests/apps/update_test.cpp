// resave --update, --resume and --prune: an updated copy equals a new one.
#include <nlohmann/json.hpp>
#include <random>

#include "tests/apps/command_run.h"
#include "tests/support/references_of.h"

namespace vs::project_resave {
namespace {

using nlohmann::json;
using std::string;

const string to = " 'N:\\out\\new._vp' ", area = "resave 'C:\\prj\\area._vp'" + to;

class update_command : public command_run {
protected:
    struct raster {
        wide_string caption, path;
        size_t version;
    };

    // Uses few names, so that most copies get a number.
    raster new_raster(size_t number) {
        const wide_string folder = u"C:\\data\\" + decimal(static_cast<uint32_t>(random_() % 3)) + u"\\";
        const wide_string name = u"r" + decimal(static_cast<uint32_t>(random_() % 2)) + u"_" +
                                 decimal(static_cast<uint32_t>(number)) + u".tif";
        return {u"Raster " + decimal(static_cast<uint32_t>(number)), folder + name.substr(random_() % 2 * 3),
                0};
    }
    void write_raster(raster& each) {
        const string content = platform::to_utf8(each.path) + " " + std::to_string(++each.version);
        write(each.path, content);
        write(path_replace_extension(each.path, u"tfw"), content + " world");
    }
    void save() {
        builder.clear();
        builder.scene_2d(u"Area");
        for (const raster& each : rasters_) builder.layer("rtr_lr2d", each.caption, each.path);
        builder.save(source);
    }
    // Makes one of the changes that happen to a project between two resaves.
    void edit() {
        const size_t chosen = random_() % rasters_.size();
        raster& each = rasters_[chosen];
        switch (random_() % 6) {
        case 0:
            return write_raster(each);
        case 1:
            rasters_.push_back(new_raster(++numbers_));
            return write_raster(rasters_.back());
        case 2:
            if (rasters_.size() > 2) rasters_.erase(rasters_.begin() + static_cast<ptrdiff_t>(chosen));
            return;
        case 3:
            std::swap(each, rasters_[random_() % rasters_.size()]);
            return;
        case 4:
            each.caption += u" renamed";
            return;
        default:
            each.path = path_add_to_stem(each.path, u"x");
            return write_raster(each);
        }
    }
    // Returns the content of the files that the project in `folder` refers to, by the caption of the element.
    std::multimap<wide_string, string> contents_in(const wide_string& folder) {
        vestra::project project;
        read_back(folder + u"new._vp", project);
        std::multimap<wide_string, string> found;
        for (const reference& each : references_of(project)) {
            EXPECT_TRUE(path_key(each.path).starts_with(path_key(folder))) << platform::to_utf8(each.path);
            found.emplace(each.owner, read(each.path) + read(path_replace_extension(each.path, u"tfw")));
        }
        return found;
    }
    static std::multiset<string> bytes_of(const tree_state& files) {
        std::multiset<string> all;
        for (const auto& [path, state] : files)
            if (path.ends_with(".tif") || path.ends_with(".tfw")) all.insert(state.bytes);
        return all;
    }
    tree_state state(const char* folder) const { return state_of(native("n") / folder); }

    std::mt19937_64 random_{20261122};
    std::vector<raster> rasters_;
    size_t numbers_ = 0;
};

TEST_F(update_command, makes_of_an_earlier_copy_what_a_new_run_would_make) {
    for (const string structure :
         {"by-type", "from-common-top", "folder-per-scene", "project-tree-else-type"}) {
        SCOPED_TRACE(structure);
        remove_tree(u"N:\\out");
        remove_tree(u"C:\\data");
        rasters_.clear();
        for (size_t number = 0; number < 8; ++number) rasters_.push_back(new_raster(++numbers_));
        for (raster& each : rasters_) write_raster(each);
        const wide_string own = write(u"N:\\out\\rtr\\r0.tif", "the user's own");
        save();
        ASSERT_EQ(0, command(area + "--update --manifest --structure " + structure)) << err; // the first time
        for (size_t round = 0; round < 4; ++round) {
            const tree_state before = state("out");
            for (size_t edits = random_() % 4; edits != 0; --edits) edit();
            save();
            const tree_state originals = sources();
            remove_tree(u"N:\\fresh");
            ASSERT_EQ(0, command("resave 'C:\\prj\\area._vp' 'N:\\fresh\\new._vp' --structure " + structure))
                << err;
            ASSERT_EQ(0, command(area + "--update --prune --json --structure " + structure)) << err;
            const json result = json::parse(out);
            EXPECT_EQ(contents_in(u"N:\\fresh\\"), contents_in(u"N:\\out\\"));
            std::multiset<string> wanted = bytes_of(state("fresh"));
            wanted.insert("the user's own");
            EXPECT_EQ(wanted, bytes_of(state("out")));
            EXPECT_EQ("the user's own", read(own));
            EXPECT_EQ("", difference(originals, sources()));
            for (const json& each : result["unchanged"]) { // reported as unchanged and not written
                const string path = each["target"].get<string>().substr(string("N:\\out\\").size());
                string name = path;
                std::ranges::replace(name, '\\', '/');
                ASSERT_TRUE(before.contains(name)) << name;
                EXPECT_EQ(before.at(name).bytes, state("out").at(name).bytes);
            }
        }
        EXPECT_EQ(0, command("verify 'N:\\out\\new._vp'")) << out;
        // If there is nothing to do, nothing is written, not even the project and the manifest.
        const tree_state before = state("out");
        EXPECT_EQ(0, command(area + "--update --structure " + structure)) << err;
        EXPECT_EQ("", difference(before, state("out")));
    }
}

// One fault at a time: what a user would lose if the run continued anyway.
TEST_F(update_command, replaces_no_changed_file_and_resumes_only_its_own_run) {
    for (size_t number = 0; number < 3; ++number) rasters_.push_back(new_raster(++numbers_));
    for (raster& each : rasters_) write_raster(each);
    save();
    const string journal = "resave-journal\t1\t;\nrun\t";
    const wide_string journal_path = u"N:\\out\\new.resave-journal";
    EXPECT_EQ(2, command(area + "--resume")) << err;
    EXPECT_TRUE(is_told("there is no such journal")) << err;
    EXPECT_EQ(2, command(area + "--prune")) << err;
    write(journal_path, journal + R"({"project": "C:\\prj\\area._vp", "new_project": "new._vp"})" +
                            "\t;\ncopy\ta half rec");
    EXPECT_EQ(2, command(area)) << err;
    EXPECT_TRUE(is_told("--resume") && is_told("--update")) << err;
    EXPECT_EQ(2, command(area + "--resume")) << err;
    EXPECT_TRUE(is_told("the project has changed since")) << err;
    write(journal_path, journal + R"({"project": "C:\\other._vp"})" + "\t;\n");
    EXPECT_EQ(2, command(area + "--resume")) << err;
    EXPECT_TRUE(is_told("other._vp")) << err;
    EXPECT_EQ(2, command(area + "--update")) << err;
    EXPECT_TRUE(is_told("other._vp")) << err;
    EXPECT_EQ(" new.resave-journal", made());
    remove_tree(journal_path);

    ASSERT_EQ(0, command(area + "--update --manifest --quiet")) << err;
    EXPECT_FALSE(path_exists(journal_path));
    vestra::project project;
    read_back(output, project);
    const std::vector<reference> copies = references_of(project);
    write(copies[0].path, "what the user made of it");
    write_raster(rasters_[1]);
    tree_state before = all_drives();
    EXPECT_EQ(0, command(area + "--update --dry-run --json")) << err;
    EXPECT_EQ("", difference(before, all_drives()));
    const json plan = json::parse(out);
    EXPECT_EQ(0, command(area + "--update --json")) << err;
    const json run = json::parse(out);
    for (const char* key : {"unchanged", "replaced", "changed_since", "unreferenced"})
        EXPECT_EQ(plan.at(key).size(), run.at(key).size()) << key;
    EXPECT_EQ(2U, run.at("changed_since").size()) << "with the file beside it: " << out;
    EXPECT_EQ(2U, run.at("replaced").size()) << out;
    EXPECT_EQ("what the user made of it", read(copies[0].path));
    EXPECT_EQ(0, command("verify 'N:\\out\\new._vp'")) << out;

    // Without a manifest it is unknown what an existing project was made from.
    const string other = "resave 'C:\\prj\\area._vp' 'N:\\other\\new._vp' ";
    ASSERT_EQ(0, command(other)) << err;
    const tree_state plain = state("other");
    EXPECT_EQ(2, command(other + "--update")) << err;
    EXPECT_EQ(2, command(other + "--update --prune --overwrite")) << err;
    EXPECT_EQ(0, command(other + "--update --overwrite")) << err;
    EXPECT_EQ("", difference(plain, state("other")));

    // Files whose source is lost are kept.
    const wide_string lost = rasters_[2].path;
    const string content = read(lost);
    remove_tree(lost);
    before = state_of(native("n"));
    EXPECT_EQ(1, command(area + "--update --prune")) << err;
    for (const auto& [path, state] : before)
        EXPECT_TRUE(path.ends_with(".json") || path.ends_with("._vp") || state_of(native("n")).contains(path))
            << path;
    write(lost, content);

    // A manifest that lists files that no resave made.
    const wide_string victim = write(u"N:\\victim.tif", "of somebody else"),
                      manifest = u"N:\\out\\new.manifest.json";
    json all = json::parse(read(manifest));
    all["files"].push_back({{"path", "../victim.tif"},
                            {"bytes", read(victim).size()},
                            {"sha256", "0"},
                            {"modified", platform::current_system().status_of(victim).modified}});
    write(manifest, all.dump());
    EXPECT_EQ(0, command(area + "--update --prune")) << err;
    EXPECT_EQ("of somebody else", read(victim));

    // The project itself was changed.
    write(output, read(output) + "\n");
    before = all_drives();
    EXPECT_EQ(2, command(area + "--update")) << err;
    EXPECT_TRUE(is_told("was changed since the earlier resave")) << err;
    EXPECT_EQ("", difference(before, all_drives()));
    EXPECT_EQ(0, command(area + "--update --overwrite")) << err;
}

// Files in the folder of a copy that do not belong to it: each of these was once removed or misread by a
// resave.
TEST_F(update_command, leaves_alone_what_others_have_in_its_folder) {
    const wide_string first = u"C:\\prj\\data\\a.tif", second = u"C:\\prj\\data\\b.tif",
                      folder = u"N:\\out\\data\\";
    const string update = area + "--structure from-project-folder --update ";
    const auto begin = [&](const string& options = "--manifest --quiet") {
        remove_tree(u"C:\\prj\\data");
        rasters_ = {{u"First", first, 0}, {u"Second", second, 0}};
        for (raster& each : rasters_) write_raster(each);
        save();
        EXPECT_EQ(0, command(area + "--structure from-project-folder " + options)) << err;
    };
    const auto copies = [&] {
        tree_state all = state("out");
        all.erase("new._vp");
        all.erase("new.manifest.json"); // it contains times
        return all;
    };
    const auto is_kept = [&](const wide_string& path, const string& content) {
        return path_exists(path) && read(path) == content;
    };

    // A companion with the same bytes that existed before the first copy.
    const wide_string world = u"C:\\prj\\data\\a.tfw", world_there = folder + u"a.tfw";
    const wide_string style = u"C:\\prj\\data\\a.qml", style_there = write(folder + u"a.qml", "style");
    begin("--quiet --dry-run"); // only for the source
    write(style, "style");
    EXPECT_EQ(0, command(area + "--structure from-project-folder --manifest")) << err;
    write(style, "another style");
    EXPECT_EQ(1, command(update)) << err;
    EXPECT_TRUE(is_told("a.qml: could not be copied")) << err;
    rasters_.erase(rasters_.begin());
    save();
    EXPECT_EQ(0, command(update + "--prune")) << err;
    EXPECT_FALSE(path_exists(folder + u"a.tif"));
    EXPECT_TRUE(is_kept(style_there, "style"));

    // Another project in the folder with a file of its own next to it, and one that refers to a copy.
    remove_tree(u"N:\\out");
    begin();
    const wide_string beside = write(folder + u"a.shp", "of another project");
    write_raster(rasters_[0]);
    EXPECT_EQ(0, command(update + "--json")) << err;
    EXPECT_EQ(2U, json::parse(out).at("changed_since").size()) << out;
    EXPECT_TRUE(is_kept(world_there, platform::to_utf8(first) + " 1 world"));
    remove_tree(beside);
    write(u"N:\\out\\mine._vp", R"(<project version="1"><a file="data/b.tif"/></project>)");
    rasters_.pop_back();
    save();
    EXPECT_EQ(0, command(update + "--prune")) << err;
    EXPECT_TRUE(path_exists(folder + u"b.tif") && path_exists(folder + u"b.tfw")) << err;
    EXPECT_TRUE(is_told("something else uses it")) << err;
    write(u"N:\\out\\mine._vp", "no XML");
    EXPECT_EQ(0, command(update + "--prune")) << err;
    EXPECT_TRUE(path_exists(folder + u"b.tif"));

    // A companion of the copy that its source no longer has.
    remove_tree(u"N:\\out");
    begin();
    write_raster(rasters_[0]);
    remove_tree(world);
    EXPECT_EQ(1, command(update)) << err;
    EXPECT_TRUE(is_told("a.tfw: is left from an earlier resave")) << err;
    EXPECT_EQ(0, command(update + "--prune")) << err;
    EXPECT_FALSE(path_exists(world_there));

    // A data set next to a folder with its name.
    remove_tree(u"N:\\out");
    begin("--quiet --dry-run");
    rasters_.push_back({u"Inner", u"C:\\prj\\data\\a\\c.tif", 0});
    write_raster(rasters_.back());
    save();
    EXPECT_EQ(0, command(area + "--structure from-project-folder --manifest")) << err;
    const wide_string index = write(folder + u"a.ovr", "of the user");
    write_raster(rasters_[0]);
    EXPECT_EQ(0, command(update + "--json")) << err;
    EXPECT_EQ(2U, json::parse(out).at("changed_since").size()) << out;
    EXPECT_TRUE(is_kept(index, "of the user"));

    // A disk that is missing during one update, and another project with the same name.
    remove_tree(u"N:\\out");
    begin();
    const tree_state whole = copies();
    ASSERT_TRUE(platform::current_system().rename_over(first, u"C:\\prj\\away.tif"));
    EXPECT_EQ(1, command(update + "--prune")) << err;
    ASSERT_TRUE(platform::current_system().rename_over(u"C:\\prj\\away.tif", first));
    EXPECT_EQ(0, command(update + "--prune")) << err;
    EXPECT_EQ("", difference(whole, copies()));
    builder.save(write(u"C:\\other\\area._vp"));
    const string other = "resave 'C:\\other\\area._vp'" + to;
    EXPECT_EQ(2, command(other + "--update --prune")) << err;
    EXPECT_TRUE(is_told("is a copy of another project: ")) << err;
    EXPECT_EQ("", difference(whole, copies()));

    // A backup that shares its files by hard links, and a plain run over the copy.
    std::filesystem::create_directories(native("n") / "backup");
    for (const char* name : {"a.tif", "a.tfw"})
        std::filesystem::create_hard_link(native("n") / "out/data" / name, native("n") / "backup" / name);
    const tree_state backup = state("backup");
    write_raster(rasters_[0]);
    EXPECT_EQ(0, command(update + "--json")) << err;
    EXPECT_EQ(2U, json::parse(out).at("replaced").size()) << out;
    EXPECT_EQ("", difference(backup, state("backup")));
    EXPECT_EQ(0, command(area + "--overwrite")) << err;
    EXPECT_EQ(0, command("verify 'N:\\out\\new._vp' --manifest")) << out << err;

    // Scene files that the user changed.
    remove_tree(u"N:\\out");
    begin("--manifest --scene-files --quiet");
    const wide_string scene = write(u"N:\\out\\Area._sn", "of the user");
    for (size_t turn = 0; turn < 2; ++turn) EXPECT_EQ(1, command(update + "--scene-files")) << err;
    EXPECT_TRUE(is_kept(scene, "of the user") && is_told("it was changed since the earlier resave")) << err;
}

TEST_F(update_command, is_refused_while_another_run_fills_the_folder) {
    builder.scene_2d(u"Area").layer("rtr_lr2d", u"Relief", write(u"C:\\prj\\a.tif", "a"));
    builder.save(source);
    std::unique_ptr<platform::file> journal; // of a resave of another project
    ASSERT_TRUE(platform::current_system().open(write(u"N:\\out\\other.resave-journal"),
                                                platform::access::read_write,
                                                platform::disposition::open_existing, journal));
    const tree_state before = state("out");
    EXPECT_EQ(2, command(area)) << err;
    EXPECT_TRUE(is_told("other.resave-journal: another resave into this folder is running")) << err;
    EXPECT_EQ("", difference(before, state("out")));
    journal.reset(); // the interrupted run does not matter here
    EXPECT_EQ(0, command(area)) << err;
}

} // namespace
} // namespace vs::project_resave
