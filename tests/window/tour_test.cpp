// A tour through the window, from opening it to the finished copy. If WINDOW_IMAGES names a folder, pictures
// of each step are saved there.
#include <QApplication>
#include <QColor>
#include <QImage>
#include <QPainter>
#include <QProgressBar>
#include <QScreen>
#include <QTableView>
#include <QTest>
#include <algorithm>
#include <cstdlib>
#include <functional>
#include <map>
#include <set>

#include "apps/vestra_resave_window/drives_dialog.h"
#include "apps/vestra_resave_window/outcome_view.h"
#include "reference_host/shell/front_end.h"
#include "reference_host/toolkit/element_description.h"
#include "tests/support/project_builder.h"
#include "tests/window/window_fixture.h"

namespace vestra::window {
namespace {

// Returns the picture in 256 colours: the most frequent ones, preferring bright ones.
QImage small(const QImage& seen) {
    std::map<QRgb, int> counts;
    for (int y = 0; y < seen.height(); ++y)
        for (int x = 0; x < seen.width(); ++x)
            counts[seen.pixel(x, y)] += QColor(seen.pixel(x, y)).saturation() > 60 ? 50 : 1;
    std::vector<std::pair<int, QRgb>> most;
    for (const auto& [colour, count] : counts) most.emplace_back(count, colour);
    std::ranges::sort(most, std::greater());
    QList<QRgb> table;
    for (const auto& [count, colour] : most)
        if (table.size() < 256) table.append(colour);
    return seen.convertToFormat(QImage::Format_Indexed8, table, Qt::ThresholdDither);
}

class window_tour : public window_test, public testing::WithParamInterface<const char*> {
protected:
    // Takes a picture of the window and those above it; none may be blank.
    void look(const std::string& name) {
        QTest::qWait(50); // until the screen has been painted
        QWidget& top = window->results().isVisible() ? static_cast<QWidget&>(window->results()) : *window;
        const QRect place = top.frameGeometry();
        QImage seen = QGuiApplication::primaryScreen()
                          ->grabWindow(0, place.x(), place.y(), place.width(), place.height())
                          .toImage();
        if (seen.isNull()) seen = top.grab().toImage(); // the invisible screen cannot be grabbed as a whole
        std::set<QRgb> colours;
        for (int y = 0; y < seen.height(); y += 3)
            for (int x = 0; x < seen.width(); x += 3) colours.insert(seen.pixel(x, y));
        EXPECT_LT(8U, colours.size()) << name << " is blank";
        const char* const folder = std::getenv("WINDOW_IMAGES");
        if (!folder) return;
        draw_frames(seen, top);
        const std::string file = std::string(folder) + "/" + name + "-" + GetParam() + ".png";
        small(seen).save(QString::fromStdString(file), "PNG", 0);
    }
    // Draws frames around the windows above the main one, because there is no window manager.
    static void draw_frames(QImage& seen, const QWidget& below) {
        QPainter pen(&seen);
        pen.setPen(QPen(Qt::darkGray, 2));
        for (const QWidget* each : QApplication::topLevelWidgets())
            if (each != &below && each->isVisible() && each->windowType() == Qt::Dialog)
                pen.drawRect(each->frameGeometry().translated(-below.frameGeometry().topLeft()));
    }
    // Switches to a page by a click on its tab.
    void turn_to(const std::string& page) {
        looked();
        turn_to(view(), page);
    }
    // True if the command finds the project self-contained.
    bool verifies(const std::string& project) const {
        const auto drive = [this](char letter) {
            return std::string(" --drive ") + letter + "=" + drives.root(letter).string();
        };
        const std::string line = "'" VS_COMMAND "' verify '" + project + "' >/dev/null 2>&1" + drive('N');
        return std::system(line.c_str()) == 0;
    }

private:
    bool turn_to(const element_view& layout, const std::string& page) {
        for (std::size_t index = 0; index < layout.children.size(); ++index) {
            if (layout.children[index].name == page)
                return mouse().choose(layout, static_cast<std::uint32_t>(index));
            if (turn_to(layout.children[index], page)) return true;
        }
        return false;
    }
};

TEST_P(window_tour, from_the_first_look_to_what_was_left_at_home) {
    stored.set_language(GetParam());
    open_on_sample();
    look("window");
    for (const auto& [left, right] :
         {std::pair("struct", "scn3d"), std::pair("scns_xml", "dbf"), std::pair("prj", "tos"),
          std::pair("prj", "layout"), std::pair("prj", "well"), std::pair("prj", "correlation"),
          std::pair("prj", "plugin")}) {
        turn_to(left);
        turn_to(right);
        expect_equal_to_walker(right);
        look(std::string("page-") + (left == std::string("prj") ? right : left));
    }
    turn_to("scn2d");
    drives_dialog page(mapped_drives(), &*window);
    page.show();
    look("drives");
    EXPECT_EQ(3U, page.drives().size());
    page.close();

    check_row("scn2d/list2/6", false);
    enter("prj/field1", u"N:\\copy\\area._vp");
    on_box = [](const QMessageBox&) { return QMessageBox::Yes; };
    window->try_it();
    look("try");
    window->results().hide();
    bool was_running = false;
    on_idle = [&] {
        for (QWidget* each : QApplication::topLevelWidgets())
            if (auto* const progress = dynamic_cast<qt::progress_window*>(each))
                if (!was_running && progress->findChild<QProgressBar*>()->value() > 30) {
                    was_running = true;
                    look("run");
                }
    };
    on_box = [&](const QMessageBox& box) {
        const bool asks = box.standardButtons() & QMessageBox::Yes;
        if (boxes.size() <= 2) look(boxes.size() == 1 ? "question" : "report");
        return !asks ? QMessageBox::Ok : boxes.size() == 1 ? QMessageBox::Yes : QMessageBox::No;
    };
    boxes.clear();
    run();
    on_idle = nullptr;
    EXPECT_TRUE(was_running);
    look("results");
    outcome_view& results = window->results();
    EXPECT_LT(20, results.table().model()->rowCount());
    const QString found = results.lines();
    for (const char* left : {"lines.shp", "page_a3.fmt", "monthly.rep"})
        EXPECT_TRUE(found.contains(left)) << left;
    EXPECT_FALSE(verifies("N:\\copy\\area._vp")) << "these are not copied, as the window says";
    window->check(u"N:\\copy\\area._vp");
    look("check");
    EXPECT_EQ(4, results.table().model()->rowCount())
        << "these, and the lost one that another layer refers to";
}

TEST_P(window_tour, what_is_left_ticked_is_copied_and_self_contained) {
    stored.set_language(GetParam());
    vs::project_resave::project_builder project;
    for (const char16_t* name : {u"relief", u"slopes"})
        for (const char16_t* extension : {u".tif", u".tfw"})
            write(wide_string(u"C:\\maps\\") + name + extension);
    project.scene_2d(u"Area").layer("rtr_lr2d", u"Relief", u"C:\\maps\\relief.tif");
    project.layer("rtr_lr2d", u"Slopes", u"C:\\maps\\slopes.tif").save(source);
    open();
    ASSERT_TRUE(window->open_project(source));
    check_row("scn2d/list2/Slopes", false);
    enter("prj/field1", u"N:\\copy\\area._vp");
    run();
    EXPECT_FALSE(window->results().lines().contains("slopes"));
    EXPECT_EQ(3, window->results().table().model()->rowCount()) << "the picture, its place, and the project";
    EXPECT_TRUE(verifies("N:\\copy\\area._vp")) << window->results().lines().toStdString();
}

INSTANTIATE_TEST_SUITE_P(both_languages, window_tour, testing::Values("en", "ru"));

} // namespace
} // namespace vestra::window
