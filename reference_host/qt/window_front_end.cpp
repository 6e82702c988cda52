// Message boxes, progress and wait windows on a screen; handles events while the host works.
#include "reference_host/qt/window_front_end.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCloseEvent>
#include <QGridLayout>
#include <QLabel>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "reference_host/qt/element_widgets.h"

namespace vestra::qt {

using shell::answer;

namespace {

constexpr int between_pumps = 15; // milliseconds; the host polls for a stop at each file
constexpr int least_width = 360;  // of a box, in pixels

class wait_window final : public QWidget {
public:
    using QWidget::QWidget;

protected:
    void closeEvent(QCloseEvent* event) override { event->ignore(); } // closed by the code that opened it
};

} // namespace

window_front_end::window_front_end(QWidget& window, std::function<void(bool on)> busy)
    : window_(window), busy_(std::move(busy)) {}

window_front_end::~window_front_end() = default;

QMessageBox::StandardButton window_front_end::ask(QMessageBox::Icon icon, wide_view text,
                                                  QMessageBox::StandardButtons buttons, const QString& reason,
                                                  QMessageBox::StandardButton chosen_by_enter) {
    QWidget* above = QApplication::activeModalWidget(); // a dialog that asks for a name
    if (!above) above = progress_ ? static_cast<QWidget*>(progress_.get()) : &window_;
    // The box's own field for details would be narrow and would interpret tags, so the reason is appended to
    // the text.
    const QString whole = reason.isEmpty() ? shown(text) : shown(text) + "\n\n" + reason;
    QMessageBox box(icon, title, whole, buttons, above->isVisible() ? above : nullptr);
    box.setTextFormat(Qt::PlainText);
    if (auto* const grid = qobject_cast<QGridLayout*>(box.layout())) // wide enough for the title
        grid->addItem(new QSpacerItem(least_width, 0), grid->rowCount(), 0, 1, grid->columnCount());
    box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    for (const auto& [button, words] :
         {std::pair(QMessageBox::Yes, said("Yes", "Да")), std::pair(QMessageBox::No, said("No", "Нет")),
          std::pair(QMessageBox::Cancel, said("Cancel", "Отмена"))})
        if (QAbstractButton* const shown_button = box.button(button)) shown_button->setText(words);
    // NoButton leaves the choice to Qt.
    box.setDefaultButton(chosen_by_enter);
    box.setEscapeButton(buttons & QMessageBox::Cancel ? QMessageBox::Cancel
                        : buttons & QMessageBox::No   ? QMessageBox::No
                                                      : QMessageBox::Ok);
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

void window_front_end::error(wide_view text) {
    auto& refused = shell::settings().read_error;
    QString reason;
    // Shown once: the next error can be about something else.
    if (refused) reason = words_of_reason ? words_of_reason(refused->text()) : shown(refused->text());
    refused.reset();
    ask(QMessageBox::Critical, text, QMessageBox::Ok, reason);
}

void window_front_end::warning(wide_view text) { ask(QMessageBox::Warning, text, QMessageBox::Ok); }
void window_front_end::message(wide_view text) { ask(QMessageBox::Information, text, QMessageBox::Ok); }

bool window_front_end::yes_no(wide_view text) {
    return ask(QMessageBox::Question, text, QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
}

bool window_front_end::confirms(wide_view text) {
    const auto buttons = QMessageBox::Yes | QMessageBox::No;
    return ask(QMessageBox::Warning, text, buttons, {}, QMessageBox::No) == QMessageBox::Yes;
}

answer window_front_end::yes_no_cancel(wide_view text) {
    const auto buttons = QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    // The question is whether to erase files, so a key pressed too early must not confirm it.
    switch (ask(QMessageBox::Question, text, buttons, {}, QMessageBox::Cancel)) {
    case QMessageBox::Yes:
        return answer::yes;
    case QMessageBox::No:
        return answer::no;
    default:
        return answer::cancel;
    }
}

void window_front_end::begin_work() {
    // A progress can be opened while a wait window is shown.
    if (busy_depth_++ > 0) return;
    // So that a run in the background does not take the keys from another program when it ends.
    was_active_ = window_.isActiveWindow();
    had_keys_ = window_.focusWidget();
    if (busy_) busy_(true);
}

void window_front_end::end_work() {
    if (--busy_depth_ > 0) return;
    if (busy_) busy_(false);
    if (was_active_) window_.activateWindow();
    if (had_keys_) had_keys_->setFocus(); // a widget loses the focus when it is disabled
}

void window_front_end::pump(bool at_once) {
    // Events that are handled here can report progress themselves.
    if (is_pumping_ || (!at_once && pumped_.isValid() && pumped_.elapsed() < between_pumps)) return;
    is_pumping_ = true;
    QApplication::processEvents();
    is_pumping_ = false;
    // Measured from the end: handling the events may have taken long.
    pumped_.start();
}

void window_front_end::progress_opened(bool stoppable) {
    begin_work();
    is_stopped_ = false;
    progress_ = std::make_unique<progress_window>(&window_, stoppable, [this] { request_stop(); });
    progress_->setWindowTitle(title);
    show_above(*progress_, window_);
    pump(true);
}

void window_front_end::progress_shown(std::uint32_t current, std::uint32_t total) {
    if (!progress_) return;
    // Steps and bytes would show different percentages in one bar.
    if (!transfer_.is_running())
        progress_->set_percent(total == 0 ? 0 : static_cast<int>(std::min(100.0, 100.0 * current / total)));
    pump();
}

void window_front_end::progress_caption(wide_view text) {
    if (!progress_) return;
    progress_->set_caption(shown(text));
    pump();
}

void window_front_end::progress_indeterminate(bool on) {
    if (progress_) progress_->set_percent(on ? std::nullopt : std::optional(0));
    pump();
}

void window_front_end::progress_closed() {
    progress_.reset();
    is_stopped_ = false; // the stop must not affect the next operation
    end_work();
}

void window_front_end::request_stop() {
    if (!progress_) return;
    is_stopped_ = true;
    progress_->set_stopping(true);
}

bool window_front_end::stop_requested() {
    pump();
    return is_stopped_;
}

void window_front_end::stop_reset() {
    // The user has seen the question after a stop and chose to continue.
    if (is_stopped_ && on_go_on) on_go_on();
    is_stopped_ = false;
    if (progress_) progress_->set_stopping(false);
}

void window_front_end::wait_opened(wide_view text) {
    auto wait =
        std::make_unique<wait_window>(&window_, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
    wait->setWindowTitle(title);
    auto* const words = new QLabel(shown(text), wait.get());
    // The text can have the name of a project.
    words->setTextFormat(Qt::PlainText);
    (new QVBoxLayout(wait.get()))->addWidget(words);
    wait->setMinimumWidth(280);
    begin_work();
    show_above(*wait, window_);
    waits_.push_back(std::move(wait));
    pump(true);
}

void window_front_end::wait_closed() {
    if (waits_.empty()) return;
    waits_.pop_back();
    end_work();
}

void window_front_end::expect_bytes(std::uint64_t total) { transfer_.begin(total); }

void window_front_end::bytes_moved(std::uint64_t bytes) {
    if (!transfer_.is_running()) return;
    transfer_.add(bytes);
    if (progress_ && transfer_.is_due()) {
        progress_->set_percent(static_cast<int>(transfer_.percent()));
        progress_->set_amount(QString::fromStdString(transfer_.text()));
    }
    pump();
}

using vs::project_resave::call;
using vs::project_resave::run_record;
using vs::project_resave::run_record_impl;
using vs::project_resave::transfer_observer;
using vs::project_resave::transfer_observer_impl;

watched_transfer::watched_transfer(const run_record& tool, window_front_end& shows, std::uint64_t expected)
    : tool_(tool), shows_(shows) {
    shows_.expect_bytes(expected);
    call<&run_record_impl::set_transfer_observer>(
        tool_, vs::project_resave::pointer_to<transfer_observer_impl>(*this));
}

watched_transfer::~watched_transfer() {
    call<&run_record_impl::set_transfer_observer>(tool_, transfer_observer());
    shows_.expect_bytes(0);
}

} // namespace vestra::qt
