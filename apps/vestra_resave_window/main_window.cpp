// The main window: opens the tool, runs it, and shows the results.
#include "apps/vestra_resave_window/main_window.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QDragEnterEvent>
#include <QMenuBar>
#include <QMimeData>
#include <QScopedValueRollback>
#include <QToolBar>
#include <algorithm>
#include <utility>

#include "apps/vestra_resave/words.h"
#include "apps/vestra_resave_window/outcome_view.h"
#include "apps/vestra_resave_window/run_outcome.h"
#include "apps/vestra_resave_window/tool_record.h"
#include "operations/run/path_files.h"
#include "platform/library.h"
#include "platform/text.h"
#include "platform/volumes.h"
#include "reference_host/api/layer_types.h"
#include "reference_host/toolkit/element_description.h"

namespace vestra::window {

using namespace vs::project_resave;
using qt::entered;
using qt::said;

namespace {

constexpr const char16_t* tool_id = u"vestra/app/project_resave_app";
constexpr const char16_t* tool_library = u"vsk_project_resave_bdl";

// From this size on, progress is shown by bytes instead of elements.
constexpr std::uint64_t many_bytes = std::uint64_t{16} << 20;

// Returns the path of a single dragged project; empty for anything else.
QString project_in(const QMimeData& dragged) {
    const QList<QUrl> files = dragged.urls();
    if (files.size() != 1 || !files.front().isLocalFile()) return {};
    const QString path = files.front().toLocalFile();
    return path.endsWith(QStringLiteral("._vp"), Qt::CaseInsensitive) ? path : QString();
}

// Accepts the drop as a copy, because after a move the other program would remove the file.
bool take_as_copy(QDropEvent& event) {
    const Qt::DropAction taken = event.possibleActions() & Qt::CopyAction ? Qt::CopyAction : Qt::LinkAction;
    if (!(event.possibleActions() & taken)) return false;
    event.setDropAction(taken);
    event.accept();
    return true;
}

QString native(const wide_string& path) { return QString::fromStdString(platform::native_text(path)); }

} // namespace

// Services, bundles and dialogs, which are recreated when the language changes.
struct main_window::host {
    explicit host(QWidget& window) : dialogs(window) { layer_types.add_to(registry); }
    // Dialogs call into the bundles, so they are disconnected first.
    ~host() {
        connections.reset();
        bundles.unload_all();
    }
    host(const host&) = delete;
    host& operator=(const host&) = delete;

    static void throw_refused(const shell::load_error& error) {
        throw no_tool{platform::native_text(error.path) + ": " + platform::to_utf8(error.reason)};
    }
    void load(const wide_string& library) {
        if (const auto error = bundles.load(library)) throw_refused(*error);
    }
    // A bundle may only have the tool.
    void check_services() {
        if (const auto error = bundles.find_fault(u"vestra/resave_project", false)) throw_refused(*error);
    }
    void connect() {
        registry.start_clients();
        connections.emplace(dialogs);
    }

