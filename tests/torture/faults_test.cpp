// The n-th call of each kind fails, for every n, from the load to the end of a run; the disk is full from the
// n-th call on; and sources change in the meantime. In every case the source is unchanged, and what is
// missing is reported.
#include <atomic>
#include <thread>

#include "tests/support/faulty_system.h"
#include "tests/torture/generated_area.h"

namespace vs::project_resave {
namespace {

// A file for which these fail does not exist for any code.
const faulty_system::kinds unseen{"kind", "list", "open to read", "read"};

// True for the sample, false for the generated project; and the structure.
using area = std::pair<bool, uint32_t>;

class every_fault : public torture::runs, public testing::WithParamInterface<area> {
protected:
    void SetUp() override {
        if (GetParam().first)
            copy_sample();
        else
            torture::write_generated_area(source, 100, write);
        settings.structure_variant = static_cast<project_resave::structure>(GetParam().second);
        settings.write_log = settings.save_scene_files = settings.save_layer_files = true;
        before_ = sources();
        for (const auto& [path, state] : before_)
            faulty_system::kept.insert(path_key(platform::from_utf8(path)));
        run();
        ASSERT_TRUE(context->report.saved);
        before_run = torture::descriptors();
        polls_ = script.polls;
        clean_astray_ = astray();
        clean_ = placed(&placed_file::old_path);
        clean_told_ = told_text().size();
    }

    void TearDown() override { faulty_system::kept.clear(); }

    // Runs it undisturbed, and then with the n-th such call failing, or all calls from it on, for as many
    // numbers as requested, spread over all calls.
    size_t strike(const faulty_system::kinds& kinds, bool once, wide_view below,
                  const std::function<void(faulty_system&)>& action) const {
        faulty_system counting(kinds, 0, 0, wide_string(below));
        action(counting);
        EXPECT_LT(0U, counting.count) << *kinds.begin() << ": no run makes such a call";
        size_t tried = 0;
        // The first fault after which something is wrong says enough.
        for (size_t at = 1; at <= counting.count && !HasFailure();
             at += torture::stride(counting.count), ++tried) {
            SCOPED_TRACE(std::string(*kinds.begin()) + ' ' + std::to_string(at));
            faulty_system faults(kinds, at, once ? at : SIZE_MAX, wide_string(below));
            action(faults);
            EXPECT_FALSE(faults.failed.empty());
        }
        return tried;
    }
    size_t strike_run(const faulty_system::kinds& kinds, bool once, wide_view below = {}) {
        return strike(kinds, once, below, [&](faulty_system& faults) {
            const bool loaded = run(faults);
            const wide_string first = faults.failed.empty() ? wide_string() : faults.failed.front();
            SCOPED_TRACE(platform::to_utf8(first));
            EXPECT_FALSE(context->project);
            expect_nothing_left();
            EXPECT_EQ("", difference(before_, sources()));
            const bool saved = loaded && context->report.saved;
            EXPECT_EQ(saved ? std::vector<wide_string>()
                            : std::vector{load_string(loaded ? text::project_not_saved
                                                             : text::failed_to_load_project)},
                      errors());
            EXPECT_TRUE(saved || read(u"N:\\out\\new_log.txt").find("Project saved") == std::string::npos);
            if (saved) expect_all_there_or_told(unseen.contains(*kinds.begin()));
            // For a file in a folder, the file that the folder belongs to is reported.
            EXPECT_TRUE(*kinds.begin() != "copy" || !once || is_told(path_file_name(first)) ||
                        told_text().size() > clean_told_ || !saved);
            const bool is_lost = std::string_view(*kinds.begin()).ends_with("write");
            EXPECT_TRUE(!is_lost || first != context->placement.log_path || !context->log.failure());
            for (const auto& [path, state] : state_of(native("n") / "out"))
                EXPECT_TRUE(!loaded || (path.find(".new1") == std::string::npos &&
                                        path.find(".tmp") == std::string::npos))
                    << path;
        });
    }
    // A companion that cannot be seen counts as missing. Files of a map's scene that could not be read or
    // seen stay where they were; the map is reported by its file or caption.
    void expect_all_there_or_told(bool is_unseen) const {
        expect_there_or_told([this](const wide_string& path, const wide_string&) {
            const bool is_map_told = is_told(u"._sn\n") || is_told(u"Overview map");
            return clean_astray_.contains(path) || (is_map_told && !path.starts_with(u"N:"));
        });
        const auto sources = placed(&placed_file::old_path);
        for (const wide_string& path : clean_)
            EXPECT_TRUE(is_unseen || sources.contains(path) || names_family(told_text(), path))
                << "not copied and nothing told: " << platform::to_utf8(path);
    }

