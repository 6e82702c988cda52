// The sample project under each folder structure: which file goes where, and that the copy is self-contained.
#include "tests/operations/broken_run.h"
#include "tests/support/references_of.h"

namespace vs::project_resave {
namespace {

using names = std::set<wide_string>;

class sample : public broken_run, public testing::WithParamInterface<uint32_t> {
protected:
    void SetUp() override {
        copy_sample();
        settings.structure_variant = static_cast<project_resave::structure>(GetParam());
        if (GetParam() == folder_per_scene)
            kept_as_they_are.insert(
                {u"Well P-101", u"Profile of P-102", u"Section 1"}); // wells are not copied
        else
            kept_as_they_are.insert(u"Page A3"); // it gets a new path, but is not copied
    }

    void move(const char* drive, const char* from, const char* to) const {
        std::filesystem::rename(native(drive) / from, native(drive) / to);
    }
    // Returns the captions of elements of the new project in `folder` with a broken reference.
    static names astray(const wide_string& folder) {
        vestra::project project;
        read_back(folder + u"new._vp", project);
        const std::vector<reference> references = references_of(project);
        EXPECT_LT(50U, references.size());
        names owners;
        for (const reference& each : references)
            if (!platform::folded(each.path).starts_with(platform::folded(folder)) || !path_exists(each.path))
                owners.insert(each.owner);
        return owners;
    }

    // Returns the result of a run without its files.
    std::string told_of_run() const {
        const std::string all = outcome();
        return all.substr(all.find('\n'));
    }

    // Compares a text with the committed one of this structure.
    static void expect_lines(const std::string& what, const std::string& found) {
        const std::string name = "sample_" + what + "_" + std::to_string(GetParam()) + ".txt";
        EXPECT_EQ("", first_difference(committed("tests/operations/expected/" + name), found)) << name;
    }

    names kept_as_they_are{u"Old survey", u"Profile lines", u"Monthly report"}; // lost, not moved, no unit
};

TEST_P(sample, follows_the_structure_and_is_self_contained_once_moved) {
    const tree_state before = target();
    load_and_resave();
    EXPECT_EQ((texts{u"Resave processing error:\n\nLayers is not resaving:\nwfs_pnt_lr2d\n\n"
                     u"Overview:\nLost files Old survey\n"}),
              script.texts(kind::warning));
    expect_whole_copies(before);
    std::string all;
    for (const std::string& path : files()) all += path + '\n';
    expect_lines("in_structure", all + told_of_run());
    EXPECT_EQ(kept_as_they_are, astray(u"N:\\out\\"));
    move("n", "out", "moved");
    move("c", "prj", "prj away");
    move("c", "data", "data away");
    move("d", "gis", "gis away");
    EXPECT_EQ(kept_as_they_are, astray(u"N:\\moved\\"));
}

// In the second run the names are taken by the first one. So a member whose name does not begin with that of
// its data set is blocked by its own earlier copy.
TEST_P(sample, is_copied_in_lower_case_without_what_is_left_out) {
    settings.lower_case = true;
    std::string all;
    for (const bool is_second : {false, true}) {
        SCOPED_TRACE(is_second);
        remove_tree(output);
        const tree_state before = target();
        load();
        for (const wide_string uuid : {u"7865b2c7-7eaa-53c4-919d-e635d883acd4",  // Roads of the first scene
                                       u"c8e6c8ae-7dbd-58e2-b228-6fbc008fd40f",  // Section 1
                                       u"8b3114a0-1418-5ecb-a9e1-193e0fa08b1c"}) // Owners, joined to Deposits
            (*context->units.find(uuid))->set_selected(false);
        resave();
        expect_whole_copies(before);
        EXPECT_EQ(kept_as_they_are, astray(u"N:\\out\\"));
        all += std::to_string(files().size()) + " files" + told_of_run();
    }
    expect_lines("lower_case", all);
}

// With files that are lost, cannot be copied, cannot be read, or whose targets are taken.
TEST_P(sample, logs_and_reports_failures_in_the_committed_words) {
    settings.write_log = settings.save_scene_files = settings.save_layer_files = true;
    settings.delete_lost_sources = true;
    for (const char* lost :
         {"prj/maps/roads.shp", "data/tables/owners.dbf", "data/tos/base_c1.tod", "data/shp3d/contact.shx"})
        std::filesystem::remove(native("c") / lost);
    for (const wide_string taken : {u"shp\\Lake.shp", u"dbf", u"vector\\faults.geojson", u"relief.tif"})
        write(path_head(output) + taken);
    write(u"C:\\prj\\model\\map_base.tos", "no such format");
    wide_string message; // more lines than a box takes
    on_dialog = [&](const dialog_view& shown) {
        message = find(shown, u"multiline_output")->text;
        return 1;
    };
    load_and_resave();
    std::string all = platform::to_utf8(message) + "--\n";
    for (const auto& [shown, text] : told()) all += platform::to_utf8(text) + "\n--\n";
    all += read(u"N:\\out\\new_log.txt");
    expect_lines("failures", all);
}

INSTANTIATE_TEST_SUITE_P(structures, sample, testing::Range(0U, 5U));

} // namespace
} // namespace vs::project_resave