    api::layer_types layer_types; // outlives the registry
    shell::service_registry registry;
    shell::bundle_loader bundles{registry};
    qt::window_dialog_runner dialogs;
    std::optional<toolkit::dialog_connections> connections;
};

main_window::main_window(stored_settings& stored, std::vector<wide_string> bundles)
    : stored_(stored), bundles_(std::move(bundles)), front_end_(*this, [this](bool on) { set_busy(on); }),
      front_end_in_force_(front_end_), results_(new outcome_view(this)), tools_(new QToolBar(this)) {
    // Who closes the window during a run is asked what to do with its files. Continuing means that the window
    // stays, too.
    front_end_.on_go_on = [this] { closes_ = false; };
    front_end_.words_of_reason = [](wide_view reason) {
        return QString::fromStdString(command::say_known(platform::to_utf8(reason)));
    };
    closer_.setSingleShot(true); // runs after the event that closes the window
    connect(&closer_, &QTimer::timeout, this, [this] { close(); });
    opener_.setSingleShot(true);
    connect(&opener_, &QTimer::timeout, this, [this] {
        if (!is_at_work()) open_project(platform::drive_path(dropped_.toStdString()));
    });
    setAcceptDrops(true);
    shell::settings().language_offset = stored_.language() == "ru" ? 0 : 50000;
    start();
    translate();
    resize(1280, 800);
    // Changes nothing if no position is stored.
    restoreGeometry(stored_.value("geometry"));
}

main_window::~main_window() { take_down(); }

void main_window::start() {
    host_ = std::make_unique<host>(*this);
    // A bundle of --bundle can offer the tool itself; loading the installed one as well would give two tools
    // with one name.
    for (const wide_string& each : bundles_) host_->load(each);
    host_->connect();
    tool_ = std::make_unique<toolkit::app_window>(tool_id);
    if (!tool_->is_open()) { // no bundle offers the tool
        tool_.reset();
        host_->load(platform::installed_library(tool_library));
        host_->connect();
        tool_ = std::make_unique<toolkit::app_window>(tool_id);
    }
    if (!tool_->is_open()) throw no_tool{"no bundle offers the tool"};
    host_->check_services();
    view_ = new qt::tool_view(*tool_);
    view_->widgets().around_button = [this](std::int32_t, const auto& press) { run(press); };
    view_->widgets().on_close = [this](std::int32_t) { closer_.start(0); };
    view_->widgets().on_idle = [this] { end_of_work(); };
    // The window owns the view from now on, but `take_down` destroys it, because it must end before the tool.
    setCentralWidget(view_);
}

void main_window::take_down() {
    delete std::exchange(view_, nullptr);
    tool_.reset();
    host_.reset();
}

void main_window::set_busy(bool on) {
    // Not the whole window: it must still be possible to close it, which stops the run.
    if (view_) view_->setEnabled(!on);
    menuBar()->setEnabled(!on);
    tools_->setEnabled(!on);
}

bool main_window::is_at_work() const { return works_ || (view_ && view_->widgets().is_at_work()); }

bool main_window::open_project(const wide_string& project) {
    // As an event of the user, so that the widgets show what the tool changed.
    bool is_taken = false;
    view_->widgets().send([&] {
        const toolkit::element_view shown = tool_->look();
        const toolkit::element_view* const field = toolkit::find(shown, u"file_input");
        is_taken = field && toolkit::enter_text(*field, project);
    });
    if (is_taken) stored_.add_recent(native(project));
    return is_taken;
}

void main_window::run(const std::function<void()>& press) {
    // The button may do something else than run, or the user may cancel, so only a higher number of runs
    // means that there is a result.
    const std::uint32_t before = runs_of(tool_->service());
    const std::optional<tool_record> settings = settings_of(tool_->service());
    if (settings && !settings->source.empty()) stored_.add_recent(native(settings->source));
    if (settings && resaves() && path_exists(settings->target) && !may_replace(settings->target)) return;
    const auto bytes = settings ? static_cast<std::uint64_t>(settings->kilobytes * 1024) : 0;
    {
        const qt::watched_transfer shown(record_of(tool_->service()), front_end_,
                                         bytes >= many_bytes ? bytes : 0);
        press();
    }
    // Without results if the window is to be closed: collecting them loads two projects.
    if (runs_of(tool_->service()) == before || closes_) return;
    if (const auto record = last_run_of(tool_->service()))
        work([&] { show_results(outcome_of_run(*record, front_end_)); });
}

// The first tab of the tool is the one that resaves.
bool main_window::resaves() const {
    const toolkit::element_view shown = tool_->look();
    const toolkit::element_view* const tabs = toolkit::find(shown, u"tab_layout");
    return !tabs || tabs->current == 0;
}

// Kept as users know it: the tool replaces an existing project. No file dialog has asked about a path that
// was typed, so the window asks.
bool main_window::may_replace(const wide_string& target) {
    return front_end_.confirms(
        entered(said("This project exists already. Replace it?", "Такой проект уже есть. Заменить его?") +
                "\n\n" + native(target)));
}

void main_window::work(const std::function<void()>& operation) {
    // Events are handled while an operation shows its progress, so a shortcut could start another one.
    if (works_) return;
    {
        const QScopedValueRollback is_working(works_, true);
        operation();
    }
    end_of_work();
}

void main_window::end_of_work() {
    if (closes_ && !is_at_work()) closer_.start(0);
}

void main_window::try_it() {
    // A path that was typed and not yet confirmed counts.
    view_->widgets().commit();
    const std::optional<tool_record> settings = settings_of(tool_->service());
    if (!settings || settings->source.empty())
        return front_end_.message(entered(said("Open a project first.", "Сначала откройте проект.")));
    if (settings->target.empty())
        return front_end_.message(
            entered(said("Give the new project a path first.", "Сначала укажите путь нового проекта.")));
    work([&] { show_results(tried_out(*settings, front_end_)); });
}

void main_window::check(const wide_string& project) {
    work([&] { show_results(looked_at(project, front_end_)); });
}

void main_window::show_results(run_outcome outcome) {
    results_->show_outcome(std::move(outcome));
    bring_up_results();
}

void main_window::bring_up_results() {
    // A minimised window would stay so.
    results_->setWindowState(results_->windowState() & ~Qt::WindowMinimized);
    results_->show();
    results_->raise();
    results_->activateWindow();
}

void main_window::set_language(const QString& language) {
    stored_.set_language(language);
    results_->forget(); // their texts are in the old language
    open_anew([&] { shell::settings().language_offset = language == "ru" ? 0 : 50000; });
}

void main_window::set_drives(const std::vector<stored_settings::drive>& drives) {
    stored_.set_drives(drives);
    map_anew(drives);
}

void main_window::map_anew(const std::vector<stored_settings::drive>& drives) {
    QStringList wrong;
    // Wrong drives are reported once the tool is open again.
    open_anew([&] { wrong = map_drives(drives); });
    if (!wrong.isEmpty()) front_end_.error(entered(wrong.join(u'\n')));
}

// The library reads language and drives when it is loaded.
void main_window::open_anew(const std::function<void()>& change) try {
    const toolkit::element_view before = tool_->look();
    const std::optional<tool_record> settings = settings_of(tool_->service());
    take_down();
    change();
    start();
    translate();
    // In this order: entering the project loads it, and only a loaded project has elements to leave out.
    copy_choices(before, tool_->look());
    if (settings) view_->widgets().send([&] { leave_out(tool_->service(), settings->left_out); });
} catch (const no_tool& failure) { // its library was removed in the meantime
    front_end_.error(platform::from_utf8(failure.reason));
    QCoreApplication::exit(2);
}

void main_window::closeEvent(QCloseEvent* event) {
    // The run decides when it can end, so the window only asks for it and closes later.
    if (is_at_work()) {
        closes_ = true;
        front_end_.request_stop();
        return event->ignore();
    }
    stored_.set_value("geometry", saveGeometry());
    QMainWindow::closeEvent(event);
}

void main_window::dragEnterEvent(QDragEnterEvent* event) { dragMoveEvent(event); }

void main_window::dragMoveEvent(QDragMoveEvent* event) {
    if (is_at_work() || project_in(*event->mimeData()).isEmpty() || !take_as_copy(*event)) event->ignore();
}

void main_window::dropEvent(QDropEvent* event) {
    const QString project = project_in(*event->mimeData());
    if (is_at_work() || project.isEmpty() || !take_as_copy(*event)) return;
    // Queued, because message boxes would block the program that the file was dragged from.
    dropped_ = project;
    opener_.start();
}

} // namespace vestra::window