    tree_state before_;
    size_t polls_ = 0; // of a run that nothing disturbs

private:
    std::map<wide_string, wide_string> clean_astray_;
    std::set<wide_string> clean_;
    size_t clean_told_ = 0;
};

TEST_P(every_fault, leaves_the_source_whole_and_reports_what_is_missing) {
    size_t tried = 0;
    for (const char* const call : faulty_system::calls) tried += strike_run({call}, true);
    torture::count("faults", tried);
}

// A run is stopped when everything is written, and erases it. A file that still exists is reported by its own
// path, that of its folder, or that of a file in it.
TEST_P(every_fault, of_an_erasure_reports_what_still_exists) {
    size_t tried = 0;
    script.stop_at_poll = polls_;
    for (const char* const call : {"delete", "remove folder"})
        tried += strike({call}, true, u"N:", [&](faulty_system& faults) {
            script.polls = 0;
            script.answers = {answer::yes, answer::no};
            EXPECT_TRUE(run(faults) && context->report.stopped);
            expect_nothing_left();
            EXPECT_EQ("", difference(before_, sources()));
            std::set<wide_string> told;
            for (const fact& each : context->report.facts())
                for (wide_string place = path_key(each.new_path);
                     each.kind == fact_kind::not_erased && !place.empty(); place = path_key(path_head(place)))
                    told.insert(place);
            for (const auto& [path, state] : state_of(native("n") / "out")) {
                const wide_string place = path_key(u"N:\\out\\" + platform::from_utf8(path));
                EXPECT_TRUE(told.contains(place)) << "stands and is not told: " << path;
            }
        });
    torture::count("faults of an erasure", tried);
}

// A name that cannot be looked up counts as spelled correctly.
TEST_P(every_fault, of_a_case_check_leaves_all_as_it_was) {
    const wide_string text = u"N:\\out\\case.txt";
    strike({"name"}, true, {}, [&](faulty_system& faults) {
        clear();
        load();
        const platform::system_override in_force(faults);
        EXPECT_TRUE(context->check_path_case(text));
        EXPECT_EQ(context->case_differs, !read(text).empty());
        EXPECT_EQ("", difference(before_, sources()));
    });
}

// The disk is that of the target.
TEST_P(every_fault, of_a_full_disk_is_reported_wherever_it_begins) {
    torture::count("full disks", strike_run(faulty_system::disk_full, false, u"N:"));
}

INSTANTIATE_TEST_SUITE_P(areas, every_fault,
                         testing::Values(area(true, by_type), area(true, from_common_top),
                                         area(true, folder_per_scene), area(false, by_type),
                                         area(false, folder_per_scene)));

namespace fs = std::filesystem;

class disturbed_runs : public torture::runs {
protected:
    disturbed_runs() { torture::write_generated_area(source, 100, write); }
};

// Removes the source of every third copy right before it is made.
struct thief final : forwarding_system {
    platform::outcome copy_file(const wide_string& from, const wide_string& to, bool replace) override {
        if (++count % 3 == 0) {
            gone.push_back(from);
            fs::remove(platform::native_path(from));
        }
        return forwarding_system::copy_file(from, to, replace);
    }
    size_t count = 0;
    texts gone;
};

TEST_F(disturbed_runs, sources_that_vanish_one_by_one_are_each_named) {
    load();
    thief disturber;
    const platform::system_override in_force(disturber);
    resave();
    EXPECT_TRUE(context->report.saved);
    EXPECT_LT(10U, disturber.gone.size());
    for (const wide_string& path : disturber.gone)
        EXPECT_TRUE(is_told(path_file_name(path)) || path.find(u"\\w\\") != wide_string::npos)
            << platform::to_utf8(path);
}

TEST_F(disturbed_runs, sources_that_change_meanwhile_are_copied_whole_or_reported) {
    for (const bool grows : {true, false}) {
        const wide_string path = u"C:\\data\\a\\a.shp";
        const fs::path file = platform::native_path(path);
        write(path, std::string(8 << 20, 'x'));
        clear();
        load();
        std::atomic<bool> is_over = false;
        std::thread other([&] {
            std::error_code failed; // while it is being read, unless the system lets others write then
            for (size_t size = 8 << 20; !is_over && size > 4096 && size < 64 << 20;
                 size = fs::file_size(file))
                fs::resize_file(file, size + (grows ? 4096 : -4096), failed);
        });
        resave();
        is_over = true;
        other.join();
        const std::string copy = read(context->placement.lookup_placed(path));
        EXPECT_EQ(copy.empty(), is_told(u"a.shp"));
        EXPECT_EQ(0U, copy.size() % 4096);
        EXPECT_TRUE(context->report.saved);
    }
}

} // namespace
} // namespace vs::project_resave
