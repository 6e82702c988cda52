// Linux only: the command runs in the process of the test, on a disk that counts its calls.
#include "apps/vestra_resave/commands.h"
#include "platform/forwarding_system.h"
#include "tests/apps/command_run.h"

namespace vs::project_resave {
namespace {

using namespace vestra::command;

class counting_disk final : public forwarding_system {
public:
    size_t statuses = 0; // of files and folders, with their identities
    size_t opens = 0;    // a copy opens its source and its target
    size_t bytes = 0;    // read through files that were opened

    platform::entry_status status_of(const wide_string& path) override {
        ++statuses;
        return forwarding_system::status_of(path);
    }
    platform::file_identity identity_of(const wide_string& path) override {
        ++statuses;
        return forwarding_system::identity_of(path);
    }
    platform::outcome copy_file(const wide_string& from, const wide_string& to, bool replace) override {
        opens += 2;
        return forwarding_system::copy_file(from, to, replace);
    }
    platform::outcome open(const wide_string& path, platform::access wanted, platform::disposition how,
                           std::unique_ptr<platform::file>& result) override {
        ++opens;
        return forwarding_system::open(path, wanted, how, result);
    }
};

// The number of calls for one more layer of three files.
struct cost {
    size_t statuses, opens;
    bool operator==(const cost&) const = default;
};
void PrintTo(const cost& one, std::ostream* out) {
    *out << one.statuses << " statuses and " << one.opens << " opens a layer";
}

class questions : public command_run {
protected:
    // Returns the number of calls for a project with `layers` layers.
    cost whole_cost(size_t layers, run_mode mode, bool has_manifest) {
        const wide_string folder = platform::from_utf8(std::to_string(layers));
        const std::string shape("\0\0\x27\x0a shape", 10);
        builder.clear();
        builder.scene_2d(u"Area");
        for (size_t i = 0; i < layers; ++i) {
            const wide_string name = u"C:\\gis\\" + folder + u"\\a" + platform::from_utf8(std::to_string(i));
            builder.layer("shp_pln_lr2d", u"Layer", write(name + u".shp", shape));
            write(name + u".shx", shape);
            write(name + u".dbf", shape);
        }
        builder.save(source);
        resave_request request;
        request.project = "C:\\prj\\area._vp";
        request.new_project = "N:\\" + std::to_string(++runs_) + "\\new._vp";
        request.manifest = has_manifest;
        if (mode != run_mode::anew) resave(request);
        request.mode = mode;
        counting_disk disk;
        const platform::system_override in_force(disk);
        resave(request);
        return {disk.statuses, disk.opens};
    }
    cost cost_of_a_layer(run_mode mode, bool has_manifest) {
        constexpr size_t few = 4, more = 20;
        const cost first = whole_cost(few, mode, has_manifest), second = whole_cost(more, mode, has_manifest);
        const cost all{second.statuses - first.statuses, second.opens - first.opens};
        EXPECT_EQ(0U, all.statuses % (more - few) + all.opens % (more - few)) << "layers cost differently";
        return {all.statuses / (more - few), all.opens / (more - few)};
    }

private:
    size_t runs_ = 0; // each run has its own folder

    static void resave(const resave_request& request) {
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        const int code = vestra::command::resave(request, {});
        testing::internal::GetCapturedStdout();
        const std::string said = testing::internal::GetCapturedStderr();
        EXPECT_EQ(0, code) << said;
    }
};

// The figures are exact. A change that needs more calls per layer must explain this here; one that needs
// fewer must update the figure.
TEST_F(questions, to_the_disk_for_a_layer_do_not_become_more) {
    EXPECT_EQ((cost{14, 9}), cost_of_a_layer(run_mode::anew, false));
    EXPECT_EQ((cost{17, 12}), cost_of_a_layer(run_mode::anew, true));
    EXPECT_EQ((cost{12, 1}), cost_of_a_layer(run_mode::update, true));
}

} // namespace
} // namespace vs::project_resave
