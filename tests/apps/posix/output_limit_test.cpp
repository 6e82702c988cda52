// Linux only: the size of the command's files is limited by its shell.
// A new project that cannot be written while an older one of its name stands.
#include "tests/apps/command_run.h"

namespace vs::project_resave {
namespace {

TEST_F(command_run, an_older_project_that_stands_is_not_taken_for_the_new_one) {
    project_builder built;
    for (uint32_t index = 0; index < 40; ++index) built.scene_2d(u"Scene " + decimal(index));
    built.save(source);
    ASSERT_EQ(0, command("resave 'C:\\prj\\area._vp' 'N:\\out\\new._vp'")) << err;
    const tree_state before = all_drives();
    const std::string line =
        command_line("resave 'C:\\prj\\area._vp' 'N:\\out\\new._vp'", {{}, file_of("out"), file_of("err")});
    EXPECT_EQ(3, run_line("trap '' XFSZ; ulimit -f 1; " + line));
    EXPECT_EQ("", difference(before, all_drives()));
}

} // namespace
} // namespace vs::project_resave
