// The window on a terminal, as docs/panel.md tells it, and what the command does with wrong use.
#include <regex>

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

TEST_F(panel_session, the_session_in_the_docs_is_what_the_program_answers) {
    std::ifstream page(VS_SOURCE_DIR "/docs/panel.md");
    std::string line, told, lines;
    while (std::getline(page, line) && line != "```text") {
    }
    while (std::getline(page, line) && line != "```") {
        told += line + '\n';
        for (const std::string before : {"> ", "[yes/no] "})
            if (line.starts_with(before)) lines += line.substr(before.size()) + '\n';
    }
    ASSERT_NE("", lines);
    EXPECT_EQ(1, panel(project, lines)) << "some of it is refused";
    const auto relief = platform::native_path(u"C:\\prj\\rasters\\relief.tif");
    if (!vestra::datasets::open_gdal_source(relief)) // without which a set can have fewer files
        for (std::string* text : {&told, &out})
            *text = std::regex_replace(*text, std::regex("[0-9.]+ Kbyte"), "size");
    EXPECT_EQ(told, out);
    EXPECT_NE("", read(u"N:\\copy\\area._vp"));
    EXPECT_NE("", read(u"N:\\area.txt"));
}

TEST_F(panel_session, wrong_words_are_answered_with_what_there_is_and_end_with_1) {
    const std::pair<const char*, const char*> table[] = {
        {"set field9 x",
         "no such element: \"field9\"; there are: field1 prj/field1 struct/field1 struct/choice1 "},
        {"set struct/choice1 Tabs",
         "struct/choice1 does not take this; there are: None | Tab | Space | 4 space\n"},
        {"press Выбрать все",
         "several elements are called so: \"Выбрать все\"; there are: tool1 scn2d/tool1 "},
        {"highlight dbf/list1/9", "no such row: \"dbf/list1/9\"; rows are below: scn2d/list1 scn2d/list2 "},
        {"tab Layouts", "there are: prj struct scns_xml scn2d scn3d dbf tos layout well correlation plugin"},
    };
    std::string lines;
    for (const auto& [line, reply] : table) lines += std::string(line) + '\n';
    EXPECT_EQ(1, panel("", lines));
    for (const auto& [line, reply] : table) {
        const size_t asked = out.find(std::string("> ") + line + '\n');
        ASSERT_NE(std::string::npos, asked) << line;
        EXPECT_NE(std::string::npos, out.substr(asked, out.find("> ", asked + 2) - asked).find(reply)) << out;
    }
    EXPECT_EQ(0, panel("", "help\nshow prj/check1\npress 8\nno more is read")) << out;
    EXPECT_TRUE(out.ends_with("> press 8\nclosed, nothing left\n")) << out;
}

TEST_F(panel_session, what_is_open_in_the_host_is_loaded_by_its_button_and_what_cannot_begin_ends_with_2) {
    EXPECT_EQ(0, panel("--open " + project, "press \"Load current\"")) << out;
    EXPECT_NE(std::string::npos, out.find("  field1: file_input \"Select project\" (source project: "
                                          "Vestra project file (*._vp)|*._vp) C:\\prj\\area._vp\n"));
    EXPECT_EQ(2, panel(no_project, "quit"));
    EXPECT_EQ(2, panel("--open " + no_project, "quit"));
    EXPECT_EQ(2, panel("--bundle " + no_project, "quit"));
    EXPECT_NE(std::string::npos, out.find("cannot load the bundle")) << out;
}

} // namespace
} // namespace vs::project_resave
