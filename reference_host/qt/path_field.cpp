// A path field with its button and file dialog.
#include "reference_host/qt/path_field.h"

#include <QFileInfo>
#include <QFocusEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <algorithm>
#include <utility>

#include "platform/path_text.h"
#include "platform/volumes.h"

namespace vestra::qt {

using namespace vs::project_resave;

namespace {

const QString own_words = QStringLiteral("…"); // used if the bundle has no text for the button

} // namespace

path_line::path_line(QWidget* parent) : QLineEdit(parent) {
    setAcceptDrops(false); // the window accepts dropped files
}

void path_line::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    // Other reasons are popup menus and other windows, from which the user comes back to go on typing.
    const auto goes_to_part = {Qt::TabFocusReason, Qt::BacktabFocusReason, Qt::MouseFocusReason,
                               Qt::ShortcutFocusReason};
    if (std::ranges::find(goes_to_part, event->reason()) != goes_to_part.end() && on_left) on_left();
}

void path_line::keyPressEvent(QKeyEvent* event) {
    // The line reacts to Enter, but passes it on to the dialog, whose default button it would press.
    QLineEdit::keyPressEvent(event);
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) event->accept();
}

path_field::path_field(element_widgets& all, const element& live, QWidget* parent)
    : widget_for(all, live, new QWidget(parent)), line_(new path_line(own_)), button_(new QPushButton(own_)),
      mode_(ask<&file_input_impl::mode>()), filter_(text_of<&file_input_impl::filter>()) {
    auto* const row = new QHBoxLayout(own_);
    row->setContentsMargins({});
    row->addWidget(line_, 1);
    row->addWidget(button_);
    const QString words = text_of<&file_input_impl::button_caption>();
    button_->setText(words.isEmpty() ? own_words : on_button(words));
    button_->setAutoDefault(false);
    button_->setAccessibleName(words.isEmpty() ? said("Choose", "Выбрать") : words);
    // The label next to the field replaces this name if there are no words.
    line_->setAccessibleName(words);
    own_->setFocusProxy(line_);
    // Enter always enters the text, even if it is the same: the user may want to load the project again.
    QObject::connect(line_, &QLineEdit::returnPressed,
                     [this] { enter(platform::drive_path(line_->text().toStdString())); });
    line_->on_left = [this] { commit(); };
    QObject::connect(button_, &QPushButton::clicked, [this] { browse(); });
}

void path_field::commit() {
    // Leaving the field without a change is no event.
    if (is_entering_ || line_->text() == text_of<&file_input_impl::text>()) return;
    enter(platform::drive_path(line_->text().toStdString()));
}

void path_field::enter(const wide_string& text) {
    // Message boxes take the focus away, which would finish the editing again.
    if (std::exchange(is_entering_, true)) return;
    send([&] { ask<&file_input_impl::text_entered>(text.c_str()); });
    is_entering_ = false;
    // The element may have refused the text or spelled it in another way.
    refresh();
}

std::unique_ptr<QFileDialog> path_field::make_dialog() const {
    auto dialog = std::make_unique<QFileDialog>(own_->window());
    const bool saves = mode_ == file_input_mode::text_file || mode_ == file_input_mode::new_file;
    dialog->setAcceptMode(saves ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog->setFileMode(mode_ == file_input_mode::folder ? QFileDialog::Directory
                        : saves                          ? QFileDialog::AnyFile
                                                         : QFileDialog::ExistingFile);
    dialog->setOption(QFileDialog::ShowDirsOnly, mode_ == file_input_mode::folder);
    dialog->setWindowTitle(line_->accessibleName());
    // The bundle's form is "words|pattern", where the words may repeat the pattern in brackets; Qt's is
    // "words (pattern)".
    const QString pattern = filter_.section(u'|', 1);
    if (!pattern.isEmpty()) {
        dialog->setNameFilter(filter_.section(u'|', 0, 0).section(u'(', 0, 0).trimmed() + " (" + pattern +
                              ")");
        dialog->setDefaultSuffix(pattern.section(u'.', 1));
    }
    const QString now = QString::fromStdString(platform::native_text(entered(line_->text())));
    if (!now.isEmpty() && !line_->text().isEmpty()) dialog->selectFile(now);
    return dialog;
}

void path_field::browse() {
    const auto dialog = make_dialog();
    if (dialog->exec() != QDialog::Accepted || dialog->selectedFiles().isEmpty()) return;
    enter(platform::drive_path(dialog->selectedFiles().front().toStdString()));
}

void path_field::show() {
    const QString text = text_of<&file_input_impl::text>();
    // Replacing the text by itself would move the cursor and add a step to undo.
    if (line_->text() == text) return;
    line_->selectAll(); // so that a rejected text can be restored with "undo"
    line_->insert(text);
}

void path_field::read(toolkit::element_view& view) const {
    // The host's own words are not those of the element.
    const QString words = button_->text();
    view.caption = words == own_words ? wide_string() : entered(off_button(words));
    view.text = entered(line_->text());
    view.mode = mode_;
    view.filter = entered(filter_);
}

} // namespace vestra::qt
