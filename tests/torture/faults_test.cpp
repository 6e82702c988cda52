// The n-th call of each kind fails, for every n, from the load to the end of a run; and the disk is full from
// the n-th call on. Whatever fails, the source is as it was, and what is missing is told.
#include "core/paths.h"
#include "framework/strings.h"
#include "tests/support/faulty_system.h"
#include "tests/torture/generated_area.h"
#include "tests/torture/torture.h"

namespace vs::project_resave {
namespace {

using call = faulty_system::call;

// What these fail to see is not there for anybody.
const faulty_system::kinds unseen{call::kind, call::list, call::open_to_read, call::read};

struct area {
    const char* name;
    uint32_t structure;
    bool is_sample;
};
void PrintTo(const area& shown, std::ostream* out) { *out << shown.name; }

class every_fault : public torture::runs, public testing::WithParamInterface<area> {
protected:
    void SetUp() override {
        if (GetParam().is_sample)
            copy_sample();
        else
            torture::write_generated_area(source, 100, write);
        settings.structure_variant = GetParam().structure;
        settings.write_log = settings.save_scene_files = settings.save_layer_files = true;
        before_ = sources();
        faulty_system none({});
        run(none);
        ASSERT_TRUE(context->report.saved);
        before_run = torture::descriptors();
        polls_ = script.polls;
        clean_astray_ = astray();
        for (const placed_file& file : context->placement.placed) clean_.insert(path_key(file.old_path));
        clean_told_ = told_text().size();
    }

    // From the load to the end; false if it was not loaded.
    bool run(faulty_system& faults) {
        clear();
        script.events.clear();
        const platform::system_override in_force(faults);
        if (!context->load_project(source, false, false)) return false;
        resave();
        return true;
    }
    void expect_order(bool loaded, bool is_unseen) {
        EXPECT_FALSE(context->project);
        expect_nothing_left();
        EXPECT_EQ("", difference(before_, sources()));
        const bool saved = loaded && context->report.saved;
        EXPECT_TRUE(saved || read(u"N:\\out\\new_log.txt").find("Project saved") == std::string::npos);
        EXPECT_EQ(saved ? std::vector<wide_string>() : std::vector{load_string(loaded ? 509 : 500)},
                  errors());
        if (!loaded) return;
        expect_all_there_or_told(is_unseen);
    }
    // A companion that cannot be seen counts as absent.
    void expect_all_there_or_told(bool is_unseen) {
        std::set<wide_string> placed;
        for (const placed_file& file : context->placement.placed) placed.insert(path_key(file.old_path));
        expect_copies();
        if (context->report.saved) {
            for (const auto& [path, owner] : astray())
                EXPECT_TRUE(clean_astray_.contains(path) || names_original(told_text(), path) ||
                            (!owner.empty() && is_told(owner)) || is_shown_by_unread_map(path))
                    << "refers to " << platform::to_utf8(path) << " of " << platform::to_utf8(owner);
            for (const wide_string& path : clean_)
                EXPECT_TRUE(is_unseen || placed.contains(path) || names_family(told_text(), path))
                    << "not copied and nothing told: " << platform::to_utf8(path);
        }
        for (const auto& [path, state] : state_of(native("n") / "out"))
            EXPECT_TRUE(path.find(".new1") == std::string::npos && path.find(".tmp") == std::string::npos)
                << path;
    }
    size_t strike(const faulty_system::kinds& kinds, const char* name, size_t length) {
        const wide_string below = length == SIZE_MAX ? u"N:" : u""; // a full disk is that of the target
        faulty_system counting(kinds, 0, 0, below);
        run(counting);
        EXPECT_LT(0U, counting.count) << name << ": no run makes such a call";
        size_t tried = 0;
        for (size_t at = 1; at <= counting.count; at += torture::stride(counting.count)) {
            faulty_system faults(kinds, at, length == SIZE_MAX ? SIZE_MAX : at + length - 1, below);
            const bool loaded = run(faults);
            const wide_string first = faults.failed.empty() ? wide_string() : faults.failed.front();
            SCOPED_TRACE(std::string(name) + ' ' + std::to_string(at) + ' ' + platform::to_utf8(first));
            EXPECT_FALSE(faults.failed.empty());
            expect_order(loaded, unseen.contains(*kinds.begin()));
            // What lies in a folder is told by the file that the folder goes with.
            EXPECT_TRUE(*kinds.begin() != call::copy || length != 1 || is_told(path_file_name(first)) ||
                        told_text().size() > clean_told_ || !context->report.saved);
            ++tried;
        }
        return tried;
    }

