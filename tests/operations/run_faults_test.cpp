// One fault of the system at a time, at every place of a run where it can strike.
#include <new>

#include "tests/operations/broken_run.h"
#include "tests/support/forwarding_system.h"

namespace vs::project_resave {
namespace {

// Fails one copy, told by its number from 1, or breaks off there; notes the sources of all.
class faulty_copies final : public forwarding_system {
public:
    bool copy_file(const wide_string& from, const wide_string& to, bool replace) override {
        sources.push_back(from);
        if (sources.size() != at) return forwarding_system::copy_file(from, to, replace);
        if (breaks_off) throw std::bad_alloc();
        return false;
    }
    size_t at = 0;
    bool breaks_off = false;
    std::vector<wide_string> sources;
};

// Breaks off when it is asked what stands under a path for the n-th time, from 1.
class exhausted final : public forwarding_system {
public:
    explicit exhausted(size_t n) : left(n) {}
    platform::entry_kind kind_of(const wide_string& path) override {
        if (left > 0 && --left == 0) throw std::bad_alloc();
        return forwarding_system::kind_of(path);
    }
    size_t left;
};

struct full_disk final : forwarding_system {
    bool rename_over(const wide_string&, const wide_string&) override { return false; }
};

class run_faults : public broken_run {
protected:
    run_faults() {
        make_small_project();
        small.save(source);
    }
    // A run into an empty folder; the sources of its copies.
    std::vector<wide_string> run(size_t fault_at, bool breaks_off = false) {
        remove_tree(u"N:\\out");
        write(u"N:\\out\\new_log.txt");
        settings.write_log = true;
        load();
        faulty_copies faults;
        faults.at = fault_at;
        faults.breaks_off = breaks_off;
        const platform::system_override in_force(faults);
        resave();
        return faults.sources;
    }
};

TEST_F(run_faults, a_copy_that_fails_is_named_in_report_and_log_and_all_others_are_made) {
    const std::vector<wide_string> all = run(0);
    ASSERT_EQ(16U, all.size());
    EXPECT_TRUE(context->report.problems.empty());
    for (size_t at = 1; at <= all.size(); ++at) {
        const wide_string& failed = all[at - 1];
        SCOPED_TRACE(platform::to_utf8(failed));
        // There is no .tfr without the .tfw, and no folder without its well.
        const bool takes_one_along = failed == u"C:\\data\\r.tfw" || failed == u"C:\\data\\w.wel";
        EXPECT_EQ(all.size(), run(at).size() + (takes_one_along ? 1 : 0));
        ASSERT_EQ(1U, context->report.problems.size());
        // Of a well's folder the report names the well, and the log the folder.
        const bool is_in_folder = failed == u"C:\\data\\w\\logs\\1.las";
        const wide_string reported = is_in_folder ? u"w.wel" : path_file_name(failed);
        const wide_string logged = is_in_folder ? u"C:\\data\\w" : failed;
        EXPECT_EQ(u"Copy error " + reported + u"\n", context->report.problems[0].text);
        EXPECT_NE(std::string::npos,
                  read(u"N:\\out\\new_log.txt")
                      .find("Failure copying file: \r\n" + platform::to_utf8(logged) + "\r\n \n"));
        EXPECT_TRUE(context->report.saved);
        vestra::project copy;
        read_back(output, copy);
        EXPECT_EQ(u"N:\\out\\shp\\a.shp", copy.scenes_2d.at(0)->at(0)->file);
        EXPECT_EQ(u"N:\\out\\dbf\\joined.dbf", copy.tables.at(0)->joins.at(0).other_source);
    }
}

TEST_F(run_faults, a_run_that_breaks_off_leaves_nothing_loaded_and_the_next_one_works) {
    const size_t copies = run(0).size();
    for (size_t at = 1; at <= copies; ++at) {
        SCOPED_TRACE(at);
        settings.structure_variant = at % 2 == 0 ? folder_per_scene : by_type;
        if (run(at, true).size() < at) continue; // no tables there
        EXPECT_EQ((std::vector<front::event>{{kind::error, load_string(509)}}), told());
        expect_nothing_left_over();
        EXPECT_FALSE(path_exists(output));
    }
    settings.structure_variant = folder_per_scene; // in which wells have no part
    run(1, true);
    settings.structure_variant = by_type;
    EXPECT_EQ(copies, run(0).size());
    EXPECT_TRUE(context->report.saved);
}

TEST_F(run_faults, a_load_that_breaks_off_is_told_and_leaves_nothing_and_the_next_one_is_whole) {
    vestra::scene map(vestra::dimension::flat);
    map.make_layer("rtr_lr2d").file = u"C:\\data\\r.tif";
    ASSERT_FALSE(vestra::files::write_scene(u"C:\\prj\\m._sn", map));
    project_builder().scene_2d(u"S").layer("vs_scene_layer_meta_id", u"M", u"C:\\prj\\m._sn").save(source);
    load();
    const uint32_t steps = context->total_units;
    EXPECT_EQ(1U, steps);
    for (size_t at = 1, left = 0; left == 0; ++at) {
        script.events.clear();
        exhausted faults(at);
        const platform::system_override in_force(faults);
        const bool loaded = context->load_project(source, true, false);
        left = faults.left;
        if (!loaded) {
            EXPECT_EQ((std::vector<wide_string>{load_string(500)}), errors());
            EXPECT_FALSE(context->project);
            EXPECT_TRUE(context->tree.empty() && context->units.empty());
            EXPECT_EQ(0, context->sizes.total_kb());
        }
        faults.left = 0;
        load();
        EXPECT_EQ(steps, context->total_units);
    }
}

TEST_F(run_faults, a_project_that_cannot_be_written_is_told_and_the_copies_stay) {
    load();
    full_disk faults;
    const platform::system_override in_force(faults);
    resave();
    EXPECT_EQ((std::vector<front::event>{{kind::error, load_string(509)}, {kind::yes_no, load_string(528)}}),
              told());
    EXPECT_FALSE(path_exists(output));
    EXPECT_TRUE(path_exists(u"N:\\out\\shp\\a.shp") && path_exists(u"N:\\out\\dbf\\joined.dbf"));
}

} // namespace
} // namespace vs::project_resave
