// The window that shows the progress of an operation.
#pragma once

#include <QWidget>
#include <functional>
#include <optional>

class QLabel;
class QProgressBar;
class QPushButton;

namespace vestra::qt {

// Shows what is being done, a progress bar and a stop button; Escape and the close button of the window also
// request a stop. Not modal: the window below can still be moved and closed.
class progress_window final : public QWidget {
public:
    // Calls `stops` when the user requests a stop, each time; never if not `stoppable`. The window closes
    // only by its destruction.
    progress_window(QWidget* above, bool stoppable, std::function<void()> stops);

    // Sets the text above the bar.
    void set_caption(const QString& text);
    // Shows a percentage from 0 to 100; without a value, a bar of unknown length.
    void set_percent(std::optional<int> percent);
    // Sets the text below the bar: bytes and remaining time.
    void set_amount(const QString& text);
    // True shows that a stop was requested and disables the button; false shows the running operation again.
    void set_stopping(bool on);

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void stop();

    const bool is_stoppable_;
    const std::function<void()> stops_;
    QLabel* const caption_;
    QProgressBar* const bar_;
    QLabel* const amount_;
    QPushButton* const stop_;
};

// Shows a window in its best size, centred over another one, for systems without a window manager.
void show_above(QWidget& shown_window, const QWidget& below);

} // namespace vestra::qt