    // What such a map shows stays where it was; the map is told.
    bool is_shown_by_unread_map(const wide_string& path) const {
        return is_told(u"._sn\n") && !path.starts_with(u"N:");
    }

    // A run that is stopped when all is written, and is to erase it; what still stands is told, by itself or
    // by the folder that it stands in.
    size_t strike_erasure(call kind) {
        const size_t last_poll = polls_;
        size_t tried = 0;
        for (size_t at = 1, count = 1; at <= count; at += torture::stride(count)) {
            faulty_system faults({kind}, at, at, u"N:");
            script.polls = 0;
            script.stop_at_poll = last_poll;
            script.answers = {answer::yes, answer::no};
            EXPECT_TRUE(run(faults) && context->report.stopped);
            count = faults.count;
            EXPECT_LT(0U, count);
            expect_nothing_left();
            EXPECT_EQ("", difference(before_, sources()));
            std::set<wide_string> told;
            for (const wide_string& path : context->report.not_erased) told.insert(path_key(path));
            for (const auto& [path, state] : state_of(native("n") / "out")) {
                wide_string place = path_key(u"N:\\out\\" + platform::from_utf8(path));
                while (!told.contains(place) && !place.empty()) place = path_key(path_head(place));
                EXPECT_FALSE(place.empty()) << "stands and is not told: " << path;
            }
            ++tried;
        }
        script.stop_at_poll = 0;
        script.answers.clear();
        return tried;
    }

    tree_state before_;

private:
    size_t polls_ = 0; // of a run that nothing disturbs
    std::map<wide_string, wide_string> clean_astray_;
    std::set<wide_string> clean_;
    size_t clean_told_ = 0;
};

TEST_P(every_fault, leaves_the_source_whole_and_tells_what_is_missing) {
    size_t tried = 0;
    for (const auto& [kind, name] : faulty_system::calls) tried += strike({kind}, name, 1);
    torture::count("faults", tried);
}

TEST_P(every_fault, of_an_erasure_is_told_by_what_still_stands) {
    size_t tried = 0;
    for (const call kind : {call::delete_file, call::remove_folder, call::list})
        tried += strike_erasure(kind);
    torture::count("faults of an erasure", tried);
}

// A name that cannot be asked for counts as spelled right.
TEST_P(every_fault, of_a_case_check_leaves_all_as_it_was) {
    const wide_string text = u"N:\\out\\case.txt";
    for (size_t at = 1, count = 1; at <= count; at += torture::stride(count)) {
        clear();
        load();
        faulty_system faults({call::true_name}, at);
        const platform::system_override in_force(faults);
        EXPECT_TRUE(context->check_path_case(text));
        count = faults.count;
        ASSERT_FALSE(faults.failed.empty());
        EXPECT_EQ(context->case_differs, !read(text).empty());
        EXPECT_EQ("", difference(before_, sources()));
    }
}

TEST_P(every_fault, of_a_full_disk_is_told_wherever_it_begins) {
    torture::count("full disks", strike(faulty_system::disk_full, "full disk", SIZE_MAX));
}

INSTANTIATE_TEST_SUITE_P(areas, every_fault,
                         testing::Values(area{"sample_by_type", by_type, true},
                                         area{"sample_from_top", from_common_top, true},
                                         area{"sample_per_scene", folder_per_scene, true},
                                         area{"generated_by_type", by_type, false},
                                         area{"generated_per_scene", folder_per_scene, false}),
                         [](const auto& shown) { return shown.param.name; });

} // namespace
} // namespace vs::project_resave
