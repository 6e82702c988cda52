#include "tests/apps/every_command.h"

namespace vs::project_resave {
namespace {

TEST_F(every_command, leaves_the_sample_as_it_was) {
    copy_sample();
    run_all(u"C:\\prj\\maps\\");
}

} // namespace
} // namespace vs::project_resave
