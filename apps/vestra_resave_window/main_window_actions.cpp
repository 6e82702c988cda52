// The menus and tools of the window and their actions.
#include <QAction>
#include <QActionGroup>
#include <QCoreApplication>
#include <QFileDialog>
#include <QLibraryInfo>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

#include "apps/vestra_resave_window/drives_dialog.h"
#include "apps/vestra_resave_window/main_window.h"
#include "apps/vestra_resave_window/outcome_view.h"
#include "apps/vestra_resave_window/tool_record.h"
#include "platform/volumes.h"
#include "reference_host/shell/front_end.h"

namespace vestra::window {

namespace platform = vs::project_resave::platform;
using qt::said;
using toolkit::element_view;
using toolkit::mark;

void main_window::translate() {
    QCoreApplication::removeTranslator(&words_of_qt_);
    const bool is_russian = shell::settings().language_offset == 0;
    if (is_russian && words_of_qt_.load("qtbase_ru", QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&words_of_qt_);
    const QString title = said("Resave a project", "Пересохранение проекта");
    setWindowTitle(title);
    front_end_.title = title;
    // Menus are made again in the new language. Destroyed later, because one of them may have triggered the
    // change.
    for (QMenu* each : menuBar()->findChildren<QMenu*>(Qt::FindDirectChildrenOnly)) each->deleteLater();
    menuBar()->clear();
    tools_->clear();
    tools_->setObjectName("tools");
    tools_->setWindowTitle(said("Tools", "Инструменты"));
    tools_->setToolButtonStyle(Qt::ToolButtonTextOnly);
    addToolBar(tools_);
    fill_project_menu(*menuBar()->addMenu(said("&Project", "&Проект")));
    fill_results_menu(*menuBar()->addMenu(said("&Results", "&Результаты")));
    fill_language_menu(*menuBar()->addMenu(said("&Language", "&Язык")));
    // Qt leaves the buttons of a tool bar out of the Tab order, but every widget must be reachable by
    // keyboard.
    for (QWidget* each : tools_->findChildren<QWidget*>()) each->setFocusPolicy(Qt::StrongFocus);
    results_->translate();
}

void main_window::fill_project_menu(QMenu& menu) {
    QAction* const open = menu.addAction(said("&Open…", "&Открыть…"), this, [this] { choose_project(); });
    open->setShortcut(QKeySequence::Open);
    tools_->addAction(open);
    QMenu* const recent = menu.addMenu(said("&Recent", "&Недавние"));
    connect(recent, &QMenu::aboutToShow, recent, [this, recent] { fill_recent(*recent); });
    menu.addAction(said("&Drive letters…", "&Буквы дисков…"), this, [this] { choose_drives(); });
    menu.addSeparator();
    menu.addAction(said("&Quit", "&Выход"), this, [this] { close(); })->setShortcut(QKeySequence::Quit);
}

void main_window::fill_results_menu(QMenu& menu) {
    QAction* const tries = menu.addAction(said("&Try it", "&Попробовать"), this, [this] { try_it(); });
    tries->setShortcut(Qt::CTRL | Qt::Key_T);
    tries->setToolTip(said("Show what Run would do, without writing anything",
                           "Показывает, что сделает пересохранение, и ничего не записывает"));
    QAction* const checks = menu.addAction(said("&Check a project…", "Про&верить проект…"), this,
                                           [this] { choose_project_to_check(); });
    checks->setToolTip(said("Check whether a project needs anything outside its folder",
                            "Проверяет, нужно ли проекту что-нибудь вне его папки"));
    menu.addSeparator();
    QAction* const shows =
        menu.addAction(said("&Show results", "Показать &результаты"), this, [this] { bring_up_results(); });
    connect(&menu, &QMenu::aboutToShow, shows, [this, shows] { shows->setEnabled(results_->has_outcome()); });
    tools_->addActions({tries, checks});
}

void main_window::fill_language_menu(QMenu& menu) {
    auto* const languages = new QActionGroup(&menu);
    const bool is_russian = shell::settings().language_offset == 0;
    const auto add = [&](const char* words, const char* code, bool is_shown) {
        QAction* const each = menu.addAction(QString::fromUtf8(words));
        each->setCheckable(true);
        each->setChecked(is_shown);
        languages->addAction(each);
        // Queued, because the menu that triggers this is recreated.
        const auto change = [this, code] { set_language(code); };
        connect(each, &QAction::triggered, this, change, Qt::QueuedConnection);
    };
    add("Русский", "ru", is_russian);
    add("English", "en", !is_russian);
}

void main_window::fill_recent(QMenu& menu) {
    menu.clear();
    for (const QString& path : stored_.recent())
        // In the text of a menu "&" marks the next letter as a shortcut.
        menu.addAction(QString(path).replace(u'&', QStringLiteral("&&")), this,
                       [this, path] { open_project(platform::drive_path(path.toStdString())); });
    if (menu.isEmpty()) menu.addAction(said("(none)", "(нет)"))->setEnabled(false);
}

void main_window::choose_project() {
    const QStringList recent = stored_.recent();
    const QString chosen =
        QFileDialog::getOpenFileName(this, said("Open a project", "Открыть проект"),
                                     recent.isEmpty() ? QString() : recent.front(), "*._vp");
    if (!chosen.isEmpty()) open_project(platform::drive_path(chosen.toStdString()));
}

void main_window::choose_project_to_check() {
    // The copy is what most users want to check after a run.
    wide_string now;
    if (const auto settings = settings_of(tool_->service()))
        now = settings->target.empty() ? settings->source : settings->target;
    const QString chosen = QFileDialog::getOpenFileName(
        this, said("Check a project", "Проверить проект"),
        now.empty() ? QString() : QString::fromStdString(platform::native_text(now)), "*._vp");
    if (!chosen.isEmpty()) check(platform::drive_path(chosen.toStdString()));
}

void main_window::choose_drives() {
    const std::vector<stored_settings::drive> now = mapped_drives(), stored = stored_.drives();
    drives_dialog dialog(now, this);
    if (dialog.exec() != QDialog::Accepted) return;
    std::vector<stored_settings::drive> kept = dialog.drives();
    const auto has = [](const auto& all, const auto& each) {
        return std::ranges::find(all, each) != all.end();
    };
    // Drives of the command line or environment are not stored.
    std::erase_if(kept, [&](const auto& each) { return has(now, each) && !has(stored, each); });
    stored_.set_drives(kept);
    if (dialog.drives() != now) map_anew(dialog.drives());
}

// Both trees have the same structure, because a window is built in the same way in every language.
void main_window::copy_choices(const element_view& from, const element_view& to) {
    view_->widgets().send([&] {
        if (from.kind == u"file_input" && !from.text.empty()) toolkit::enter_text(to, from.text);
        // Only what differs is set, since each event can change other elements.
        if (from.check != mark::none && from.check != to.check)
            toolkit::set_check(to, from.check == mark::on);
        if (from.current != to.current) toolkit::choose(to, from.current);
    });
    for (std::size_t index = 0; index < std::min(from.children.size(), to.children.size()); ++index)
        copy_choices(from.children[index], to.children[index]);
}

} // namespace vestra::window
