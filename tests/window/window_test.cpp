// The window as its user has it, by mouse and keys.
#include "tests/window/window_fixture.h"

#include <QAbstractItemModel>
#include <QApplication>
#include <QCheckBox>
#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QProcess>
#include <QPushButton>
#include <QTabBar>
#include <QTableView>
#include <QTest>
#include <QToolButton>
#include <ctime>
#include <regex>
#include <set>
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

// The lines of a page's session: the commands and their output.
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

// Returns the output without progress lines.
std::string lasting(const std::string& told) {
    return std::regex_replace(told, std::regex("( *[0-9]+ % [^\n]*|Project opens, wait)\n"), "");
}

TEST_F(window_test, each_session_of_a_page_is_the_same_by_mouse) {
    copy_sample();
    std::filesystem::copy(VS_SOURCE_DIR "/tests/apps/sessions/maps", drives.root('C') / "maps");
    for (const char* page : {"docs/panel.md", "tests/apps/sessions/marks.md", "tests/apps/sessions/paths.md",
                             "tests/apps/sessions/words.md"}) {
        told_session session(page);
        open();
        std::string out;
        auto next = session.typed.begin();
        on_box = [&](const QMessageBox& box) {
            QString text = box.text();
            if (box.icon() == QMessageBox::Critical) text.replace("\n\n", "\n"); // the reason is apart
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
        out += "closed, no objects left\n";
        EXPECT_EQ("", first_difference(lasting(session.told), lasting(out))) << page;
    }
}

TEST(window_program, ends_with_a_reason_if_it_cannot_start) {
    const struct {
        QStringList arguments;
        bool has_display;
        int code;
        const char* told;
    } rows[] = {{{"--help"}, false, 0, "--drive X=FOLDER"},
                {{"--bogus"}, true, 2, "--bogus"},
                {{"--drive", "C=/none at all"}, true, 2, "vestra-resave-window: "},
                {{}, false, 2, "no display"}};
    for (const auto& row : rows) {
        QProcess program;
        QProcessEnvironment values = QProcessEnvironment::systemEnvironment();
        for (const char* const name : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"}) values.remove(name);
        if (row.has_display) values.insert("QT_QPA_PLATFORM", "offscreen");
        program.setProcessEnvironment(values);
        program.setProcessChannelMode(QProcess::MergedChannels);
        program.start(QCoreApplication::applicationDirPath() + "/vestra-resave-window", row.arguments);
        ASSERT_TRUE(program.waitForFinished(60000)) << row.told;
        const QByteArray told = program.readAll();
        EXPECT_EQ(row.code, program.exitCode()) << row.told;
        EXPECT_TRUE(told.contains(row.told)) << told.constData();
    }
}

constexpr int name_column = 0, size_column = 3, state_column = 4;

QStringList column(outcome_view& results, int column) {
    QStringList all;
    const QAbstractItemModel& rows = *results.table().model();
    for (int row = 0; row < rows.rowCount(); ++row) all << rows.index(row, column).data().toString();
    return all;
}

TEST_F(window_test, a_dry_run_shows_what_the_run_does_and_what_was_lost) {
    open_on_sample();
    check_row("scn2d/list1/Geology", false);
    enter("prj/field1", u"N:\\out\\new._vp");
    on_box = [&](const QMessageBox& box) {
        const bool adds = box.text().contains("links to other items");
        return !(box.standardButtons() & QMessageBox::Yes) ? QMessageBox::Ok
               : adds                                      ? QMessageBox::Yes
                                                           : QMessageBox::No;
    };
    const auto untouched = vs::project_resave::state_of(drives.root('N'));
    window->try_it();
    outcome_view& results = window->results();
    QStringList planned = column(results, 2);
    planned.removeAll(QString());
    EXPECT_TRUE(results.summary().startsWith("would be saved with problems: "))
        << results.summary().toStdString();
    EXPECT_EQ("", vs::project_resave::difference(untouched, vs::project_resave::state_of(drives.root('N'))));
    EXPECT_EQ("C:\\prj\\area._vp", platform::to_utf8(at("field1").text)) << "what is ticked stays as it was";
    expect_equal_to_walker("try it");

    run();
    QStringList made = column(results, 2);
    made.removeAll(QString());
    for (const QString& each : made) EXPECT_TRUE(planned.contains(each)) << each.toStdString();
    EXPECT_LT(20, made.size());
    EXPECT_TRUE(results.summary().startsWith("saved with problems: ")) << results.summary().toStdString();
    EXPECT_TRUE(results.isVisible());

    // Every row refers to an existing file, and a problem has a reason.
    const qsizetype all = results.table().model()->rowCount();
    QTest::mouseClick(&results.only_problems(), Qt::LeftButton, {},
                      {8, results.only_problems().height() / 2});
    const QStringList lost = column(results, state_column);
    EXPECT_TRUE(!lost.isEmpty() && lost.size() < all);
    EXPECT_TRUE(lost.contains("does not exist") && lost.contains("layers of this type are not resaved"));
    EXPECT_TRUE(column(results, name_column).contains("Old survey — Overview"));
    QTest::keyClicks(&results.filter(), "survey exist");
    EXPECT_EQ(1, results.table().model()->rowCount());
    EXPECT_EQ(2, results.lines().count('\n')) << "the head and the row";
    EXPECT_TRUE(results.lines().contains("Old survey"));
    results.filter().clear();
    results.only_problems().setChecked(false);
    results.table().sortByColumn(size_column, Qt::DescendingOrder);
    EXPECT_FALSE(column(results, size_column).front().isEmpty());

    window->check(u"N:\\out\\new._vp");
    EXPECT_TRUE(results.summary().contains("references")) << results.summary().toStdString();
}

TEST_F(window_test, a_stopped_run_asks_about_its_files_and_closing_stops_it) {
    for (const bool closes : {false, true}) {
        open_on_sample();
        enter("prj/field1", u"N:\\out\\new._vp");
        bool was_busy = false;
        on_idle = [&] {
            auto* const stop = [&]() -> QPushButton* {
                for (QWidget* each : QApplication::topLevelWidgets())
                    if (auto* const progress = dynamic_cast<qt::progress_window*>(each))
                        return progress->findChild<QPushButton*>();
                return nullptr;
            }();
            if (!stop || !stop->isEnabled() || !stop->isVisible()) return;
            was_busy = true;
            EXPECT_FALSE(window->tool().isEnabled()) << "nothing gets into the way of a run";
            if (closes)
                window->close();
            else
                QTest::mouseClick(stop, Qt::LeftButton);
        };
        on_box = [](const QMessageBox& box) {
            return box.standardButtons() & QMessageBox::Cancel ? QMessageBox::Yes // erase
                   : box.standardButtons() & QMessageBox::Yes  ? QMessageBox::No
                                                               : QMessageBox::Ok;
        };
        boxes.clear();
        run();
        on_idle = nullptr;
        EXPECT_TRUE(was_busy);
        EXPECT_TRUE(
            std::ranges::any_of(boxes, [](const QString& each) { return each.contains("interrupted"); }));
        EXPECT_TRUE(std::filesystem::is_empty(drives.root('N') / "out"));
        QApplication::processEvents();
        EXPECT_EQ(!closes, window->isVisible());
        close();
    }
}

TEST_F(window_test, what_a_stopped_run_left_is_listed_and_the_next_try_is_whole) {
    open_on_sample();
    enter("prj/field1", u"N:\\out\\new._vp");
    on_idle = [&] {
        for (QWidget* each : QApplication::topLevelWidgets())
            if (dynamic_cast<qt::progress_window*>(each) &&
                std::filesystem::exists(drives.root('N') / "out/shp"))
                each->close(); // as Stop does
    };
    on_box = [](const QMessageBox& box) {
        return box.standardButtons() & QMessageBox::Yes ? QMessageBox::No : QMessageBox::Ok; // keep
    };
    run();
    on_idle = nullptr;
    QStringList made = column(window->results(), 2);
    made.removeAll("");
    EXPECT_LT(0, made.size()) << "files that lie there";
    window->try_it();
    EXPECT_LT(50, window->results().table().model()->rowCount());
    close();
}

TEST_F(window_test, a_taken_name_is_asked_for_and_a_long_report_scrolls) {
    vs::project_resave::project_builder project;
    for (const char16_t* folder : {u"C:\\a", u"C:\\b"}) write(folder + wide_string(u"\\relief.tif"));
    project.scene_2d(u"Area").layer("rtr_lr2d", u"East", u"C:\\a\\relief.tif");
    project.layer("rtr_lr2d", u"West", u"C:\\b\\relief.tif");
    for (int lost = 0; lost < 30; ++lost) project.layer("rtr_lr2d", u"Lost", u"C:\\a\\lost.tif");
    project.save(source);
    open();
    ASSERT_TRUE(window->open_project(source));
    enter("prj/field1", u"N:\\out\\new._vp");
    mouse().set_check(at("prj/check2"), false);
    QStringList titles;
    on_dialog = [&](QDialog& dialog) {
        titles << dialog.windowTitle();
        if (auto* const line = dialog.findChild<QLineEdit*>()) {
            line->selectAll();
            QTest::keyClicks(line, "N:\\out\\rtr\\west.tif");
            QTest::keyClick(line, Qt::Key_Return);
            EXPECT_TRUE(dialog.isVisible()) << "that key is the field's: a name that is taken can be mended";
        } else {
            EXPECT_LT(25, dialog.findChild<QPlainTextEdit*>()->toPlainText().count('\n'));
        }
        for (QPushButton* each : dialog.findChildren<QPushButton*>())
            if (each->text().remove('&') == "OK") return QTest::mouseClick(each, Qt::LeftButton);
    };
    run();
    EXPECT_EQ("Attention! Naming conflict! Warning!", titles.join(' ').toStdString());
    EXPECT_TRUE(std::filesystem::exists(drives.root('N') / "out/rtr/relief.tif"));
    EXPECT_TRUE(std::filesystem::exists(drives.root('N') / "out/rtr/west.tif"));
}

TEST_F(window_test, keys_reach_every_widget_and_each_has_an_accessible_name) {
    open_on_sample();
    check_row("scn2d/list1/1", true);
    auto& tree = *mouse().widget<qt::outline_tree>(at("scn2d/list1"));
    tree.setFocus();
    tree.setCurrentIndex(tree.model()->index(0, 0));
    QTest::keyClick(&tree, Qt::Key_Space);
    EXPECT_EQ(toolkit::mark::off, at("scn2d/list1").rows.at(0).check);
    QTest::keyClick(&tree, Qt::Key_Down);
    expect_equal_to_walker("down");
    EXPECT_EQ(u"Geology", at("scn2d/list2").caption) << "the layers are those of the row that was gone to";
    std::set<QWidget*> reached;
    for (QWidget* next = QApplication::focusWidget(); next && reached.insert(next).second;) {
        QTest::keyClick(next, Qt::Key_Tab);
        next = QApplication::focusWidget();
    }
    for (QWidget* each : window->tool().findChildren<QWidget*>()) {
        const bool takes_keys = each->isVisible() && each->isEnabled() &&
                                (each->focusPolicy() & Qt::TabFocus) && !each->focusProxy();
        if (!takes_keys) continue;
        EXPECT_TRUE(reached.contains(each)) << each->metaObject()->className();
        auto* const button = qobject_cast<QAbstractButton*>(each);
        const bool is_named = !each->accessibleName().isEmpty() || (button && !button->text().isEmpty());
        EXPECT_TRUE(is_named || qobject_cast<QTabBar*>(each)) << each->metaObject()->className();
    }
}

TEST_F(window_test, a_tool_picture_is_masked_and_sharp_on_a_dense_screen) {
    open();
    const QIcon icon = mouse().widget<QToolButton>(at("scn2d/tool4"))->icon();
    const QSize size = icon.availableSizes().front();
    const QImage plain = icon.pixmap(size, 1).toImage(), dense = icon.pixmap(size, 2).toImage();
    ASSERT_EQ(size * 2, dense.size());
    std::set<int> opacities;
    for (int y = 0; y < dense.height(); ++y)
        for (int x = 0; x < dense.width(); ++x) {
            EXPECT_EQ(plain.pixel(x / 2, y / 2), dense.pixel(x, y));
            opacities.insert(qAlpha(dense.pixel(x, y)));
        }
    EXPECT_EQ((std::set{0, 255}), opacities);
}

TEST_F(window_test, a_project_that_is_dropped_on_the_window_is_opened) {
    copy_sample();
    open();
    QMimeData dropped;
    dropped.setUrls(
        {QUrl::fromLocalFile(QString::fromStdString((drives.root('C') / "prj/area._vp").string()))});
    const Qt::DropActions both = Qt::CopyAction | Qt::MoveAction;
    QDragEnterEvent enters({10, 10}, both, &dropped, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&*window, &enters);
    EXPECT_TRUE(enters.isAccepted());
    QDropEvent drops({10, 10}, both, &dropped, Qt::LeftButton, Qt::NoModifier);
    drops.setDropAction(Qt::MoveAction); // as file managers propose
    QApplication::sendEvent(&*window, &drops);
    EXPECT_EQ(Qt::CopyAction, drops.dropAction()) << "after a move the project's file would be removed";
    QApplication::processEvents();
    EXPECT_EQ(source, at("field1").text);
    EXPECT_EQ(1, stored.recent().size());
    dropped.setUrls({QUrl("file:///etc/hostname")});
    QDragEnterEvent wrong({10, 10}, both, &dropped, Qt::LeftButton, Qt::NoModifier);
    wrong.ignore();
    QApplication::sendEvent(&*window, &wrong);
    EXPECT_FALSE(wrong.isAccepted()) << "the project that is open stays";
}

TEST_F(window_test, language_drives_and_recent_projects_are_stored) {
    open_on_sample();
    enter("prj/field1", u"N:\\out\\new._vp");
    mouse().set_check(at("prj/radio3"), true);
    check_row("scn2d/list1/1", false);
    window->set_language("ru");
    EXPECT_EQ(toolkit::mark::off, at("scn2d/list1").rows.at(0).check);
    EXPECT_EQ(toolkit::mark::on, at("scn2d/list1").rows.at(1).check);
    expect_equal_to_walker("language");
    EXPECT_EQ(u"N:\\out\\new._vp", at("prj/field1").text);
    EXPECT_EQ(source, at("field1").text);
    EXPECT_EQ(toolkit::mark::on, at("prj/radio3").check);
    EXPECT_EQ("ru", stored.language());
    window->set_drives({{"C", QString::fromStdString(drives.root('C').string())}});
    EXPECT_EQ(u"N:\\out\\new._vp", at("prj/field1").text);
    EXPECT_EQ(1U, mapped_drives().size());
    EXPECT_EQ(1U, stored.drives().size());
    EXPECT_EQ(QStringList{QString::fromStdString((drives.root('C') / "prj/area._vp").string())},
              stored.recent());
}

TEST_F(window_test, a_hundred_thousand_layers_are_shown_without_delay) {
    vs::project_resave::project_builder project;
    project.scene_2d(u"Large");
    for (int layer = 0; layer < 100000; ++layer) project.layer("a", u"Layer");
    project.save(source);
    open();
    toolkit::app_window walked(u"vestra/app/project_resave_app"); // the same elements, without widgets
    const auto taken = [](const std::function<void()>& what) {    // of the processor: others are at work, too
        const std::clock_t begun = std::clock();
        what();
        return std::clock() - begun;
    };
    const auto show = [this] {
        window->tool().widgets().settle();
        QApplication::processEvents();
    };
    const element_view before = walked.look();
    const std::clock_t load =
        taken([&] { toolkit::enter_text(*toolkit::find(before, u"file_input"), source); });
    EXPECT_LT(taken(show), load / 2) << "a window is there in half again the time that any host waits";
    ASSERT_EQ(100000U, at("scn2d/list2").rows.size());

    const element_view now = walked.look();
    const element_view& unselect = *toolkit::all_named(now, "scn2d/tool6").front();
    const std::clock_t click = taken([&] { toolkit::click_tool(unselect); });
    const std::clock_t shown = taken(show), walk = taken([&] { std::ignore = walked.look(); });
    EXPECT_LT(click + shown, 2 * (click + walk));
    EXPECT_EQ(toolkit::mark::off, at("scn2d/list2").rows.back().check);
}

} // namespace
} // namespace vestra::window
