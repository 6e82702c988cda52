// Files that a run writes or removes itself are never files of the source, under any name or link.
#include "operations/run_settings.h"
#include "platform/forwarding_system.h"
#include "tests/support/builder_run.h"

namespace vs::project_resave {
namespace {

constexpr const char* map_2d = "vs_scene_layer_meta_id";

class source_guard_run : public builder_run {
protected:
    ~source_guard_run() override { EXPECT_EQ("", difference(before_, original())) << "of the source"; }

    // Takes the current files as the source.
    void keep_source() {
        builder.save(source);
        before_ = sources();
    }
    // Returns the path and new path of each fact of a kind.
    texts told_of(fact_kind wanted) const {
        texts lines;
        for (const fact& each : context->report.facts())
            if (each.kind == wanted) lines.push_back(each.path + u">" + each.new_path);
        return lines;
    }
    // Returns the current state of the files that existed at first.
    tree_state original() const {
        tree_state now = sources();
        std::erase_if(now, [this](const auto& entry) { return !before_.contains(entry.first); });
        return now;
    }
    static void link(const wide_string& file, const wide_string& other) {
        std::filesystem::create_hard_link(platform::native_path(file), platform::native_path(other));
    }

private:
    tree_state before_;
};

TEST_F(source_guard_run, written_files_take_the_next_free_name_next_to_a_source) {
    output = u"C:\\prj\\new._vp";
    settings.save_layer_files = settings.save_scene_files = settings.write_log = true;
    const auto file = [](const wide_string& name) { return write(u"C:\\prj\\" + name, "precious"); };
    builder.scene_2d(u"S").save_scene(u"C:\\prj\\S._sn");
    builder.layer(map_2d, u"map", u"C:\\prj\\S._sn").layer("rtr_lr2d", u"Data", file(u"big._lr"));
    builder.layer("rtr_lr2d", u"big", file(u"big.tif")).layer("rtr_lr2d", u"log", file(u"new_log.txt"));
    builder.layer("rtr_lr2d", u"load log", file(u"area_last_resave_open_log.txt"));
    write(u"C:\\prj\\Data._lr", "of somebody");
    keep_source();
    ASSERT_TRUE(context->load_project(source, false, true));
    resave();
    EXPECT_EQ(
        (texts{u"C:\\prj\\area_last_resave_open_log.txt>C:\\prj\\area_last_resave_open_log_(1).txt",
               u"C:\\prj\\new_log.txt>C:\\prj\\new_log_(1).txt", u"C:\\prj\\big._lr>C:\\prj\\big_(1)._lr",
               u"C:\\prj\\S._sn>C:\\prj\\S_(1)._sn", u"C:\\prj\\S._sn>C:\\prj\\S_(2)._sn"}),
        told_of(fact_kind::renamed));
    EXPECT_EQ((texts{u">C:\\prj\\Data._lr"}), told_of(fact_kind::written_over));
    EXPECT_TRUE(read(u"C:\\prj\\S_(1)._sn").starts_with("<"));
    EXPECT_EQ("precious", read(u"C:\\prj\\rtr\\big._lr"));
    write(u"C:\\prj\\Data._lr", "of somebody");
    keep_source();
}

TEST_F(source_guard_run, no_project_or_text_replaces_a_source_under_any_name) {
    write(u"C:\\data\\a.shp");
    write(u"C:\\data\\a.dbf");
    write(u"C:\\data\\joined.dbf");
    write(u"C:\\data\\owners.cpg");
    write(u"C:\\data\\set\\inner");
    builder.scene_2d(u"S").layer("shp_pln_lr2d", u"A", u"C:\\data\\a.shp").join(u"C:\\data\\joined.dbf");
    builder.layer("petrel_grid_lr2d", u"Folder", u"C:\\data\\set").layer("odd", u"Odd", write(u"C:\\x.odd"));
    builder.table(u"T", u"C:\\data\\t.dbf").join(u"C:\\data\\owners.dbf");
    write(u"C:\\data\\a.cpg", "UTF-8");
    keep_source();
    std::filesystem::create_directories(native("c") / "links");
    link(source, u"C:\\links\\hard._vp");
    link(u"C:\\data\\a.cpg", u"C:\\links\\page.cpg");
    load();
    for (const char16_t* path : {u"C:\\prj\\.\\AREA._vp", u"C:\\links\\hard._vp", u"C:\\data\\a.shp",
                                 u"C:\\data\\a.cpg", u"C:\\links\\page.cpg", u"C:\\data\\joined.dbf",
                                 u"C:\\data\\owners.cpg", u"C:\\data\\set\\inner", u"C:\\x.odd"}) {
        SCOPED_TRACE(platform::to_utf8(path));
        const wide_string taken = path;
        settings.output_path = &taken;
        script.events.clear();
        EXPECT_EQ(run_end::refused, context->resave_project(settings).end);
        EXPECT_EQ((texts{load_string(text::same_project_name)}), errors());
        script.events.clear();
        structure_settings text;
        text.output_path = path;
        EXPECT_EQ(run_end::refused, context->save_structure(text).end);
        EXPECT_EQ(run_end::refused, context->check_path_case(path).end);
        const wide_string refused = load_string(text::source_file_kept) + u"\n" + path;
        EXPECT_EQ((texts{refused, refused}), errors());
    }
}

// Programs that read a folder as one data set read everything in it.
TEST_F(source_guard_run, no_copy_is_placed_in_a_folder_that_is_one_data_set) {
    write(u"C:\\data\\blocks\\inner");
    write(u"C:\\prj\\g\\g.val");
    builder.scene_2d(u"S"); // the last layer is copied first
    builder.layer("rtr_lr2d", u"1", write(u"C:\\prj\\data\\blocks\\1.tif"));
    builder.layer("rtr_lr2d", u"2", write(u"C:\\prj\\data\\blocks\\2.tif"));
    builder.layer("grid_lr2d", u"Folder", u"C:\\data\\blocks");
    builder.layer("grid_lr2d", u"Grid", write(u"C:\\prj\\g\\g.pgrid"));
    builder.layer("rtr_lr2d", u"3", write(u"D:\\g\\3.tif"));
    keep_source();
    settings.structure_variant = from_project_folder;
    load();
    resave();
    EXPECT_EQ((std::vector<std::string>{"data/blocks/inner", "data/blocks_(1)/1.tif", "data/blocks_(1)/2.tif",
                                        "g/3.tif", "g_(1)/g_(1).pgrid", "g_(1)/g_(1).val"}),
              files());
    output = u"C:\\prj\\g\\new._vp";
    load();
    EXPECT_EQ(run_end::refused, context->resave_project(settings).end) << "into the grid";
}

TEST_F(source_guard_run, the_log_of_a_load_does_not_pass_for_a_lost_source) {
    const wide_string log = src(u"area_last_resave_open_log.txt"), lost = u"C:\\data\\lost.tif";
    builder.scene_2d(u"S").layer("rtr_lr2d", u"Lost", lost).layer("rtr_lr2d", u"Log", log);
    std::error_code no_links; // by name, which not every system offers
    std::filesystem::create_directories(native("c") / "data");
    for (const bool is_link : {false, true}) {
        if (is_link)
            std::filesystem::create_symlink(platform::native_path(lost), platform::native_path(log),
                                            no_links);
        keep_source();
        ASSERT_TRUE(context->load_project(source, false, true));
        EXPECT_FALSE(path_exists(lost) || path_exists(log));
        EXPECT_EQ(1U, told_of(fact_kind::renamed).size());
        EXPECT_FALSE(read(path_add_to_stem(log, u"_(1)")).empty());
    }
}

TEST_F(source_guard_run, only_scene_files_that_would_replace_a_source_are_refused) {
    write(u"C:\\maps\\Maps._sn");
    builder.scene_2d(u"Maps").save_scene(u"C:\\maps\\Maps._sn");
    builder.layer(map_2d, u"map", u"C:\\maps\\Maps._sn").scene_2d(u"\\..\\..\\Out").scene_2d(u"a\\..\\In");
    keep_source();
    load();
    std::filesystem::create_directories(native("c") / "maps" / "a");
    context->placement.new_project_path = u"C:\\maps";
    scene_file_settings wanted;
    wanted.folder = u"C:\\maps";
    const run_result result = context->create_scene_files(wanted);
    EXPECT_EQ((texts{load_string(text::source_file_kept) + u"\nC:\\maps\\Maps._sn"}), errors());
    EXPECT_EQ((texts{u">C:\\maps\\Maps._sn"}), told_of(fact_kind::not_written));
    EXPECT_FALSE(result.written);
    EXPECT_TRUE(path_exists(u"C:\\maps\\In._sn"));
    EXPECT_FALSE(path_exists(u"C:\\Out._sn"));
}

TEST_F(source_guard_run, a_stop_erases_what_the_run_made_and_reports_other_content) {
    write(u"C:\\data\\a.shp");
    builder.scene_2d(u"S").layer("shp_pln_lr2d", u"A", u"C:\\data\\a.shp");
    builder.layer("rtr_lr2d", u"R", write(u"C:\\data\\r.tif")); // copied first
    keep_source();
    write(u"N:\\out\\new_log.txt", "of an earlier run");
    load();
    struct : forwarding_system {
        platform::outcome copy_file(const wide_string& from, const wide_string& to, bool replace) override {
            if (to.ends_with(u"a.shp")) remove_tree(u"N:\\out\\rtr"); // there is nothing left to erase
            if (to.ends_with(u"a.shp")) write(u"N:\\out\\shp\\mine.txt", "of somebody");
            return forwarding_system::copy_file(from, to, replace);
        }
    } somebody;
    const platform::system_override in_force(somebody);
    resave();
    script.stop_at_poll = script.polls - 1;
    for (const wide_string made : {u"N:\\out\\shp", u"N:\\out\\new._vp"}) remove_tree(made);
    load();
    script.answers = {answer::yes};
    resave();
    EXPECT_TRUE(context->report.stopped);
    EXPECT_EQ((std::vector<std::string>{"new_log.txt", "shp/mine.txt"}), files());
    EXPECT_EQ((texts{u">N:\\out\\shp\\"}), told_of(fact_kind::not_erased));
}

TEST_F(source_guard_run, a_scene_file_does_not_replace_the_copy_of_a_map_scene) {
    write(u"C:\\maps\\Area._sn");
    builder.scene_2d(u"Signs").layer("rtr_lr2d", u"R", write(u"C:\\r.tif")).save_scene(u"C:\\maps\\Area._sn");
    builder.clear();
    builder.scene_2d(u"Area").layer(map_2d, u"map", u"C:\\maps\\Area._sn").scene_2d(u"B");
    builder.scene_2d(u"B");
    keep_source();
    settings.save_scene_files = true;
    load();
    resave();
    EXPECT_EQ("Area: map=Area._sn\nB:\nB:\n", outline());
    EXPECT_EQ("Signs: R=rtr\\r.tif\n", scene_outline(u"N:\\out\\Area._sn"));
    EXPECT_EQ((texts{u"N:\\out\\Area._sn>N:\\out\\Area_(1)._sn"}), told_of(fact_kind::renamed));
    EXPECT_EQ((texts{u">N:\\out\\B._sn"}), told_of(fact_kind::written_over)) << "two of one caption";
}

// The join is restored after the scene file was written.
TEST_F(source_guard_run, a_table_in_the_scene_of_a_map_layer_keeps_its_joins) {
    for (const char16_t* file : {u"C:\\data\\a.shp", u"C:\\data\\a.dbf", u"C:\\data\\joined.dbf"})
        write(file);
    write(u"C:\\maps\\m._sn");
    builder.scene_2d(u"Map").layer("shp_pln_lr2d", u"A", u"C:\\data\\a.shp").join(u"C:\\data\\joined.dbf");
    builder.save_scene(u"C:\\maps\\m._sn");
    builder.clear();
    builder.scene_2d(u"S").layer(map_2d, u"map", u"C:\\maps\\m._sn");
    settings.save_layer_files = true;
    keep_source();
    load();
    resave();
    EXPECT_EQ("Map: A=shp\\a.shp+shp\\a.dbf>dbf\\joined.dbf\n", scene_outline(u"N:\\out\\m._sn"));
    EXPECT_NE(std::string::npos, read(u"N:\\out\\A._lr").find("join source=\"dbf\\joined.dbf\""));
}

} // namespace
} // namespace vs::project_resave
