// The files of the host: what is written by hand comes back, wherever the folder stands by then.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "platform/text.h"
#include "reference_host/files/files.h"
#include "tests/support/faulty_system.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/tree_state.h"

namespace vestra::files {
namespace {

using namespace vs::project_resave;

// One of everything that a project can hold, as the host writes it.
const std::string everything = [] {
    std::ifstream file(VS_SOURCE_DIR "/tests/reference_host/everything._vp", std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
}();

class host_files : public testing::Test {
protected:
    ~host_files() override { EXPECT_EQ(living_objects(), before_); }

    std::size_t before_ = living_objects();
    temporary_folder folder_;
};

TEST_F(host_files, a_project_of_everything_is_read_moved_and_written_without_a_loss) {
    for (const wide_view name : {u"prj\\", u"new home\\"}) {
        const wide_string home = folder_.path(name);
        folder_.write(wide_string(name) + u"area._vp", everything);
        project prj;
        const auto error = read_project(home + u"area._vp", prj);
        ASSERT_FALSE(error) << platform::to_utf8(error->text());
        const scene& map = *prj.scenes_2d.at(0);
        const layer& wells = *map.at(0);
        const scene& sheet = *prj.layouts.at(0);
        const std::pair<wide_string, wide_string> rows[] = {
            {prj.file, home + u"area._vp"},
            {map.caption, u" Area <1> & \"more\"\r\n\t\x1\u0416"},
            {wells.file, home + u"data\\wells.shp"},
            {wells.data->joins[0].other_source, u"D:\\gis\\owners.dbf"},
            {wells.data->joins[1].other_source, home + u"years.dbf"},
            {std::get<wide_string>(std::get<tuple>(wells.extras.rows()[0].value.value).elements[9].value),
             u"model\\base.tos"},
            {map.at(1)->file, u"*" + home + u"cut.tos"},
            {map.at(2)->file, u"*C:\\prj\\not a path"},
            {map.at(2)->members->at(1), u"no uuid"},
            {prj.scenes_3d.at(0)->at(0)->file, home + u"sgy\\"},
            {sheet.at(2)->legend->at(0)->file, home + u"sign.tif"},
            {prj.plugin_scenes[0]->at(0)->source, home + u"sheets\\P-101.wsh"}};
        for (const auto& [told, expected] : rows)
            EXPECT_EQ(platform::to_utf8(told), platform::to_utf8(expected));
        EXPECT_EQ(wells.parent.get(), &map);
        EXPECT_EQ(map.parent.get(), prj.folders.at(1));
        EXPECT_EQ(map.groups->at(0)->at(1)->member(), map.at(2));
        EXPECT_EQ(sheet.at(0)->frame->get(), prj.scenes_3d.at(0));
        EXPECT_EQ(sheet.at(1)->frame->get(), nullptr);

        ASSERT_FALSE(write_project(home + u"area._vp", prj));
        EXPECT_EQ(folder_.read(wide_string(name) + u"area._vp"), everything);
    }
}

TEST_F(host_files, scene_and_layer_files_stand_alone) {
    project prj;
    ASSERT_FALSE(read_project(folder_.write(u"area._vp", everything), prj));
    const scene& map = *prj.scenes_2d.at(0);
    ASSERT_FALSE(write_scene(folder_.path(u"map._sn"), map));
    scene read(dimension::flat);
    ASSERT_FALSE(read_scene(folder_.path(u"map._sn"), read));
    EXPECT_FALSE(read.parent) << "it is not in the file";
    EXPECT_EQ(read.groups->at(1)->member(), read.at(0));
    EXPECT_EQ(read.at(0)->extras.rows(), map.at(0)->extras.rows());
    for (const layer* in : {map.at(0), prj.scenes_3d.at(0)->at(0)}) {
        ASSERT_FALSE(write_layer(folder_.path(u"one._lr"), *in));
        std::unique_ptr<layer> out;
        ASSERT_FALSE(read_layer(folder_.path(u"one._lr"), in->kind, out));
        EXPECT_EQ(out->id, in->id);
    }
}

TEST_F(host_files, a_failed_write_leaves_the_old_file_and_nothing_else) {
    const wide_string path = folder_.write(u"area._vp", "old");
    folder_.write(u"area._vp.new1", "of somebody else");
    const tree_state before = state_of(folder_.native());
    for (const faulty_system::call failing : {faulty_system::call::write, faulty_system::call::rename}) {
        faulty_system faults({failing}, 1, SIZE_MAX);
        const platform::system_override in_force(faults);
        const auto error = write_project(path, project());
        ASSERT_TRUE(error);
        EXPECT_EQ(error->text(), path + u": the file cannot be written");
        EXPECT_EQ(difference(before, state_of(folder_.native())), "");
    }
}

} // namespace
} // namespace vestra::files
