// The progress window with its bar, caption, amount and stop button.
#include "reference_host/qt/progress_window.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "reference_host/qt/element_widgets.h"

namespace vestra::qt {

void show_above(QWidget& shown_window, const QWidget& below) {
    // Before it is shown its size is not known yet, and it could not be centred.
    shown_window.adjustSize();
    shown_window.move(below.frameGeometry().center() - shown_window.rect().center());
    shown_window.show();
}

progress_window::progress_window(QWidget* above, bool stoppable, std::function<void()> stops)
    : QWidget(above, Qt::Dialog), is_stoppable_(stoppable), stops_(std::move(stops)),
      caption_(new QLabel(this)), bar_(new QProgressBar(this)), amount_(new QLabel(this)),
      stop_(new QPushButton(said("Stop", "Остановить"), this)) {
    auto* const column = new QVBoxLayout(this);
    for (QWidget* part :
         {static_cast<QWidget*>(caption_), static_cast<QWidget*>(bar_), static_cast<QWidget*>(amount_)})
        column->addWidget(part);
    column->addWidget(stop_, 0, Qt::AlignRight);
    // The caption can have the name of a file or an element.
    caption_->setTextFormat(Qt::PlainText);
    caption_->setMinimumWidth(360);
    bar_->setRange(0, 100);
    bar_->setAccessibleName(said("Progress", "Ход работы"));
    stop_->setVisible(stoppable);
    connect(stop_, &QPushButton::clicked, [this] { stop(); });
}

void progress_window::set_caption(const QString& text) { caption_->setText(text); }

void progress_window::set_percent(std::optional<int> percent) {
    // A range of 0 is Qt's form of a bar without a known end.
    bar_->setRange(0, percent ? 100 : 0);
    if (percent) bar_->setValue(*percent);
}

void progress_window::set_amount(const QString& text) { amount_->setText(text); }

void progress_window::set_stopping(bool on) {
    stop_->setEnabled(!on);
    stop_->setText(on ? said("Stopping…", "Остановка…") : said("Stop", "Остановить"));
}

void progress_window::stop() {
    // Only requests: the operation ends at its next poll.
    if (is_stoppable_) stops_();
}

void progress_window::closeEvent(QCloseEvent* event) {
    event->ignore(); // the code that opened the window closes it
    stop();
}

void progress_window::keyPressEvent(QKeyEvent* event) {
    // A window that is no dialog of Qt does not handle this key by itself.
    if (event->key() == Qt::Key_Escape)
        stop();
    else
        QWidget::keyPressEvent(event);
}

} // namespace vestra::qt
