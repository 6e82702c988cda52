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

// While something is shown here that takes time, `busy` has been called with true, and events of the screen
// are handled whenever the host is told or asked something.
class window_front_end final : public shell::front_end {
public:
    // Boxes stand above the window, which must outlive this object.
    explicit window_front_end(QWidget& window, std::function<void(bool on)> busy = {});
    ~window_front_end() override;

    void error(wide_view text) override;
    void warning(wide_view text) override;
    void message(wide_view text) override;
    bool yes_no(wide_view text) override;
    // The box closed by the window's own button is a cancel.
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

    // The next run moves about so many bytes; 0: nothing is known of it, and the steps are shown.
    void expect_bytes(std::uint64_t total) override;
    void bytes_moved(std::uint64_t bytes) override;
    // The user wants the run to end, as by the stop button.
    void request_stop();
    // Called when the user wanted to stop and then does not; may be empty.
    std::function<void()> on_go_on;
    // The titles of boxes.
    QString title;
    // Says the reason of a failure in the user's language.
    std::function<QString(wide_view reason)> words_of_reason;

private:
    QMessageBox::StandardButton ask(QMessageBox::Icon icon, wide_view text,
                                    QMessageBox::StandardButtons buttons, const QString& reason = {});
    void begin_work();
    void end_work();
    void pump(bool at_once = false);

    QWidget& window_;
    const std::function<void(bool)> busy_;
    std::unique_ptr<progress_window> progress_;
    std::vector<std::unique_ptr<QWidget>> waits_;
    shell::transfer_progress transfer_;
    QElapsedTimer pumped_;
    QPointer<QWidget> had_keys_; // before it was busy
    bool was_active_ = false;
    unsigned busy_depth_ = 0;
    bool is_stopped_ = false, is_pumping_ = false;
};

// Feeds a front end with the bytes that a tool copies, as long as it lives.
class watched_transfer final : private vs::project_resave::transfer_observer_impl {
public:
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
