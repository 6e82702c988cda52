#include "tests/window/window_fixture.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <cstdlib>
#include <fstream>

#include "reference_host/model/counted.h"
#include "reference_host/shell/front_end.h"
#include "reference_host/toolkit/element_description.h"

// Memory that these libraries keep until the program exits is not a leak of this program.
extern "C" const char* __lsan_default_suppressions(); // NOLINT(bugprone-reserved-identifier): the sanitizer's
const char* __lsan_default_suppressions() {           // NOLINT(bugprone-reserved-identifier)
    return "leak:libfontconfig\nleak:libQt6\nleak:libGL\nleak:libdbus\n";
}

namespace vestra::window {

namespace fs = std::filesystem;

window_test::window_test() {
    QSettings("vestra", "resave-window").clear();
    stored.set_language("en");
    fs::create_directories(drives.root('C') / "prj");
    fs::create_directories(drives.root('N') / "out");
    QObject::connect(&person_, &QTimer::timeout, [this] { answer_boxes(); });
    person_.start(0);
}

window_test::~window_test() {
    close();
    shell::settings() = {};
}

void window_test::copy_sample() {
    const fs::path area = fs::path(VS_SOURCE_DIR) / "samples" / "area";
    constexpr auto all = fs::copy_options::recursive | fs::copy_options::overwrite_existing;
    fs::copy(area / "c", drives.root('C'), all);
    fs::copy(area / "d", drives.root('D'), all);
}

void window_test::write(const wide_string& path) const {
    const fs::path file = vs::project_resave::platform::native_path(path);
    fs::create_directories(file.parent_path());
    std::ofstream(file) << "data";
}

void window_test::open() {
    window.emplace(stored, std::vector<wide_string>());
    window->show();
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&*window));
}

void window_test::open_on_sample() {
    copy_sample();
    open();
    ASSERT_TRUE(window->open_project(source));
    ASSERT_TRUE(QTest::qWaitForWindowActive(&*window))
        << "it is again, after the windows that told of the load";
}

void window_test::close() {
    view_ = {};
    window.reset();
    EXPECT_EQ(0U, living_objects());
}

const element_view& window_test::looked() { return view_ = window->tool().look(); }

const element_view& window_test::at(const std::string& name) {
    const auto found = toolkit::all_named(looked(), name);
    EXPECT_EQ(1U, found.size()) << name;
    static const element_view nothing;
    return found.empty() ? nothing : *found.front();
}

void window_test::check_row(const std::string& path, bool on) {
    const element_view* outline = nullptr;
    const toolkit::row_view* row = toolkit::find_row(looked(), path, outline);
    ASSERT_TRUE(row) << path;
    mouse().check_row(*outline, *row, on);
}

void window_test::enter(const std::string& name, const wide_string& text) {
    EXPECT_TRUE(mouse().enter_text(at(name), text)) << name;
}

void window_test::expect_equal_to_walker(const std::string& after) {
    EXPECT_EQ("", first_difference(toolkit::described(window->opened().look()), toolkit::described(looked())))
        << after;
}

void window_test::answer_boxes() {
    if (on_idle) on_idle();
    auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (!dialog || !dialog->isVisible()) return;
    auto* const box = qobject_cast<QMessageBox*>(dialog);
    if (!box) {
        if (on_dialog) on_dialog(*dialog);
        return;
    }
    boxes.push_back(box->text());
    const bool asks = box->standardButtons() & QMessageBox::Yes;
    const auto with = on_box ? on_box(*box) : asks ? QMessageBox::No : QMessageBox::Ok;
    QTest::mouseClick(box->button(with), Qt::LeftButton);
}

} // namespace vestra::window

int main(int argc, char** argv) {
    if (!std::getenv("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    const QTemporaryDir kept;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, kept.path());
    const QApplication application(argc, argv);
    static QtMessageHandler told = nullptr;
    told = qInstallMessageHandler([](QtMsgType type, const QMessageLogContext& where, const QString& text) {
        if (!text.contains("plugin does not support"))
            told(type, where, text); // a screen nobody sees has none
    });
    QFont plain = QApplication::font();
    plain.setStyleStrategy(QFont::NoSubpixelAntialias); // pictures of it are to be seen on any screen
    QApplication::setFont(plain);
    return RUN_ALL_TESTS();
}
