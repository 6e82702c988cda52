// The bundle's library as Windows loads and unloads it.
#include <windows.h>

#include "tests/bundle_library/panel_fixture.h"

namespace vs::project_resave {
namespace {

// All other tests use English.
TEST_F(panel, the_library_has_the_base_language_and_unloads_completely) {
    vestra::shell::settings().language_offset = 0;
    open();
    EXPECT_EQ(u"Пересохранение проекта", at("prj").caption);
    close();
    EXPECT_NE(nullptr, GetModuleHandleW(L"vsk_project_resave_bdl.dll"));
    loader.unload_all();
    EXPECT_EQ(nullptr, GetModuleHandleW(L"vsk_project_resave_bdl.dll"));
}

} // namespace
} // namespace vs::project_resave
