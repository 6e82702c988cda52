// Linux only: the command is started through a shell.
// The window on a terminal, as docs/panel.md tells it, and what the command does with wrong use.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <sstream>

#include "tests/support/temporary_folder.h"

namespace vs::project_resave {
namespace {

class panel_session : public testing::Test {
protected:
    // The exit code; `told` is what went to both outputs.
    int command(const std::string& arguments, const std::string& script) {
        folder.write(u"script", script);
        std::filesystem::create_directories(native("new"));
        const std::string line = "LC_ALL=C " VS_COMMAND " panel " + arguments +
                                 " --language en --drive C=" + area + "/c --drive D=" + area +
                                 "/d --drive N=" + native("new") + " < " + native("script") + " > " +
                                 native("told") + " 2>&1";
        const int status = std::system(line.c_str());
        told = folder.read(u"told");
        return WEXITSTATUS(status);
    }
    std::string native(const std::string& name) const { return (folder.native() / name).string(); }

    temporary_folder folder;
    const std::string area = VS_SOURCE_DIR "/samples/area";
    const std::string project = area + "/c/prj/area._vp";
    std::string told;
};

TEST_F(panel_session, the_session_in_the_docs_is_what_the_program_answers) {
    std::ifstream page(VS_SOURCE_DIR "/docs/panel.md");
    std::string line, session, script;
    while (std::getline(page, line) && line != "```text") {
    }
    while (std::getline(page, line) && line != "```") {
        session += line + '\n';
        for (const std::string before : {"> ", "[yes/no] "})
            if (line.starts_with(before)) script += line.substr(before.size()) + '\n';
    }
    ASSERT_NE("", script);
    EXPECT_EQ(1, command(project, script)) << "some of it is refused";
    EXPECT_EQ(session, told);
    EXPECT_NE("", folder.read(u"new\\copy\\area._vp"));
    EXPECT_NE("", folder.read(u"new\\area.txt"));
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
    std::string script;
    for (const auto& [line, answer] : table) script += std::string(line) + '\n';
    EXPECT_EQ(1, command("", script));
    for (const auto& [line, answer] : table) {
        const size_t asked = told.find(std::string("> ") + line + '\n');
        ASSERT_NE(std::string::npos, asked) << line;
        EXPECT_NE(std::string::npos, told.substr(asked, told.find("> ", asked + 2) - asked).find(answer))
            << told;
    }
    EXPECT_EQ(0, command("", "help\nshow prj/check1\npress 8\nno more is read")) << told;
    EXPECT_TRUE(told.ends_with("> press 8\nclosed, nothing left\n")) << told;
}

TEST_F(panel_session, what_is_open_in_the_host_is_loaded_by_its_button_and_what_cannot_begin_ends_with_2) {
    EXPECT_EQ(0, command("--open " + project, "press \"Load current\"")) << told;
    EXPECT_NE(std::string::npos, told.find("  field1: file_input \"Select project\" (source project: "
                                           "Vestra project file (*._vp)|*._vp) C:\\prj\\area._vp\n"));
    EXPECT_EQ(2, command(area + "/README.md", "quit"));
    EXPECT_EQ(2, command("--open " + area + "/README.md", "quit"));
    EXPECT_EQ(2, command("--bundle " + area + "/README.md", "quit"));
    EXPECT_NE(std::string::npos, told.find("cannot load the bundle")) << told;
}

} // namespace
} // namespace vs::project_resave
