// The window as its user has it, by mouse and keys.
#include "tests/window/window_fixture.h"

#include <QAbstractItemModel>
#include <QCheckBox>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <fstream>
#include <regex>
#include <sstream>

#include "apps/vestra_resave/panel_commands.h"
#include "apps/vestra_resave_window/outcome_view.h"
#include "platform/text.h"
#include "reference_host/model/counted.h"
#include "reference_host/qt/outline_tree.h"
#include "reference_host/toolkit/element_description.h"
#include "tests/support/project_builder.h"

namespace vestra::window {
namespace {

namespace platform = vs::project_resave::platform;
using vs::project_resave::committed;

// The lines of a page's session: what is told, and of these what is typed.
struct told_session {
    explicit told_session(const char* page) {
        std::istringstream text(committed(page));
        std::string line;
        for (bool is_told = false; std::getline(text, line);) {
            if (line.starts_with("```"))
                is_told = line == "```text";
            else if (is_told)
                told += line + '\n';
            for (const std::string before : {"> ", "[yes/no] "})
                if (is_told && line.starts_with(before)) typed.push_back(line.substr(before.size()));
        }
    }
    std::string told;
    std::vector<std::string> typed;
};

// Without what passes by on a screen.
std::string lasting(const std::string& told) {
    return std::regex_replace(told, std::regex("( *[0-9]+ % [^\n]*|Project opens, wait)\n"), "");
}

TEST_F(window_test, each_session_of_a_page_goes_the_same_way_by_mouse_as_on_the_terminal) {
    copy_sample();
    std::filesystem::copy(VS_SOURCE_DIR "/tests/apps/sessions/maps", drives.root('C') / "maps");
    for (const char* page : {"docs/panel.md", "tests/apps/sessions/marks.md", "tests/apps/sessions/paths.md",
                             "tests/apps/sessions/words.md"}) {
        told_session session(page);
        open();
        std::string out;
        auto next = session.typed.begin();
        on_box = [&](const QMessageBox& box) {
            for (const QString& text : {box.text(), box.informativeText()})
                out += text.isEmpty() || text.endsWith('\n') ? text.toStdString() : text.toStdString() + '\n';
            if (!(box.standardButtons() & QMessageBox::Yes)) return QMessageBox::Ok;
            out += "[yes/no] " + *next + '\n';
            return *next++ == "yes" ? QMessageBox::Yes : QMessageBox::No;
        };
        qt::mouse_window by_mouse = mouse();
        {
            command::panel_commands commands(by_mouse, [&](const std::string& lines) { out += lines; });
            if (!session.told.starts_with("> ")) {
                commands.set_first_field("C:\\prj\\area._vp");
                commands.show();
            }
            while (!commands.is_over() && next != session.typed.end()) {
                const std::string line = *next++;
                out += "> " + line + '\n';
                commands.obey(line);
                expect_equal_to_walker(line);
            }
        }
        close();
        out += "closed, nothing left\n";
        EXPECT_EQ("", first_difference(lasting(session.told), lasting(out))) << page;
    }
}

} // namespace
} // namespace vestra::window
