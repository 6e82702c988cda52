// The window on a terminal, as docs/panel.md tells it, and what the command does with wrong use.
#include <regex>
#include <sstream>

#include "reference_host/datasets/gdal_source.h"
#include "tests/apps/command_run.h"

namespace vs::project_resave {
namespace {

class panel_session : public command_run {
protected:
    panel_session() { copy_sample(); }

    int panel(const std::string& arguments, const std::string& lines) {
        return session("panel " + arguments, lines);
    }
    const std::string project = "'C:\\prj\\area._vp'", no_project = VS_SOURCE_DIR "/samples/area/README.md";
};

// A page tells its session in blocks of text; that of the docs from the first look at the window on.
TEST_F(panel_session, each_session_that_a_page_tells_is_what_the_program_answers) {
    const auto relief = platform::native_path(u"C:\\prj\\rasters\\relief.tif");
    const bool has_whole_sets = vestra::datasets::open_gdal_source(relief) != nullptr;
    std::filesystem::copy(VS_SOURCE_DIR "/tests/apps/sessions/maps", native("c") / "maps");
    const struct {
        const char* page;
        std::string project;
        int code; // 1 where some of it is refused
    } rows[] = {{"docs/panel.md", project, 1},
                {"tests/apps/sessions/marks.md", "", 0},
                {"tests/apps/sessions/paths.md", "", 1},
                {"tests/apps/sessions/words.md", "", 1}};
    for (const auto& row : rows) {
        std::istringstream page(committed(row.page));
        std::string line, told, lines;
        for (bool is_told = false; std::getline(page, line);) {
            if (line.starts_with("```"))
                is_told = line == "```text";
            else if (is_told)
                told += line + '\n';
            for (const std::string before : {"> ", "[yes/no] "})
                if (is_told && line.starts_with(before)) lines += line.substr(before.size()) + '\n';
        }
        EXPECT_EQ(row.code, panel(row.project, lines + "no more is read\n")) << row.page;
        if (told.starts_with("> ")) out.erase(0, out.find("\n> ") + 1);
        if (!has_whole_sets) // in which case a set can have fewer files
            for (std::string* text : {&told, &out})
                *text = std::regex_replace(*text, std::regex("[0-9.]+ Kbyte"), "size");
        EXPECT_EQ(told, out);
    }
    EXPECT_NE("", read(u"N:\\copy\\area._vp"));
    EXPECT_NE("", read(u"N:\\area.txt"));
}

TEST_F(panel_session, what_is_open_in_the_host_is_loaded_by_its_button_and_what_cannot_begin_ends_with_2) {
    EXPECT_EQ(0, panel("--open " + project, "press \"Load current\"")) << out;
    EXPECT_NE(std::string::npos, out.find("  field1: file_input \"Select project\" (source project: "
                                          "Vestra project file (*._vp)|*._vp) C:\\prj\\area._vp\n"));
    EXPECT_EQ(2, panel(no_project, "quit"));
    EXPECT_EQ(2, panel("--open " + no_project, "quit"));
    EXPECT_EQ(2, panel("--bundle " + no_project, "quit"));
    EXPECT_NE(std::string::npos, out.find("README.md: could not be loaded: ")) << out;
}

} // namespace
} // namespace vs::project_resave
