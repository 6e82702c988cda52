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
// handled at every call. So code of the window can run inside any of these calls and must not start another
// operation.
class window_front_end final : public shell::front_end {
public:
    // Boxes are shown above the window, which must outlive this object.
    explicit window_front_end(QWidget& window, std::function<void(bool on)> busy = {});
    ~window_front_end() override;

    // Also shows the host's reason if a file could not be read since the last error.
    void error(wide_view text) override;
    void warning(wide_view text) override;
    void message(wide_view text) override;
    // Closing the box by the window's own button or Escape answers no.
    bool yes_no(wide_view text) override;
    // Asks before something is lost: Enter and Escape answer no.
    bool confirms(wide_view text);
    // Closing the box by the window's own button cancels.
    shell::answer yes_no_cancel(wide_view text) override;

    void progress_opened(bool stoppable) override;
    void progress_shown(std::uint32_t current, std::uint32_t total) override;
    void progress_caption(wide_view text) override;
    void progress_indeterminate(bool on) override;
    // Also forgets a stop, which must not affect the next operation.
    void progress_closed() override;
    bool stop_requested() override;
    void stop_reset() override;
    void wait_opened(wide_view text) override;
    void wait_closed() override;

    // The next run moves this number of bytes; 0: unknown, so steps are shown.
    void expect_bytes(std::uint64_t total) override;
    void bytes_moved(std::uint64_t bytes) override;
    // Requests a stop, as the stop button does. Does nothing without a progress window.
    void request_stop();
    // Called if the user requested a stop and then decides to continue; may be empty.
    std::function<void()> on_go_on;
    // The titles of boxes.
    QString title;
    // Returns the reason of a failure in the user's language.
    std::function<QString(wide_view reason)> words_of_reason;

private:
    // Shows a box above the topmost window of the host and returns the button. Escape means cancel; without
    // such a button no, and then OK.
    QMessageBox::StandardButton ask(QMessageBox::Icon icon, wide_view text,
                                    QMessageBox::StandardButtons buttons, const QString& reason = {},
                                    QMessageBox::StandardButton chosen_by_enter = QMessageBox::NoButton);
    // Count the open progress and wait windows; the first one makes the window busy, and after the last one
    // the focus returns to where it was.
    void begin_work();
    void end_work();
    // Handles screen events, unless it did so a moment ago or is doing so already.
    void pump(bool at_once = false);

    QWidget& window_;
    const std::function<void(bool)> busy_;
    std::unique_ptr<progress_window> progress_;
    // The open wait windows; the last one is closed first.
    std::vector<std::unique_ptr<QWidget>> waits_;
    // While it counts bytes, steps do not move the bar.
    shell::transfer_progress transfer_;
    // Since screen events were last handled.
    QElapsedTimer pumped_;
    QPointer<QWidget> had_keys_; // focused before it was busy
    bool was_active_ = false;
    unsigned busy_depth_ = 0;
    bool is_stopped_ = false, is_pumping_ = false;
};

// Reports the bytes that a tool copies to a front end for the lifetime of this object.
class watched_transfer final : private vs::project_resave::transfer_observer_impl {
public:
    // `expected` is the number of bytes of the whole run; with 0, progress is shown by steps. The front end
    // must outlive this object.
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
