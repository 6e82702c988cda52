// The window that shows how far something has come.
#pragma once

#include <QWidget>
#include <functional>
#include <optional>

class QLabel;
class QProgressBar;
class QPushButton;

namespace vestra::qt {

// What is being done, how far it has come, and a button that stops it, which Escape and the window's own
// button are, too. Not modal: the window below it can still be moved and closed.
class progress_window final : public QWidget {
public:
    progress_window(QWidget* above, bool stoppable, std::function<void()> stops);

    void set_caption(const QString& text);
    // Shows a percentage; nothing: how long it takes is unknown.
    void set_percent(std::optional<int> percent);
    void set_amount(const QString& text);
    // The wish to stop is known, until it is forgotten.
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

// Shows a window in the middle of the one below it, where no window manager puts it there.
void show_above(QWidget& shown_window, const QWidget& below);

} // namespace vestra::qt
