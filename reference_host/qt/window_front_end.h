// The host's boxes, questions, progress and wait windows on a screen.
#pragma once

#include <QElapsedTimer>
#include <QMessageBox>
#include <QPointer>
#include <functional>
#include <memory>
#include <optional>

#include "host/toolkit/run_record.h"
#include "reference_host/qt/progress_window.h"
#include "reference_host/shell/front_end.h"
#include "reference_host/shell/transfer_progress.h"

namespace vestra::qt {

// While a window of a long operation is shown, `busy` has been called with true, and screen events are
// handled at every call.
class window_front_end final : public shell::front_end {
public:
    // Boxes are shown above the window, which must outlive this object.
    explicit window_front_end(QWidget& window, std::function<void(bool on)> busy = {});
    ~window_front_end() override;

    void error(wide_view text) override;
    void warning(wide_view text) override;
    void message(wide_view text) override;
    bool yes_no(wide_view text) override;
    // Asks before something is lost: Enter and Escape answer no.
    bool confirms(wide_view text);
    // Closing the box by the window's own button cancels.
    shell::answer yes_no_cancel(wide_view text) override;

    void progress_opened(bool stoppable) override;
    void progress_shown(std::uint32_t current, std::uint32_t total) override;
    void progress_caption(wide_view text) override;
    void progress_indeterminate(bool on) override;
    void progress_closed() override;
    bool stop_requested() override;
    void stop_reset() override;
    void wait_opened(wide_view text) override;
    void wait_closed() override;

    // The next run moves this number of bytes; 0: unknown, so steps are shown.
    void expect_bytes(std::uint64_t total) override;
    void bytes_moved(std::uint64_t bytes) override;
    // Requests a stop, as the stop button does.
    void request_stop();
    // Called if the user requested a stop and then decides to continue; may be empty.
    std::function<void()> on_go_on;
    // The titles of boxes.
    QString title;
    // Returns the reason of a failure in the user's language.
    std::function<QString(wide_view reason)> words_of_reason;

private:
    QMessageBox::StandardButton ask(QMessageBox::Icon icon, wide_view text,
                                    QMessageBox::StandardButtons buttons, const QString& reason = {},
                                    QMessageBox::StandardButton chosen_by_enter = QMessageBox::NoButton);
    void begin_work();
    void end_work();
    void pump(bool at_once = false);

    QWidget& window_;
    const std::function<void(bool)> busy_;
    std::unique_ptr<progress_window> progress_;
    std::vector<std::unique_ptr<QWidget>> waits_;
    shell::transfer_progress transfer_;
    QElapsedTimer pumped_;
    QPointer<QWidget> had_keys_; // focused before it was busy
    bool was_active_ = false;
    unsigned busy_depth_ = 0;
    bool is_stopped_ = false, is_pumping_ = false;
};

// Reports the bytes that a tool copies to a front end for the lifetime of this object.
class watched_transfer final : private vs::project_resave::transfer_observer_impl {
public:
    // `expected` is the number of bytes of the whole run.
    watched_transfer(const vs::project_resave::run_record& tool, window_front_end& shows,
                     std::uint64_t expected);
    ~watched_transfer();
    watched_transfer(const watched_transfer&) = delete;
    watched_transfer& operator=(const watched_transfer&) = delete;

private:
    void on_moved(std::uint64_t bytes) override { shows_.bytes_moved(bytes); }

    const vs::project_resave::run_record tool_;
    window_front_end& shows_;
};

} // namespace vestra::qt
